// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LineArt: a bitmap of dark lines alone, drawn on paper or on nothing. The areas that its lines enclose become paper,
// so that they have a form.
#pragma once

#include <QImage>

#include <optional>

/// Fills the areas that the lines of a bitmap enclose.
///
/// @param bitmap     ARGB32 or RGBA64, opaque or cut out from its paper
/// @param paper      the paper's colour
/// @param background what is seen beneath the bitmap's transparent pixels: of the same size and format, or null for
///                   paper
/// @return nothing if the bitmap is no line drawing, or its lines enclose little
std::optional<QImage> filledLineArt(const QImage& bitmap, QRgb paper, const QImage& background);
