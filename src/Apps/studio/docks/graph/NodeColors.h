// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// NodeColors: the colours that the views draw with, made from the palette of the widgets, so that they fit whether it
// is light or dark.
#pragma once

#include <QPalette>
#include <QString>

/// Whether the palette is light text on a dark ground.
bool isDark(const QPalette& palette);

/// A colour between two others: the first at 0, the second at 1.
QColor blended(const QColor& first, const QColor& second, double share);

/// Text that stands back behind other text.
QColor quietText(const QPalette& palette);

/// The colour that marks a kind of module, by its keyword: always the same one for a kind.
QColor kindColor(const QString& keyword, const QPalette& palette);
