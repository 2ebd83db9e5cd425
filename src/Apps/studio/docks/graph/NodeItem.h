// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// NodeItem: one node in the node view, a rounded box with the name, the kind and the ports. It shows what the module
// was when the item was made; the view makes new ones when the graph changes.
#pragma once

#include "QuarvelSceneCore/graph/MO_Module.h"

#include <QGraphicsItem>

#include <vector>

/// A port as the mouse finds it.
struct NodePort
{
    MO_Module* module = nullptr;
    bool isInput = true;
    unsigned index = 0;

    explicit operator bool() const { return module != nullptr; }
    friend bool operator==(const NodePort&, const NodePort&) = default;
};

/// The box of a node.
class NodeItem : public QGraphicsItem
{
public:
    /// By this name qgraphicsitem_cast() knows the class; without it, it would take any item for one.
    enum
    {
        Type = UserType + 1 // NOLINT(readability-identifier-naming)
    };
    /// How near to a port the mouse has to be, in the units of the view.
    static constexpr double kPortReach = 11.0;

    NodeItem(MO_Module& module, const QRectF& box);

    MO_Module& module() const { return _module; }
    const QRectF& box() const { return _box; }
    /// Moves the node; its links do not follow.
    void moveTo(const QPointF& middle);
    /// Where a port is, in the scene's units.
    QPointF portPosition(bool isInput, unsigned index) const;
    /// The port near a point, or none.
    NodePort portAt(const QPointF& point) const;
    /// The free input port that a link dropped on the box is for: the first free one, or else the first.
    NodePort inputForDrop() const;
    /// Moves the name into the visible part of the box: a node of hundreds of inputs is wider than any view.
    QRectF nameBox(const QRectF& seen) const;
    /// Emphasises a port; without one, ends the emphasis.
    ///
    /// @param toolTip the port's tool tip
    void setHotPort(const NodePort& port, const QString& toolTip = {});

    int type() const override { return Type; }
    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    void paintBox(QPainter& painter, const QPalette& palette) const;
    void paintNames(QPainter& painter, const QPalette& palette, QFont font, const QRectF& nameBox) const;
    void paintPort(QPainter& painter, const QPalette& palette, bool isInput, unsigned index, bool isLinked) const;

    MO_Module& _module;
    QRectF _box;
    QString _name;
    QString _kind;
    QString _keyword;
    QString _toolTip; // of the node as a whole
    bool _enabled;
    bool _isGroup;
    bool _isBorder;
    std::vector<bool> _linkedInputs;
    std::vector<bool> _linkedOutputs;
    NodePort _hot;
};
