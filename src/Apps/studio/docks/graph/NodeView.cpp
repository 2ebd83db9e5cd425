// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Builds the items. A description of the graph, which is cheap to make, tells whether the graph has changed; only then
// are the items made anew. Mouse and keyboard are handled in NodeViewInput.cpp.
#include "studio/docks/graph/NodeView.h"

#include "QuarvelSceneCore/editing/MO_LinkCommands.h"
#include "QuarvelSceneCore/editing/MO_ModuleCommands.h"
#include "studio/docks/graph/LinkItem.h"
#include "studio/docks/graph/NodeColors.h"

#include <QApplication>
#include <QCursor>
#include <QLineEdit>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStatusTipEvent>
#include <QTextStream>
#include <QToolTip>

namespace {

constexpr double kMargin = 24.0;
constexpr int kMarginOfSelected = 12; // less than fit() leaves
constexpr double kLegible = 0.6;      // the smallest scale that is chosen without being asked for
constexpr double kRoomAround = 600.0;
constexpr double kDotSpacing = 24.0;

} // namespace

NodeView::NodeView(StudioDocument& document, QWidget* parent)
    : QGraphicsView(parent), _document(document), _group(&document.scene().root())
{
    setObjectName(QStringLiteral("NodeView"));
    setAccessibleName(tr("Node view"));
    setScene(new QGraphicsScene(this));
    setFrameShape(QFrame::NoFrame);
    setDragMode(RubberBandDrag);
    setRenderHint(QPainter::Antialiasing);
    // Names move with the visible part of their boxes, so scrolling cannot copy pixels.
    setViewportUpdateMode(FullViewportUpdate);
    setTransformationAnchor(AnchorUnderMouse);
    setResizeAnchor(NoAnchor); // panels nearby come and go, and pan nothing
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setMouseTracking(true);
    setBackgroundBrush(palette().base());

    connect(&_document, &StudioDocument::sceneReplaced, this, &NodeView::forgetScene);
    connect(&_document, &StudioDocument::sceneChanged, this, &NodeView::refresh);
    connect(&_document, &StudioDocument::edited, this, &NodeView::refresh);
    connect(&_document, &StudioDocument::selectionChanged, this, &NodeView::followSelection);
    connect(scene(), &QGraphicsScene::selectionChanged, this, &NodeView::takeSelection);
    rebuild();
}

NodeView::~NodeView()
{
    // While it is destroyed, after this object, the graphics scene would signal the end of its selection.
    disconnect(scene(), nullptr, this, nullptr);
    _drawnLink.reset();
}

void NodeView::forgetScene()
{
    _group = &_document.scene().root();
    _fitsAll = true;
    _standing.clear();
    rebuild();
    Q_EMIT groupChanged();
}

bool NodeView::isInScene(const XUGroup& group) const
{
    bool found = &group == &_document.scene().root();
    _document.scene().root().forEachModule([&](const MO_Module& module) { found = found || &module == &group; });
    return found;
}

void NodeView::refresh()
{
    if (!isInScene(*_group)) {
        _group = &_document.scene().root();
        _fitsAll = true;
    }
    if (describeGraph() == _shown)
        return;
    rebuild();
    Q_EMIT groupChanged();
}

QString NodeView::describeGraph() const
{
    QString text;
    QTextStream stream(&text);
    for (const XUGroup* around = _group; around; around = around->group())
        stream << around << around->instanceName() << '\n';
    const auto describe = [&](const MO_Module& module) {
        if (const auto& place = module.graphPlace())
            stream << place->x << ' ' << place->y << ' ';
        stream << &module << module.keyword() << module.instanceName() << module.enabled() << module.nOutPorts();
        for (unsigned i = 0; i < module.nOutPorts(); ++i)
            stream << (module.outPort(i)->isConnected() ? '+' : '-');
        for (unsigned i = 0; i < module.nInPorts(); ++i)
            if (const MO_Port* source = module.inPort(i)->srcPort())
                stream << ' ' << source->node() << source->index();
            else
                stream << " -";
        stream << '\n';
    };
    for (const auto& module : _group->modules())
        describe(*module);
    describe(_group->entry());
    describe(_group->exit());
    return text;
}

void NodeView::rebuild()
{
    const bool wasSynchronizing = std::exchange(_synchronizing, true);
    finishName(false);
    endMove(false);
    dropLink();
    setHotPort({});
    _items.clear();
    scene()->clear();
    _shown = describeGraph();
    layOut();
    for (const auto& module : _group->modules())
        addNode(*module);
    addNode(_group->entry());
    addNode(_group->exit());
    for (const auto& module : _group->modules())
        addLinks(*module);
    addLinks(_group->exit());
    QRectF all;
    for (const QRectF& box : std::as_const(_layout))
        all |= box;
    // The scrollable area grows but never shrinks while a group is shown, so that the view does not scroll by itself.
    const QRectF room = all.adjusted(-kRoomAround, -kRoomAround, kRoomAround, kRoomAround);
    const QPoint origin = mapFromScene(QPointF());
    setSceneRect(_fitsAll ? room : sceneRect() | room);
    const QPoint shift = mapFromScene(QPointF()) - origin;
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + shift.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() + shift.y());
    _synchronizing = wasSynchronizing;
    showSelection();
    if (_fitsAll)
        fit(kLegible);
    viewport()->update();
}

void NodeView::layOut()
{
    _standing.removeIf([](const auto& node) { return !node.value().node.get(); });
    NodePlaces places;
    for (auto node = _standing.cbegin(); node != _standing.cend(); ++node)
        places.insert(node.key(), node->place);
    _layout = layoutGraph(*_group, places);
    const auto note = [this](MO_Module& module) {
        if (const auto box = _layout.constFind(&module); box != _layout.constEnd() && !module.graphPlace())
            _standing.insert(&module, {UT_WeakPtr<MO_Module>(&module), box->center()});
    };
    for (const auto& module : _group->modules())
        note(*module);
    note(_group->entry());
    note(_group->exit());
}

void NodeView::arrange(const std::vector<MO_Module*>& modules)
{
    std::vector<std::pair<MO_Module*, std::optional<MO_GraphPlace>>> places;
    places.reserve(modules.size());
    for (MO_Module* const module : modules) {
        _standing.remove(module);
        places.emplace_back(module, std::nullopt);
    }
    if (!_document.execute(MO_placeModulesCmd(places)))
        rebuild();
}

void NodeView::addNode(MO_Module& module)
{
    const auto box = _layout.constFind(&module);
    if (box == _layout.constEnd())
        return;
    auto* item = new NodeItem(module, *box);
    scene()->addItem(item);
    _items.insert(&module, item);
}

void NodeView::addLinks(MO_Module& module)
{
    const NodeItem* const target = item(module);
    for (unsigned i = 0; target && i < module.nInPorts(); ++i) {
        const MO_Port* const port = module.inPort(i)->srcPort();
        const NodeItem* const source = port ? item(*port->module()) : nullptr;
        if (!source)
            continue;
        auto* link = new LinkItem({&module, true, i});
        link->setEnds(source->portPosition(false, port->index()), target->portPosition(true, i));
        scene()->addItem(link);
    }
}

void NodeView::enter(XUGroup& group)
{
    if (&group == _group)
        return;
    _group = &group;
    _fitsAll = true;
    rebuild();
    _document.setSelection({});
    Q_EMIT groupChanged();
}

void NodeView::leave()
{
    XUGroup* const around = _group->group();
    if (!around)
        return;
    XUGroup* const left = _group;
    enter(*around);
    _document.setSelection({left});
}

NodeItem* NodeView::item(const MO_Module& module) const
{
    return _items.value(&module);
}

QPoint NodeView::portPosition(const MO_Module& module, bool isInput, unsigned index) const
{
    const NodeItem* const found = item(module);
    return found ? mapFromScene(found->portPosition(isInput, index)) : QPoint();
}

void NodeView::showSelection()
{
    const bool wasSynchronizing = std::exchange(_synchronizing, true);
    for (auto it = _items.cbegin(); it != _items.cend(); ++it)
        it.value()->setSelected(_document.selection().contains(&it.value()->module()));
    _synchronizing = wasSynchronizing;
}

// Modules keep their order in the document's selection; newly selected ones come last.
void NodeView::takeSelection()
{
    if (_synchronizing)
        return;
    QList<MO_Module*> selected;
    for (MO_Module* module : _document.selection())
        if (const NodeItem* found = item(*module); found && found->isSelected())
            selected << module;
    for (const auto& module : _group->modules())
        if (const NodeItem* found = item(*module); found && found->isSelected() && !selected.contains(module.get()))
            selected << module.get();
    selectHere(selected);
}

void NodeView::selectHere(const QList<MO_Module*>& modules)
{
    const QScopedValueRollback taking(_taking, true);
    _document.setSelection(modules);
}

// What is selected elsewhere may be in another group.
void NodeView::followSelection()
{
    refresh();
    MO_Module* const current = _document.currentModule();
    if (current && current->group() && current->group() != _group) {
        _group = current->group();
        _fitsAll = true;
        rebuild();
        Q_EMIT groupChanged();
    }
    showSelection();
    // A node that was clicked is visible already. A large graph does not fit into the view, even if all of it is
    // wanted.
    if (const NodeItem* found = current ? item(*current) : nullptr; found && !_taking)
        ensureVisible(found->sceneBoundingRect(), kMarginOfSelected, kMarginOfSelected);
}

void NodeView::connectPorts(const NodePort& source, const NodePort& target)
{
    UT_Result<MO_EditCommand> command = MO_connectCmd(*source.module, *target.module, target.index, source.index);
    if (!command)
        return refuse(command.error().sentence());
    _document.execute(std::move(*command));
}

void NodeView::cutLink(const NodePort& input)
{
    _document.execute(MO_disconnectCmd(*input.module, input.index));
}

void NodeView::refuse(const QString& why)
{
    QToolTip::showText(QCursor::pos(), why, viewport());
    QStatusTipEvent tip(why);
    QApplication::sendEvent(this, &tip);
    Q_EMIT refused(why);
}

void NodeView::fit(double leastScale)
{
    QRectF all;
    for (const QRectF& box : std::as_const(_layout))
        all |= box;
    _fitsAll = true;
    if (all.isEmpty() || viewport()->width() < 20 || viewport()->height() < 20)
        return;
    all.adjust(-kMargin, -kMargin, kMargin, kMargin);
    const double scale = std::min({1.0, viewport()->width() / all.width(), viewport()->height() / all.height()});
    const double zoom = std::max(scale, leastScale);
    setTransform(QTransform::fromScale(zoom, zoom));
    const bool fitsIn = scale >= leastScale;
    const MO_Module* const current = _document.currentModule();
    const NodeItem* const shown = current ? item(*current) : nullptr;
    centerOn(fitsIn || !shown ? all.center() : shown->box().center());
}

void NodeView::resizeEvent(QResizeEvent* event)
{
    QGraphicsView::resizeEvent(event);
    if (_fitsAll)
        fit(kLegible);
}

void NodeView::changeEvent(QEvent* event)
{
    QGraphicsView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        setBackgroundBrush(palette().base());
}

void NodeView::drawBackground(QPainter* painter, const QRectF& rect)
{
    QGraphicsView::drawBackground(painter, rect);
    if (transform().m11() < 0.35)
        return;
    painter->setPen(QPen(blended(palette().color(QPalette::Text), palette().color(QPalette::Base), 0.82), 1.5));
    const QRect cells = QRectF(rect.topLeft() / kDotSpacing, rect.size() / kDotSpacing).toAlignedRect();
    QList<QPointF> dots;
    for (int row = cells.top(); row <= cells.bottom(); ++row)
        for (int column = cells.left(); column <= cells.right(); ++column)
            dots << kDotSpacing * QPointF(column, row);
    painter->drawPoints(dots.constData(), static_cast<int>(dots.size()));
}

void NodeView::drawForeground(QPainter* painter, const QRectF& rect)
{
    QGraphicsView::drawForeground(painter, rect);
    if (!_group->modules().empty())
        return;
    painter->save();
    painter->resetTransform();
    painter->setPen(quietText(palette()));
    painter->drawText(viewport()->rect().adjusted(20, 20, -20, -20), Qt::AlignCenter | Qt::TextWordWrap,
                      tr("Nothing here yet. Add a node with the Add button, or drop a drawing on the window."));
    painter->restore();
}
