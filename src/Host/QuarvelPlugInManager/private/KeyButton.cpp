// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The lozenge and its tool tips.
#include "QuarvelPlugInManager/private/KeyButton.h"

#include "QuarvelSceneCore/attributes/AT_AnimatableAttr.h"

#include <QCoreApplication>
#include <QPainter>

namespace {

QString translated(const char* english)
{
    return QCoreApplication::translate("KeyButton", english);
}

} // namespace

KeyButton::KeyButton(QWidget* parent) : QToolButton(parent)
{
    setObjectName(QStringLiteral("key"));
    setAutoRaise(true);
    setCheckable(false);
    setFocusPolicy(Qt::StrongFocus);
}

KeyButton::~KeyButton() = default;

void KeyButton::showStateOf(const AT_AnimatableAttr& attr, double frame)
{
    if (attr.curve().keyAt(frame)) {
        _look = Look::KEY;
        setToolTip(translated(QT_TRANSLATE_NOOP("KeyButton", "Remove the key at this frame")));
    } else {
        _look = attr.isAnimated() ? Look::ANIMATED : Look::STILL;
        setToolTip(translated(QT_TRANSLATE_NOOP("KeyButton", "Set a key at this frame")));
    }
    update();
}

void KeyButton::paintEvent(QPaintEvent* event)
{
    QToolButton::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor colour = palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText);
    if (_look == Look::STILL)
        colour.setAlphaF(0.55F);
    const double radius = _look == Look::STILL ? 3.5 : 5.0;
    const QPointF middle = QRectF(rect()).center();
    const QPointF corners[] = {middle + QPointF(0, -radius), middle + QPointF(radius, 0), middle + QPointF(0, radius),
                               middle + QPointF(-radius, 0)};
    painter.setPen(QPen(colour, 1.3));
    painter.setBrush(_look == Look::KEY ? QBrush(palette().color(QPalette::Highlight)) : QBrush(Qt::NoBrush));
    painter.drawPolygon(corners, 4);
}
