// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Backdrop: the plain paper behind a drawing in an opaque bitmap, such as the white of a scan. It is no object, and
// what stands in front of it has its outlines where the paper begins, as in a bitmap with transparency.
#pragma once

#include <QColor>
#include <QImage>

#include <optional>

/// A bitmap whose backdrop was made transparent.
struct CutOut
{
    QImage foreground;  ///< in the bitmap's format; at its antialiased outlines alpha says how much covers the backdrop
    QRgb backdrop = 0;  ///< the backdrop's colour
    double share = 0.0; ///< of the bitmap's pixels that show the backdrop, 0 to 1
};

/// Cuts out what stands in front of a plain backdrop: one colour that takes at least half of the border around the
/// covered pixels, and all that is connected with it there. Painted over the bitmap, the foreground shows the bitmap.
///
/// @param bitmap ARGB32 or RGBA64
/// @return nothing if there is no backdrop, or nothing in front of it
std::optional<CutOut> cutFromBackdrop(const QImage& bitmap);
