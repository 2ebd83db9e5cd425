// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The node view's mouse and keyboard. A drag that begins on a port is a link, on a node it moves what is selected, and
// elsewhere it is a rubber band.
#include "studio/docks/graph/LinkItem.h"

#include "QuarvelSceneCore/editing/MO_LinkCommands.h"
#include "QuarvelSceneCore/editing/MO_ModuleCommands.h"
#include "studio/docks/graph/NodeView.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kLeastZoom = 0.08;
constexpr double kMostZoom = 4.0;

} // namespace

MO_Module* NodeView::moduleAt(const QPoint& position) const
{
    for (QGraphicsItem* found : items(position))
        if (auto* node = qgraphicsitem_cast<NodeItem*>(found))
            return &node->module();
    return nullptr;
}

NodePort NodeView::linkAt(const QPoint& position) const
{
    for (QGraphicsItem* found : items(position))
        if (const auto* link = qgraphicsitem_cast<LinkItem*>(found); link && link->target())
            return link->target();
    return {};
}

NodePort NodeView::portAt(const QPoint& position) const
{
    const QPointF point = mapToScene(position);
    for (const NodeItem* node : _items)
        if (const NodePort port = node->portAt(point))
            return port;
    return {};
}

// Where a link dropped here would lead: to a port of the other kind, or to a node as a whole.
NodePort NodeView::dropTarget(const QPoint& position) const
{
    if (const NodePort port = portAt(position))
        return port.isInput != _fixedEnd.isInput ? port : NodePort();
    const MO_Module* const module = moduleAt(position);
    const NodeItem* const node = module && module != _fixedEnd.module ? item(*module) : nullptr;
    if (!node)
        return {};
    if (!_fixedEnd.isInput)
        return node->inputForDrop();
    return module->nOutPorts() > 0 ? NodePort{&node->module(), false, 0} : NodePort();
}

void NodeView::setHotPort(const NodePort& port)
{
    if (port == _hot)
        return;
    if (NodeItem* old = _hot ? item(*_hot.module) : nullptr)
        old->setHotPort({});
    _hot = port;
    if (NodeItem* now = _hot ? item(*_hot.module) : nullptr)
        now->setHotPort(_hot, portText(_hot));
}

void NodeView::mousePressEvent(QMouseEvent* event)
{
    finishName(true);
    const QPoint position = event->position().toPoint();
    if (event->button() == Qt::MiddleButton) {
        _panning = true;
        _panFrom = position;
        viewport()->setCursor(Qt::ClosedHandCursor);
        return;
    }
    if (event->button() == Qt::LeftButton)
        if (const NodePort port = portAt(position))
            return beginLink(port, position);
    if (event->button() == Qt::RightButton) {
        MO_Module* const module = moduleAt(position);
        if (module && !_document.selection().contains(module) && !dynamic_cast<MO_GroupBorderModule*>(module))
            _document.setSelection({module});
        return;
    }
    QGraphicsView::mousePressEvent(event);
    if (event->button() == Qt::LeftButton)
        beginMove(position);
}

// All selected nodes move together; the border of a group stays where the graph puts it.
void NodeView::beginMove(const QPoint& position)
{
    const MO_Module* const module = moduleAt(position);
    const NodeItem* const held = module ? item(*module) : nullptr;
    if (!held || !held->isSelected())
        return;
    for (NodeItem* const node : std::as_const(_items))
        if (node->isSelected()) {
            _moved.push_back(node);
            _movedFrom.push_back(node->box().center());
        }
    _grabbed = position;
}

void NodeView::moveNodes(const QPoint& position)
{
    if (!_moving && (position - _grabbed).manhattanLength() < QApplication::startDragDistance())
        return;
    _moving = true;
    keepView();
    const QPointF way = mapToScene(position) - mapToScene(_grabbed);
    for (std::size_t i = 0; i < _moved.size(); ++i)
        _moved[i]->moveTo(_movedFrom[i] + way);
    placeLinks();
}

void NodeView::endMove(bool keep)
{
    const std::vector<NodeItem*> moved = std::exchange(_moved, {});
    const std::vector<QPointF> from = std::exchange(_movedFrom, {});
    if (!std::exchange(_moving, false))
        return;
    std::vector<std::pair<MO_Module*, std::optional<MO_GraphPlace>>> places;
    for (std::size_t i = 0; i < moved.size(); ++i) {
        const QPointF middle = moved[i]->box().center();
        const double limit = MO_GraphPlace::kLimit;
        if (keep && middle != from[i])
            places.emplace_back(&moved[i]->module(), MO_GraphPlace{std::clamp(std::round(middle.x()), -limit, limit),
                                                                   std::clamp(std::round(middle.y()), -limit, limit)});
        else
            moved[i]->moveTo(from[i]);
    }
    placeLinks();
    _document.execute(MO_placeModulesCmd(places));
}

void NodeView::placeLinks()
{
    for (QGraphicsItem* const each : scene()->items()) {
        auto* const link = qgraphicsitem_cast<LinkItem*>(each);
        const NodePort target = link ? link->target() : NodePort();
        const MO_Port* const source = target ? target.module->inPort(target.index)->srcPort() : nullptr;
        const NodeItem* const from = source ? item(*source->module()) : nullptr;
        const NodeItem* const to = target ? item(*target.module) : nullptr;
        if (from && to)
            link->setEnds(from->portPosition(false, source->index()), to->portPosition(true, target.index));
    }
}

QPointF NodeView::freePlace() const
{
    constexpr double kStep = 72.0;
    QPointF place = mapToScene(viewport()->rect().center());
    const auto isTaken = [&] {
        return std::ranges::any_of(_items, [&](const NodeItem* node) {
            return node->box().adjusted(-90.0, -30.0, 90.0, 30.0).contains(place);
        });
    };
    while (isTaken())
        place.ry() += kStep;
    return place;
}

// Says what a port is linked to: among hundreds of links, one is hard to follow by eye.
QString NodeView::portText(const NodePort& port) const
{
    const QString name = port.isInput ? tr("Input %1").arg(port.index + 1) : tr("Output %1").arg(port.index + 1);
    const MO_Port* const source = port.isInput ? port.module->inPort(port.index)->srcPort() : nullptr;
    return source ? QStringLiteral("%1: %2").arg(name, source->node()->instanceName()) : name;
}

void NodeView::beginLink(const NodePort& port, const QPoint& position)
{
    keepView();
    const MO_Port* const source = port.isInput ? port.module->inPort(port.index)->srcPort() : nullptr;
    _takenFrom = source ? port : NodePort();
    _fixedEnd = source ? NodePort{source->module(), false, source->index()} : port;
    _drawnLink = std::make_unique<LinkItem>(NodePort());
    scene()->addItem(_drawnLink.get());
    moveLink(position);
}

void NodeView::moveLink(const QPoint& position)
{
    const NodeItem* const fixed = item(*_fixedEnd.module);
    const NodePort target = dropTarget(position);
    setHotPort(target);
    const NodeItem* const node = target ? item(*target.module) : nullptr;
    const QPointF free = node ? node->portPosition(target.isInput, target.index) : mapToScene(position);
    const QPointF end = fixed->portPosition(_fixedEnd.isInput, _fixedEnd.index);
    _drawnLink->setEnds(_fixedEnd.isInput ? free : end, _fixedEnd.isInput ? end : free);
}

void NodeView::dropLink()
{
    _drawnLink.reset();
    _fixedEnd = {};
    _takenFrom = {};
}

void NodeView::endLink(const QPoint& position)
{
    const NodePort target = dropTarget(position);
    const NodePort fixed = _fixedEnd;
    const NodePort taken = _takenFrom;
    setHotPort({});
    dropLink();
    if (taken && target == taken)
        return;
    if (taken && !target)
        return cutLink(taken);
    if (taken) {
        UT_Result<MO_EditCommand> command = MO_moveLinkCmd(*taken.module, taken.index, *target.module, target.index);
        if (!command)
            return refuse(command.error().sentence());
        _document.execute(std::move(*command));
    } else if (target) {
        connectPorts(fixed.isInput ? target : fixed, fixed.isInput ? fixed : target);
    }
}

void NodeView::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    if (_panning) {
        const QPoint way = position - _panFrom;
        _panFrom = position;
        _fitsAll = false;
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - way.x());
        verticalScrollBar()->setValue(verticalScrollBar()->value() - way.y());
        return;
    }
    if (_drawnLink)
        return moveLink(position);
    if (!_moved.empty())
        return moveNodes(position);
    if (event->buttons() == Qt::NoButton) {
        const NodePort port = portAt(position);
        setHotPort(port);
        viewport()->setCursor(port ? Qt::CrossCursor : Qt::ArrowCursor);
    }
    QGraphicsView::mouseMoveEvent(event);
}

void NodeView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::MiddleButton && _panning) {
        _panning = false;
        viewport()->setCursor(Qt::ArrowCursor);
        return;
    }
    if (event->button() == Qt::LeftButton && _drawnLink)
        return endLink(event->position().toPoint());
    QGraphicsView::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton)
        endMove(true);
}

void NodeView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    if (event->button() != Qt::LeftButton || portAt(position))
        return;
    MO_Module* const module = moduleAt(position);
    if (auto* inner = dynamic_cast<XUGroup*>(module))
        enter(*inner);
    else if (module && !dynamic_cast<MO_GroupBorderModule*>(module))
        editName(*module);
    else if (!module)
        leave();
}

void NodeView::zoomBy(double factor)
{
    const double now = transform().m11();
    const double wanted = std::clamp(now * factor, kLeastZoom, kMostZoom);
    _fitsAll = false;
    scale(wanted / now, wanted / now);
}

void NodeView::wheelEvent(QWheelEvent* event)
{
    // A touchpad tells of fingers that rest on it, too.
    if (const int turned = event->angleDelta().y(); turned != 0)
        zoomBy(std::pow(1.0015, turned));
    event->accept();
}

void NodeView::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() == QContextMenuEvent::Keyboard) {
        MO_Module* const module = _document.currentModule();
        const NodeItem* const node = module ? item(*module) : nullptr;
        const QPoint place = node ? mapFromScene(node->box().center()) : viewport()->rect().center();
        Q_EMIT menuWanted(viewport()->mapToGlobal(place), node ? module : nullptr, {});
        return;
    }
    MO_Module* const module = moduleAt(event->pos());
    Q_EMIT menuWanted(event->globalPos(), module, module ? NodePort() : linkAt(event->pos()));
}

void NodeView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
        return goTo(event->key());
    case Qt::Key_Plus:
        return zoomBy(1.25);
    case Qt::Key_Minus:
        return zoomBy(0.8);
    case Qt::Key_Escape:
        if (_drawnLink) {
            setHotPort({});
            return dropLink();
        }
        if (_moving)
            return endMove(false);
        return _document.setSelection({});
    default:
        QGraphicsView::keyPressEvent(event);
    }
}

// The nearest node in the direction; distances across the direction count double.
void NodeView::goTo(int key)
{
    const MO_Module* const current = _document.currentModule();
    const NodeItem* const from = current ? item(*current) : nullptr;
    const QPointF ahead = key == Qt::Key_Left    ? QPointF(-1, 0)
                          : key == Qt::Key_Right ? QPointF(1, 0)
                          : key == Qt::Key_Up    ? QPointF(0, -1)
                                                 : QPointF(0, 1);
    MO_Module* nearest = nullptr;
    double least = std::numeric_limits<double>::infinity();
    for (const auto& module : _group->modules()) {
        const NodeItem* const node = item(*module);
        if (!node || node == from)
            continue;
        const QPointF way = from ? node->box().center() - from->box().center() : node->box().topLeft();
        const double forward = QPointF::dotProduct(way, ahead);
        const double aside = std::abs(way.x() * ahead.y()) + std::abs(way.y() * ahead.x());
        const double distance = from ? forward + 2 * aside : way.x() + way.y();
        if ((!from || (forward > 1.0 && forward >= aside * 0.2)) && distance < least) {
            least = distance;
            nearest = module.get();
        }
    }
    if (nearest)
        _document.setSelection({nearest});
}

void NodeView::editName(MO_Module& module)
{
    // First, because accepting a name makes the items anew.
    finishName(true);
    const NodeItem* const node = item(module);
    if (!node)
        return;
    ensureVisible(node->sceneBoundingRect(), 4, 4);
    _renamed = UT_WeakPtr<MO_Module>(&module);
    _nameField = new QLineEdit(module.instanceName(), viewport());
    _nameField->setObjectName(QStringLiteral("NodeName"));
    _nameField->setAccessibleName(tr("Name"));
    QRect place = mapFromScene(node->box()).boundingRect();
    const int height = _nameField->sizeHint().height();
    _nameField->setGeometry(place.left(), place.top() + 3, std::max(place.width(), 120), height);
    _nameField->selectAll();
    _nameField->show();
    _nameField->setFocus();
    connect(_nameField, &QLineEdit::editingFinished, this, [this] { finishName(true); });
    auto* cancel = new QAction(_nameField);
    cancel->setShortcut(Qt::Key_Escape);
    cancel->setShortcutContext(Qt::WidgetShortcut);
    _nameField->addAction(cancel);
    connect(cancel, &QAction::triggered, this, [this] { finishName(false); });
}

void NodeView::finishName(bool keep)
{
    QLineEdit* const field = std::exchange(_nameField, nullptr);
    if (!field)
        return;
    const QString name = field->text().trimmed();
    MO_Module* const module = std::exchange(_renamed, {}).get();
    const bool hadFocus = field->hasFocus();
    field->disconnect(this);
    field->hide();
    field->deleteLater();
    if (hadFocus)
        setFocus();
    if (keep && module && module->group() == _group && !name.isEmpty())
        _document.execute(MO_renameCmd(*module, name));
}
