// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Fusion paints the box; its outline is painted over.
#include "studio/window/StudioStyle.h"

#include "studio/docks/graph/NodeColors.h"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

StudioStyle::StudioStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void StudioStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    // Items of lists are painted with this primitive as well.
    if (element != PE_IndicatorCheckBox || !option->state.testFlag(State_Enabled))
        return;
    const QPalette& palette = option->palette;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(blended(palette.color(QPalette::Text), palette.color(QPalette::Base), 0.45));
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    painter->restore();
}
