// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// StudioStyle: the style Fusion with two differences. Boxes to tick can be seen: Fusion outlines them a little darker
// than the window, which nobody sees in a dark theme, and an empty box is nothing but its outline. And swatches and
// thumbnails in selected rows keep their colours, which Fusion mixes with that of the selection.
#pragma once

#include <QProxyStyle>

/// The style of the application's widgets.
class StudioStyle : public QProxyStyle
{
    Q_OBJECT

public:
    StudioStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget = nullptr) const override;
    QPixmap generatedIconPixmap(QIcon::Mode mode, const QPixmap& pixmap, const QStyleOption* option) const override;
};
