// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Fusion derives its outlines from the window's colour; in a dark theme they can hardly be told from it. They are
// painted over. What has the focus keeps Fusion's outline in the accent colour.
#include "studio/window/StudioStyle.h"

#include "studio/docks/graph/NodeColors.h"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

namespace {

constexpr double kRounding = 2.0; // as Fusion's

void paintOutline(QPainter& painter, const QPalette& palette, const QRect& rect, double rounding)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, rounding > 0.0);
    // Pixels have their middles at halves.
    const double shift = rounding > 0.0 ? 0.5 : 0.0;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(blended(palette.color(QPalette::Text), palette.color(QPalette::Base), 0.45), 1.0));
    painter.drawRoundedRect(QRectF(rect.adjusted(0, 0, -1, -1)).translated(shift, shift), rounding, rounding);
    painter.restore();
}

bool isFramed(QStyle::ComplexControl control, const QStyleOptionComplex& option)
{
    if (const auto* const spinBox = qstyleoption_cast<const QStyleOptionSpinBox*>(&option))
        return control == QStyle::CC_SpinBox && spinBox->frame;
    if (const auto* const comboBox = qstyleoption_cast<const QStyleOptionComboBox*>(&option))
        return control == QStyle::CC_ComboBox && comboBox->frame;
    return false;
}

} // namespace

StudioStyle::StudioStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void StudioStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (!option->state.testFlag(State_Enabled))
        return;
    // Items of lists are painted with the first primitive as well.
    if (element == PE_IndicatorCheckBox)
        paintOutline(*painter, option->palette, option->rect, 0.0);
    if (element == PE_FrameLineEdit && !option->state.testFlag(State_HasFocus))
        paintOutline(*painter, option->palette, option->rect, kRounding);
}

void StudioStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                     const QWidget* widget) const
{
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (!option->state.testFlag(State_Enabled))
        return;
    if (isFramed(control, *option) && !option->state.testFlag(State_HasFocus))
        paintOutline(*painter, option->palette, option->rect.adjusted(0, 1, 0, -1), kRounding);
    if (control == CC_Slider && option->subControls.testFlag(SC_SliderHandle))
        paintOutline(*painter, option->palette, proxy()->subControlRect(control, option, SC_SliderHandle, widget),
                     kRounding);
}

QPixmap StudioStyle::generatedIconPixmap(QIcon::Mode mode, const QPixmap& pixmap, const QStyleOption* option) const
{
    return mode == QIcon::Selected ? pixmap : QProxyStyle::generatedIconPixmap(mode, pixmap, option);
}
