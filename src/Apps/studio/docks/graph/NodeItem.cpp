// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Paints nodes, and finds their ports.
#include "studio/docks/graph/NodeItem.h"

#include "QuarvelSceneCore/graph/XUGroup.h"
#include "studio/docks/graph/GraphLayout.h"
#include "studio/docks/graph/NodeColors.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionGraphicsItem>
#include <QWidget>

#include <algorithm>

namespace {

constexpr double kRadius = 7.0;
constexpr double kPortRadius = 5.0;
constexpr double kStripe = 5.0;
constexpr double kMargin = 12.0;
constexpr double kLeastName = 140.0; // of the box, is left to the name

QString nameForPeople(const MO_Module& module)
{
    return module.instanceName().isEmpty() ? module.baseDisplayName() : module.instanceName();
}

} // namespace

NodeItem::NodeItem(MO_Module& module, const QRectF& box)
    : _module(module)
    , _box(box)
    , _name(nameForPeople(module))
    , _kind(module.baseDisplayName())
    , _keyword(module.keyword())
    , _enabled(module.enabled())
    , _isGroup(dynamic_cast<XUGroup*>(&module) != nullptr)
    , _isBorder(dynamic_cast<MO_GroupBorderModule*>(&module) != nullptr)
{
    for (unsigned i = 0; i < module.nInPorts(); ++i)
        _linkedInputs.push_back(module.inPort(i)->isConnected());
    for (unsigned i = 0; i < module.nOutPorts(); ++i)
        _linkedOutputs.push_back(module.outPort(i)->isConnected());
    setFlag(ItemIsSelectable, !_isBorder);
    setZValue(1.0);
    _toolTip = QStringLiteral("%1\n%2").arg(_name, _kind);
    if (!_enabled)
        _toolTip += QLatin1Char('\n') + QCoreApplication::translate("NodeItem", "Disabled: passes on its first input");
    if (_isGroup)
        _toolTip += QLatin1Char('\n') + QCoreApplication::translate("NodeItem", "Double click to look inside");
    setToolTip(_toolTip);
}

QPointF NodeItem::portPosition(bool isInput, unsigned index) const
{
    const std::size_t count = isInput ? _linkedInputs.size() : _linkedOutputs.size();
    return portPlace(_box, isInput, index, static_cast<unsigned>(count));
}

NodePort NodeItem::portAt(const QPointF& point) const
{
    NodePort nearest;
    double least = kPortReach;
    const auto look = [&](bool isInput, std::size_t count) {
        for (unsigned i = 0; i < count; ++i) {
            const double distance = QLineF(point, portPosition(isInput, i)).length();
            if (distance < least) {
                least = distance;
                nearest = {&_module, isInput, i};
            }
        }
    };
    look(true, _linkedInputs.size());
    look(false, _linkedOutputs.size());
    return nearest;
}

NodePort NodeItem::inputForDrop() const
{
    if (_linkedInputs.empty())
        return {};
    for (unsigned i = 0; i < _linkedInputs.size(); ++i)
        if (!_linkedInputs[i])
            return {&_module, true, i};
    return {&_module, true, 0};
}

void NodeItem::moveTo(const QPointF& middle)
{
    prepareGeometryChange();
    _box.moveCenter(middle);
}

QRectF NodeItem::nameBox(const QRectF& seen) const
{
    const double left = std::clamp(seen.left(), _box.left(), std::max(_box.left(), _box.right() - kLeastName));
    return {left + kMargin, _box.top() + 6.0, _box.right() - left - 2 * kMargin, _box.height() / 2 - 4.0};
}

void NodeItem::setHotPort(const NodePort& port, const QString& toolTip)
{
    if (port == _hot)
        return;
    _hot = port;
    setToolTip(port ? toolTip : _toolTip);
    update();
}

QRectF NodeItem::boundingRect() const
{
    return _box.adjusted(-kPortReach, -kPortReach, kPortReach, kPortReach);
}

QPainterPath NodeItem::shape() const
{
    QPainterPath path;
    path.addRect(_box.adjusted(0, -kPortRadius, 0, kPortRadius));
    return path;
}

void NodeItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget* widget)
{
    const QPalette palette = widget ? widget->palette() : QPalette();
    painter->setRenderHint(QPainter::Antialiasing);
    paintBox(*painter, palette);
    const QRectF seen = widget ? painter->worldTransform().inverted().mapRect(QRectF(widget->rect())) : boundingRect();
    paintNames(*painter, palette, widget ? widget->font() : QFont(), nameBox(seen));
    for (unsigned i = 0; i < _linkedInputs.size(); ++i)
        paintPort(*painter, palette, true, i, _linkedInputs[i]);
    for (unsigned i = 0; i < _linkedOutputs.size(); ++i)
        paintPort(*painter, palette, false, i, _linkedOutputs[i]);
}

void NodeItem::paintBox(QPainter& painter, const QPalette& palette) const
{
    const QColor ground = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    const QColor accent = _enabled ? kindColor(_keyword, palette) : blended(text, ground, 0.6);
    const QColor fill = blended(ground, text, isDark(palette) ? 0.13 : 0.02);
    QPainterPath outline;
    outline.addRoundedRect(_box, kRadius, kRadius);
    painter.fillPath(outline, _enabled ? fill : blended(fill, ground, 0.6));
    painter.save();
    painter.setClipPath(outline);
    painter.fillRect(QRectF(_box.left(), _box.top(), kStripe, _box.height()), accent);
    painter.restore();
    if (_isGroup) {
        painter.setPen(QPen(blended(text, ground, 0.7), 1.0));
        painter.drawRoundedRect(_box.adjusted(kStripe + 2, 3, -3, -3), kRadius - 3, kRadius - 3);
    }
    QPen border(isSelected() ? palette.color(QPalette::Highlight) : blended(text, ground, 0.55),
                isSelected() ? 2.5 : 1.0);
    if (!_enabled)
        border.setStyle(Qt::DashLine);
    painter.setPen(border);
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(outline);
}

void NodeItem::paintNames(QPainter& painter, const QPalette& palette, QFont font, const QRectF& nameBox) const
{
    constexpr int kFlags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine;
    const auto paint = [&](const QRectF& box, const QString& text, Qt::TextElideMode elided) {
        painter.setFont(font);
        painter.drawText(box, kFlags, QFontMetricsF(font).elidedText(text, elided, box.width()));
    };
    font.setPixelSize(13);
    font.setWeight(QFont::DemiBold);
    painter.setPen(_enabled ? palette.color(QPalette::Text) : quietText(palette));
    paint(nameBox, _name, Qt::ElideMiddle);
    font.setPixelSize(11);
    font.setWeight(QFont::Normal);
    painter.setPen(quietText(palette));
    paint(nameBox.translated(0, nameBox.height() + 1),
          _enabled ? _kind : QCoreApplication::translate("NodeItem", "%1 (off)").arg(_kind), Qt::ElideRight);
}

void NodeItem::paintPort(QPainter& painter, const QPalette& palette, bool isInput, unsigned index, bool isLinked) const
{
    const bool isHot = _hot == NodePort{&_module, isInput, index};
    const QColor text = palette.color(QPalette::Text);
    const QColor line = blended(text, palette.color(QPalette::Base), 0.3);
    painter.setPen(QPen(isHot ? palette.color(QPalette::Highlight) : line, 1.2));
    painter.setBrush(isHot ? palette.color(QPalette::Highlight) : isLinked ? line : palette.color(QPalette::Base));
    const double radius = isHot ? kPortRadius + 1.5 : kPortRadius;
    painter.drawEllipse(portPosition(isInput, index), radius, radius);
}
