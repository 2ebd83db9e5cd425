// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LabelPlaces: where a number stands inside the area that it belongs to.
#pragma once

#include <QImage>
#include <QPoint>

#include <optional>
#include <vector>

/// For each area a pixel deep inside it, so that a label there is not taken for a neighbour's. Of the pixels that are
/// at least nine tenths as deep as the deepest, it is the one nearest to the centre of the area; of several, the first
/// one row by row.
///
/// Depths are chamfer distances with the weights 3 and 4 (G. Borgefors, "Distance Transformations in Digital Images",
/// Computer Vision, Graphics, and Image Processing 34, 1986) to the nearest pixel that is not of the area; beyond the
/// image there is none of any.
///
/// @param areas an image of 32 bits a pixel: opaque pixels hold the number of their area in red, green and blue, others
///        belong to none
/// @param count of the areas; larger numbers are ignored
/// @return std::nullopt for an area without pixels
std::vector<std::optional<QPoint>> labelPlaces(const QImage& areas, std::size_t count);
