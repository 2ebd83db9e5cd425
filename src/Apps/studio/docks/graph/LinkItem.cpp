// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Links leave their ports straight down and come in straight down.
#include "studio/docks/graph/LinkItem.h"

#include "studio/docks/graph/NodeColors.h"

#include <QPainter>
#include <QPainterPathStroker>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kReach = 8.0;

} // namespace

LinkItem::LinkItem(const NodePort& target) : _target(target)
{
    setZValue(target ? 0.0 : 2.0);
}

void LinkItem::setEnds(const QPointF& from, const QPointF& to)
{
    prepareGeometryChange();
    const double bend = std::clamp(std::abs(to.y() - from.y()) / 2, 18.0, 90.0);
    _path = QPainterPath(from);
    _path.cubicTo(from + QPointF(0, bend), to - QPointF(0, bend), to);
}

QRectF LinkItem::boundingRect() const
{
    return _path.controlPointRect().adjusted(-kReach, -kReach, kReach, kReach);
}

QPainterPath LinkItem::shape() const
{
    QPainterPathStroker stroker;
    stroker.setWidth(kReach);
    return stroker.createStroke(_path);
}

void LinkItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget* widget)
{
    const QPalette palette = widget ? widget->palette() : QPalette();
    const QColor quiet = blended(palette.color(QPalette::Text), palette.color(QPalette::Base), 0.4);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(_target ? QPen(quiet, 1.8) : QPen(palette.color(QPalette::Highlight), 2.2, Qt::DashLine));
    painter->drawPath(_path);
}
