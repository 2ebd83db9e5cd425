// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ShapeFacts: what is measured of every painted area before anything is decided: where it lies on the grid, how broad
// and how round it is, and its colour. Lengths are in cells.
#pragma once

#include "form/choice/Colour.h"
#include "form/raster/CellMask.h"

#include <vector>

struct ShapeFacts
{
    CellMask mask;
    int area = 0;
    double width = 0.0;     ///< of a strip: its width; of a disc: two thirds of its diameter
    double inscribed = 0.0; ///< the radius of the largest disc inside
    double roundness = 0.0; ///< that radius over the radius of the disc of the same area
    double outline = 0.0;   ///< the number of cells at the outline
    bool cut = false;       ///< the border of the picture cuts it
    SeenColour colour;
    int paint = 0;
    bool plain = true; ///< painted in one plain colour, so that equal paints look equal
    double opacity = 1.0;

    /// How much longer than wide it is; about 1.8 for a disc.
    double elongation() const { return width > 0.0 ? area / (width * width) : 0.0; }
};

/// The drawing's shapes in the order of painting, over all layers.
std::vector<const DIO_Shape*> shapesInOrder(const DIO_Drawing& drawing);

/// A grid on which a drawing's shapes can be looked at in little time: coarser where there are many large ones.
Grid gridFor(const DIO_Drawing& drawing);

/// The facts of a drawing's shapes, in the order of painting.
std::vector<ShapeFacts> collectFacts(const DIO_Drawing& drawing, const Grid& grid);
