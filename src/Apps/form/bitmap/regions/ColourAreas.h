// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ColourAreas: the connected areas of a bitmap within which neighbouring pixels hardly differ: flat colours and smooth
// shading. Pixels along edges, which antialiasing or thin lines fill with mixtures, belong to no area.
#pragma once

#include "form/bitmap/pixels/PixelPlane.h"

#include <QRgb>

/// Sums over the pixels of an area.
struct AreaSum
{
    int pixels = 0;
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;
    double alpha = 0.0;

    void add(QRgb pixel);
    void add(const AreaSum& other);
    /// The average, of channels and alpha alike.
    QRgb average() const;
};

/// For each area its place in the order by size, the largest first, and among equal ones by colour. Numbers that areas
/// get in this order do not depend on where they lie in the picture.
std::vector<int> placesBySize(const std::vector<AreaSum>& areas);

/// What a pixel of the labels holds that is covered and belongs to no area.
inline constexpr int kLoose = -2;

/// A bitmap's areas.
struct ColourAreas
{
    PixelPlane<int> labels;     ///< index of the area; kLoose; kNoLabel where nothing is covered
    std::vector<AreaSum> areas; ///< the largest first
    int covered = 0;            ///< pixels that are covered
    bool hard = false;          ///< pixel art: nothing is antialiased, and an area is of one colour exactly
};

/// Finds the areas. What lies outside of the picture is taken to go on as the picture ends.
ColourAreas colourAreasOf(const PixelPlane<QRgb>& colours);
