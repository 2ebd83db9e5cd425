// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The panel: which parts of it are updated on which change, and when.
#include "QuarvelPlugInManager/PLUG_EditorPanel.h"

#include "QuarvelBaseCore/XUTeller.h"
#include "QuarvelCommand/CO_CommandStack.h"
#include "QuarvelCommand/CO_OrCommand.h"
#include "QuarvelPlugInManager/PLUG_EditorWidgets.h"
#include "QuarvelPlugInManager/PLUG_Services.h"
#include "QuarvelPlugInManager/private/LayoutBuilder.h"
#include "QuarvelSceneCore/graph/MO_Module.h"
#include "QuarvelSceneCore/graph/MO_NodeEditorComponentInterface.h"
#include "QuarvelSceneCore/graph/MO_SceneCommon.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>

#include <exception>

namespace {

/// The delay before changes of the graph around the node are shown. (Playing a scene changes the frame all the time,
/// and collecting names of nodes and drawings means a walk through the graph.)
constexpr int kIdleMilliseconds = 120;

/// Deletes the menus without a parent together with their buttons.
void adoptMenus(QWidget& content)
{
    for (QPushButton* const button : content.findChildren<QPushButton*>())
        if (QMenu* const menu = button->menu(); menu && !menu->parent())
            QObject::connect(button, &QObject::destroyed, menu, &QObject::deleteLater);
}

} // namespace

/// The owner of one component. It lives as long as the component's widget, and is detached when the panel shows another
/// node.
class PLUG_EditorPanel::ComponentOwner : public QObject, public MO_NodeEditorComponentInterfaceOwner
{
public:
    ComponentOwner(PLUG_EditorPanel& panel, MO_NodeEditorComponentInterface& component, const QString& attr,
                   QWidget* parent)
        : QObject(parent), _panel(&panel), _component(&component), _attr(attr)
    {}

    MO_Module* module() override { return _panel ? _panel->module() : nullptr; }
    void componentChanged() override
    {
        if (_panel)
            _panel->componentChanged(*this);
    }

    MO_NodeEditorComponentInterface* component() const { return _component; }
    const QString& attr() const { return _attr; }
    void leavePanel() { _panel = nullptr; }

private:
    PLUG_EditorPanel* _panel;
    QPointer<MO_NodeEditorComponentInterface> _component;
    QString _attr;
};

/// Listens to everything that the panel follows, until the panel shows another node.
class PLUG_EditorPanel::Watch : public XUListener
{
public:
    explicit Watch(PLUG_EditorPanel& panel) : _panel(panel) {}
    void told(XUTeller& teller) override { _panel.told(teller); }

private:
    PLUG_EditorPanel& _panel;
};

struct PLUG_EditorPanel::Parts
{
    std::unique_ptr<Watch> watch;
    QLabel* header = nullptr;
    QScrollArea* area = nullptr;
    QPointer<QWidget> content;
    std::vector<QPointer<QWidget>> leaving; ///< earlier contents that are about to be deleted
    std::vector<AttrEditor*> fields;
    std::vector<ComponentOwner*> owners;
    QTimer soon;
    QTimer idle;
    QPointer<QWidget> typedInto; ///< the spin box that the newest change came from
    bool isExecuting = false;
    bool wasInScene = false;
    bool hasModule = false;
};

PLUG_EditorPanel::PLUG_EditorPanel(CO_CommandStack* stack, QWidget* parent)
    : QWidget(parent), _stack(stack), _parts(std::make_unique<Parts>())
{
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    _parts->header = new QLabel(this);
    _parts->header->setTextFormat(Qt::PlainText);
    _parts->header->setContentsMargins(9, 6, 9, 6);
    _parts->area = new QScrollArea(this);
    _parts->area->setWidgetResizable(true);
    _parts->area->setFrameShape(QFrame::NoFrame);
    _parts->area->setFocusPolicy(Qt::NoFocus);
    rows->addWidget(_parts->header);
    rows->addWidget(_parts->area, 1);

    _parts->soon.setSingleShot(true);
    connect(&_parts->soon, &QTimer::timeout, this, &PLUG_EditorPanel::synchronizeNow);
    _parts->idle.setSingleShot(true);
    _parts->idle.setInterval(kIdleMilliseconds);
    connect(&_parts->idle, &QTimer::timeout, this, &PLUG_EditorPanel::synchronizeWhenIdle);
    clear();
}

PLUG_EditorPanel::~PLUG_EditorPanel()
{
    // Fields report the loss of the focus, so they are removed while the panel still exists.
    clear();
    // No event loop may run any more to delete these later.
    for (const QPointer<QWidget>& content : _parts->leaving)
        delete content;
}

MO_Module* PLUG_EditorPanel::module() const
{
    return _module.get();
}

QWidget* PLUG_EditorPanel::content() const
{
    return _parts->content;
}

void PLUG_EditorPanel::setHeaderVisible(bool visible)
{
    _parts->header->setVisible(visible);
}

void PLUG_EditorPanel::setModule(MO_Module* module)
{
    clear();
    if (module)
        build(*module);
}

void PLUG_EditorPanel::clear()
{
    _parts->soon.stop();
    _parts->idle.stop();
    _parts->watch.reset();
    for (ComponentOwner* const owner : _parts->owners)
        owner->leavePanel();
    _parts->owners.clear();
    _parts->fields.clear();
    _module = {};
    _warnings.clear();
    _parts->hasModule = false;
    // One of the old widgets may have caused the change of module and may still be running.
    if (QWidget* const content = _parts->area->takeWidget()) {
        content->hide();
        content->deleteLater();
        _parts->leaving.emplace_back(content);
    }
    _parts->content = nullptr;
    showHeader();
}

void PLUG_EditorPanel::build(MO_Module& module)
{
    std::erase_if(_parts->leaving, [](const QPointer<QWidget>& content) { return content.isNull(); });
    _module = UT_WeakPtr<MO_Module>(&module);
    _parts->hasModule = true;
    _parts->wasInScene = module.sceneCommon() != nullptr;

    AttrEditing editing;
    editing.execute = [this](MO_EditCommand command) {
        execute(std::move(command));
        synchronizeFields();
    };
    editing.endStep = [this] { endStep(); };
    editing.hasFrames = PLUG_Services::getCurrentFrameInterface() != nullptr;

    // The layout comes first, because plug-ins register their widgets when they are asked for it.
    const QDomElement layout = module.obtainEditorLayout();
    const auto* const widgets = dynamic_cast<PLUG_EditorWidgets*>(PLUG_Services::getWidgetFactoryRegistry());
    BuiltEditor built = LayoutBuilder(module, editing, widgets, _leftOut).build(layout, _parts->area);
    _parts->content = built.content;
    _parts->fields = std::move(built.fields);
    _warnings = built.warnings;
    for (const BuiltEditor::Component& found : built.components) {
        auto* owner = new ComponentOwner(*this, *found.component, found.attr, built.content);
        _parts->owners.push_back(owner);
        found.component->setOwner(owner);
    }
    listenTo(module);
    synchronizeNow();
    adoptMenus(*built.content);
    _parts->area->setWidget(built.content);
    built.content->show();
}

void PLUG_EditorPanel::listenTo(MO_Module& module)
{
    _parts->watch = std::make_unique<Watch>(*this);
    for (AT_Attr* const attr : module.attrs())
        attr->addListener(*_parts->watch);
    if (MO_SceneCommon* const scene = module.sceneCommon())
        scene->addListener(*_parts->watch);
    if (PLUG_CurrentFrameInterface* const frames = PLUG_Services::getCurrentFrameInterface())
        frames->addListener(*_parts->watch);
}

void PLUG_EditorPanel::told(const XUTeller& teller)
{
    if (_parts->isExecuting)
        return;
    // Changes come from undo, from the other end of a link or from a script; all of them are shown at once when the
    // event loop is next idle.
    if (dynamic_cast<const AT_Attr*>(&teller))
        _parts->soon.start(0);
    else if (!_parts->idle.isActive())
        _parts->idle.start();
    if (dynamic_cast<const PLUG_CurrentFrameInterface*>(&teller))
        synchronizeFields();
}

void PLUG_EditorPanel::synchronizeWhenIdle()
{
    if (isInUse())
        _parts->idle.start();
    else
        synchronizeNow();
}

bool PLUG_EditorPanel::isInUse() const
{
    if (QApplication::mouseButtons() != Qt::NoButton || QApplication::activePopupWidget())
        return true;
    // Rebuilding a table would delete the field that somebody is typing into.
    const QWidget* const focus = QApplication::focusWidget();
    if (!focus || !isAncestorOf(focus))
        return false;
    for (const QWidget* widget = focus->parentWidget(); widget && widget != this; widget = widget->parentWidget())
        if (qobject_cast<const QAbstractItemView*>(widget))
            return true;
    return false;
}

void PLUG_EditorPanel::synchronizeNow()
{
    _parts->soon.stop();
    _parts->idle.stop();
    noticeDeletion();
    const MO_Module* const shown = module();
    if (!shown || !_parts->content)
        return;
    // A node that was deleted can come back by undo, so its editor is only disabled.
    _parts->content->setEnabled(!_parts->wasInScene || shown->sceneCommon());
    showHeader();
    synchronizeFields();
    synchronizeComponents();
}

void PLUG_EditorPanel::synchronizeFields()
{
    if (!module())
        return;
    const double now = frame();
    for (AttrEditor* const field : _parts->fields)
        field->synchronize(now);
}

void PLUG_EditorPanel::synchronizeComponents()
{
    const std::vector<ComponentOwner*> owners = _parts->owners;
    for (const ComponentOwner* const owner : owners)
        if (owner->component())
            owner->component()->synchronize();
}

void PLUG_EditorPanel::componentChanged(ComponentOwner& owner)
{
    if (!module() || !owner.component())
        return;
    auto command = std::make_unique<CO_OrCommand>();
    owner.component()->apply(command.get());
    if (command->isEmpty())
        return;
    // Input into one spin box is one change until the field is left; any other input is a change of its own.
    QWidget* const focus = QApplication::focusWidget();
    const bool isTyped = focus && qobject_cast<QAbstractSpinBox*>(focus) && isAncestorOf(focus);
    if (!isTyped || _parts->typedInto != focus)
        endStep();
    const bool isDone = execute(std::move(command));
    if (!isTyped)
        endStep();
    _parts->typedInto = isTyped ? focus : nullptr;
    if (!isDone)
        return;
    synchronizeFields();
    for (const ComponentOwner* const other : std::vector<ComponentOwner*>(_parts->owners))
        if (other != &owner && other->component() && (other->attr().isEmpty() || other->attr() == owner.attr()))
            other->component()->synchronize();
}

bool PLUG_EditorPanel::execute(std::unique_ptr<CO_Command> command)
{
    if (!command || !_stack || !module())
        return false;
    const QScopedValueRollback executing(_parts->isExecuting, true);
    try {
        return _stack->execute(std::move(command));
    } catch (const std::exception& error) {
        Q_EMIT commandFailed(QString::fromUtf8(error.what()));
        return false;
    }
}

void PLUG_EditorPanel::endStep()
{
    _parts->typedInto = nullptr;
    if (_stack)
        _stack->endMerging();
}

void PLUG_EditorPanel::noticeDeletion()
{
    if (_parts->hasModule && !module())
        clear();
}

bool PLUG_EditorPanel::event(QEvent* event)
{
    // There is no notification when a node is deleted together with its scene, so any event of the panel checks for it.
    if (_parts->hasModule && !module() && !_parts->soon.isActive())
        _parts->soon.start(0);
    return QWidget::event(event);
}

void PLUG_EditorPanel::showHeader()
{
    const MO_Module* const shown = module();
    if (!shown) {
        _parts->header->setText(tr("No node is selected"));
        return;
    }
    const QString kind = shown->baseDisplayName();
    const QString name = shown->instanceName();
    _parts->header->setText(name.isEmpty() || name == kind ? kind : QStringLiteral("%1 (%2)").arg(name, kind));
}

double PLUG_EditorPanel::frame() const
{
    const PLUG_CurrentFrameInterface* const frames = PLUG_Services::getCurrentFrameInterface();
    const MO_Module* const shown = module();
    return frames && shown ? static_cast<double>(frames->currentFrame(shown->sceneCommon())) : 0.0;
}
