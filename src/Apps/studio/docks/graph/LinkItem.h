// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LinkItem: a link in the node view, a curve from an output port down to an input port.
#pragma once

#include "studio/docks/graph/NodeItem.h"

#include <QGraphicsItem>
#include <QPainterPath>

/// The curve of a link; also the one that hangs at the mouse while a link is drawn.
class LinkItem : public QGraphicsItem
{
public:
    /// By this name qgraphicsitem_cast() knows the class; without it, it would take any item for one.
    enum
    {
        Type = UserType + 2 // NOLINT(readability-identifier-naming)
    };

    /// @param target the input port that the link leads to; none while the link is being drawn
    explicit LinkItem(const NodePort& target);

    const NodePort& target() const { return _target; }
    void setEnds(const QPointF& from, const QPointF& to);

    int type() const override { return Type; }
    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    NodePort _target;
    QPainterPath _path;
};
