// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ShapeFacts: the measurements of every painted area that the decisions use: its cells on the grid, its width and
// roundness, and its colour. Lengths are in cells.
#pragma once

#include "form/choice/Colour.h"
#include "form/raster/OutlineDistance.h"

#include <optional>
#include <vector>

/// The opacity below which an area is a shadow or a shine.
inline constexpr double kSolid = 0.7;

struct ShapeFacts
{
    CellMask mask;
    int area = 0;
    double width = 0.0;        ///< the width of a strip; for a disc, two thirds of its diameter
    double inscribed = 0.0;    ///< the radius of the largest disc inside
    double roundness = 0.0;    ///< that radius, divided by the radius of the disc of the same area
    double outline = 0.0;      ///< the number of cells at the outline
    bool cut = false;          ///< the border of the picture cuts it
    OutlineDistance distances; ///< which these were taken from
    SeenColour colour;
    int paint = 0;
    bool plain = true; ///< painted in one colour, so that equal paints look equal
    double opacity = 1.0;
    bool closedArea = false; ///< the paper between the lines of a line drawing
    bool isOutline = false;  ///< a line along the outline of a shape painted before it, in a darker shade of its colour

    /// The ratio of length to width; about 1.8 for a disc.
    double elongation() const { return width > 0.0 ? area / (width * width) : 0.0; }
};

/// Takes an area's size, width and roundness from the distances of its cells to its outline.
void measureShape(const OutlineDistance& measured, ShapeFacts& facts);

/// The drawing's shapes in the order of painting, over all layers.
std::vector<const DIO_Shape*> shapesInOrder(const DIO_Drawing& drawing);

/// The grid for a drawing: coarser if there are many large shapes, so that measuring them takes little time.
Grid gridFor(const DIO_Drawing& drawing);

/// Measures a drawing's shapes, in the order of painting.
///
/// @param masks by shape: its cells on the grid, where they are known; may hold fewer than there are shapes
std::vector<ShapeFacts> collectFacts(const DIO_Drawing& drawing, const Grid& grid,
                                     std::vector<std::optional<CellMask>> masks = {});
