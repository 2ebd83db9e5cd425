// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ColourAreas: the connected areas of a bitmap in which neighbouring pixels hardly differ: flat colours and smooth
// shading. Pixels along edges, where antialiasing or thin lines mix colours, belong to no area.
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
    /// The average of each channel and of alpha.
    QRgb average() const;
};

/// For each area, its place in the order by size, the largest first, and by colour among areas of equal size. Numbers
/// from this order do not depend on where the areas lie in the picture.
std::vector<int> placesBySize(const std::vector<AreaSum>& areas);

/// The label of covered pixels that belong to no area.
inline constexpr int kLoose = -2;

/// A bitmap's areas.
struct ColourAreas
{
    PixelPlane<int> labels;     ///< index of the area; kLoose; kNoLabel for uncovered pixels
    std::vector<AreaSum> areas; ///< the largest first
    int covered = 0;            ///< the number of covered pixels
    bool hard = false;          ///< pixel art: no edge is antialiased, and each area has exactly one colour
};

/// Finds the areas. The picture's border is not an edge: only neighbours inside the picture are compared.
ColourAreas colourAreasOf(const PixelPlane<QRgb>& colours);
