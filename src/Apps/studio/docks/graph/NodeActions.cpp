// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Actions that would have no effect are disabled, so that menus show what is possible.
#include "studio/docks/graph/NodeActions.h"

#include "QuarvelSceneCore/editing/MO_GroupCommands.h"
#include "QuarvelSceneCore/editing/MO_ModuleCommands.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"

#include <QAction>
#include <QMenu>

#include <algorithm>
#include <cmath>
#include <ranges>

namespace {

constexpr unsigned kLinksInMenu = 6;

// A menu of hundreds of entries scrolls: in columns side by side it would reach beyond the screen.
void makeScrollable(QMenu& menu)
{
    menu.setStyleSheet(QStringLiteral("QMenu { menu-scrollable: 1; }"));
}

} // namespace

NodeActions::NodeActions(NodeView& view, QWidget& owner)
    : QObject(&view)
    , _view(view)
    , _owner(owner)
    , _remove(make(tr("Delete"), QKeySequence::Delete, &NodeActions::removeSelected))
    , _duplicate(make(tr("Duplicate"), QKeySequence(Qt::CTRL | Qt::Key_D), &NodeActions::duplicateSelected))
    , _toggle(make(tr("Enabled"), QKeySequence(Qt::Key_D), &NodeActions::toggleSelected))
    , _rename(make(tr("Rename"), QKeySequence(Qt::Key_F2), &NodeActions::renameCurrent))
    , _enter(make(tr("Look Inside"), QKeySequence(Qt::Key_Return), &NodeActions::enterCurrent))
    , _leave(make(tr("Leave Group"), QKeySequence(Qt::Key_Backspace), &NodeActions::leaveCurrent))
    , _selectAll(make(tr("Select All"), QKeySequence::SelectAll, &NodeActions::selectEverything))
    , _fit(make(tr("Show Everything"), QKeySequence(Qt::Key_F), &NodeActions::fitEverything))
    , _arrange(make(tr("Arrange"), QKeySequence(Qt::Key_L), &NodeActions::arrangeSelected))
{
    _toggle->setCheckable(true);
    connect(&view, &NodeView::groupChanged, this, &NodeActions::update);
    connect(&view, &NodeView::menuWanted, this, &NodeActions::showMenu);
    connect(&view.document(), &StudioDocument::selectionChanged, this, &NodeActions::update);
    update();
}

QAction* NodeActions::make(const QString& text, const QKeySequence& key, void (NodeActions::*slot)())
{
    auto* action = new QAction(text, this);
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    action->setToolTip(QStringLiteral("%1 (%2)").arg(text, key.toString(QKeySequence::NativeText)));
    connect(action, &QAction::triggered, this, slot);
    _owner.addAction(action);
    return action;
}

std::vector<MO_Module*> NodeActions::selected() const
{
    std::vector<MO_Module*> here;
    for (MO_Module* module : _view.document().selection())
        if (module->group() == &_view.group())
            here.push_back(module);
    return here;
}

void NodeActions::update()
{
    const std::vector<MO_Module*> modules = selected();
    const bool any = !modules.empty();
    for (QAction* action : {_remove, _duplicate, _toggle, _rename})
        action->setEnabled(any);
    _toggle->setChecked(any && std::ranges::all_of(modules, &MO_Module::enabled));
    _enter->setEnabled(any && dynamic_cast<XUGroup*>(modules.back()));
    _leave->setEnabled(_view.group().group() != nullptr);
    _selectAll->setEnabled(!_view.group().modules().empty());
}

bool NodeActions::addNode(const QString& keyword, std::optional<QPointF> place)
{
    std::unique_ptr<MO_Module> module = MO_ModuleFactorySingleton().create(keyword);
    if (!module)
        return false;
    MO_Module* const added = module.get();
    if (const auto room = _view.group().mayAdd({added}); !room) {
        _view.refuse(room.error().text);
        return false;
    }
    const std::vector<MO_Module*> before = selected();
    MO_Module* const source = before.size() == 1 ? before.front() : nullptr;
    const bool isLinked = source && source->nOutPorts() > 0 && added->nInPorts() > 0;
    if (!place && !isLinked && !_view.group().modules().empty())
        place = _view.freePlace();
    if (place) {
        added->setGraphPlace(MO_GraphPlace{std::round(place->x()), std::round(place->y())});
        _view.keepView();
    }
    if (!_view.document().execute(MO_addModuleCmd(_view.group(), std::move(module), source)))
        return false;
    if (place)
        _view.selectHere({added});
    else
        _view.document().setSelection({added});
    return true;
}

void NodeActions::fillAddMenu(QMenu& menu, std::optional<QPointF> place)
{
    makeScrollable(menu);
    std::vector<std::pair<QString, QString>> kinds;
    for (const QString& key : MO_ModuleFactorySingleton().keys())
        if (const auto sample = MO_ModuleFactorySingleton().create(key))
            kinds.emplace_back(sample->baseDisplayName(), key);
    std::ranges::sort(kinds, [](const auto& a, const auto& b) { return a.first.localeAwareCompare(b.first) < 0; });
    for (const auto& [name, key] : kinds) {
        QAction* const action = menu.addAction(name, this, [this, keyword = key, place] { addNode(keyword, place); });
        action->setObjectName(QStringLiteral("add") + key);
    }
}

void NodeActions::removeSelected()
{
    _view.document().execute(MO_removeModulesCmd(selected()));
}

void NodeActions::duplicateSelected()
{
    std::vector<MO_Module*> copies;
    UT_Result<MO_EditCommand> command = MO_duplicateModulesCmd(selected(), &copies);
    if (!command)
        return _view.refuse(command.error().text);
    if (_view.document().execute(std::move(*command)))
        _view.document().setSelection(QList<MO_Module*>(copies.begin(), copies.end()));
}

void NodeActions::toggleSelected()
{
    const std::vector<MO_Module*> modules = selected();
    const bool allAreOn = std::ranges::all_of(modules, &MO_Module::enabled);
    _view.document().execute(MO_enableCmd(modules, !allAreOn));
    update();
}

void NodeActions::renameCurrent()
{
    if (const std::vector<MO_Module*> modules = selected(); !modules.empty())
        _view.editName(*modules.back());
}

void NodeActions::enterCurrent()
{
    const std::vector<MO_Module*> modules = selected();
    if (auto* inner = modules.empty() ? nullptr : dynamic_cast<XUGroup*>(modules.back()))
        _view.enter(*inner);
}

void NodeActions::leaveCurrent()
{
    _view.leave();
}

void NodeActions::selectEverything()
{
    QList<MO_Module*> all;
    for (const auto& module : _view.group().modules())
        all << module.get();
    _view.document().setSelection(all);
}

void NodeActions::fitEverything()
{
    _view.fitAll();
}

// Gives the selected nodes, or all if none is selected, back to the automatic layout.
void NodeActions::arrangeSelected()
{
    std::vector<MO_Module*> modules = selected();
    if (modules.empty())
        for (const auto& module : _view.group().modules())
            modules.push_back(module.get());
    _view.arrange(modules);
}

void NodeActions::showMenu(const QPoint& globalPosition, MO_Module* module, const NodePort& link)
{
    auto* menu = new QMenu(&_view);
    menu->setObjectName(QStringLiteral("NodeMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    update();
    if (link) {
        menu->addAction(tr("Cut Link"), this, [this, link] { _view.cutLink(link); });
        menu->addSeparator();
    }
    if (module && !dynamic_cast<MO_GroupBorderModule*>(module)) {
        menu->addActions({_toggle, _rename, _duplicate, _remove, _arrange});
        menu->addSeparator();
    }
    if (module)
        addLinkMenus(*menu, *module);
    if (auto* inner = dynamic_cast<XUGroup*>(module)) {
        menu->addAction(_enter);
        addGroupMenus(*menu, *inner);
    }
    if (!module) {
        fillAddMenu(*menu->addMenu(tr("Add")), _view.mapToScene(_view.viewport()->mapFromGlobal(globalPosition)));
        if (_view.group().group())
            addGroupMenus(*menu, _view.group());
        menu->addSeparator();
        menu->addActions({_selectAll, _fit, _arrange, _leave});
    }
    menu->popup(globalPosition);
}

// Links without a mouse: from the node's output to each node that takes an input, and each link that comes in.
void NodeActions::addLinkMenus(QMenu& menu, MO_Module& module)
{
    std::vector<MO_Module*> targets;
    for (const auto& other : _view.group().modules())
        if (other.get() != &module && other->nInPorts() > 0)
            targets.push_back(other.get());
    if (_view.group().group() && &_view.group().exit() != &module && _view.group().exit().nInPorts() > 0)
        targets.push_back(&_view.group().exit());
    if (module.nOutPorts() > 0 && !targets.empty()) {
        QMenu* const to = menu.addMenu(tr("Connect To"));
        makeScrollable(*to);
        for (MO_Module* target : targets) {
            const NodeItem* const item = _view.item(*target);
            const NodePort input = item ? item->inputForDrop() : NodePort();
            const QString name = target->instanceName().isEmpty() ? target->baseDisplayName() : target->instanceName();
            if (input)
                to->addAction(name, this, [this, input, &module] { _view.connectPorts({&module, false, 0}, input); });
        }
    }
    // A node may have hundreds of links: a few are in the menu itself, more get a submenu.
    unsigned links = 0;
    for (unsigned i = 0; i < module.nInPorts(); ++i)
        links += module.inPort(i)->srcPort() ? 1 : 0;
    QMenu& from = links > kLinksInMenu ? *menu.addMenu(tr("Disconnect")) : menu;
    makeScrollable(from);
    for (unsigned i = 0; i < module.nInPorts(); ++i)
        if (const MO_Port* source = module.inPort(i)->srcPort()) {
            const QString name = source->node()->instanceName();
            from.addAction(tr("Disconnect \"%1\"").arg(name.isEmpty() ? source->module()->baseDisplayName() : name),
                           this, [this, &module, i] {
                               _view.cutLink({&module, true, i});
                           });
        }
    menu.addSeparator();
}

void NodeActions::addGroupMenus(QMenu& menu, XUGroup& group)
{
    QMenu* const ports = menu.addMenu(tr("Ports of \"%1\"").arg(group.instanceName()));
    for (const bool isInput : {true, false})
        ports->addAction(isInput ? tr("Add Input") : tr("Add Output"), this,
                         [this, &group, isInput] { _view.document().execute(MO_addGroupPortCmd(group, isInput)); });
    for (const bool isInput : {true, false})
        ports->addAction(isInput ? tr("Remove Last Input") : tr("Remove Last Output"), this, [this, &group, isInput] {
            UT_Result<MO_EditCommand> command = MO_removeGroupPortCmd(group, isInput);
            if (command)
                _view.document().execute(std::move(*command));
            else
                _view.refuse(command.error().sentence());
        });
}
