// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_Drawing: what every reader of drawings yields, whatever the file's format was. Filled areas in the order in which
// they are painted, on layers from the bottom up, each area painted in one entry of a palette.
//
// Lines are areas too: a stroke arrives as its outline. All coordinates are in drawing units, x right, y down; which
// part of that plane is the picture, and how large it is by nature, stands beside the layers.
#pragma once

#include "QuarvelDrawingIO/QuarvelDrawingIOExport.h"

#include <QColor>
#include <QImage>
#include <QPainterPath>
#include <QRectF>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// What an area is painted with.
struct DIO_Paint
{
    enum class Kind
    {
        SOLID,    ///< one plain colour
        GRADIENT, ///< colours that run into each other
        PICTURE,  ///< an embedded picture
        PATTERN   ///< a repeated drawing
    };

    Kind kind = Kind::SOLID;
    QColor colour; ///< opaque; of a paint that is not solid, its average
    QString name;  ///< of a solid colour "#rrggbb"; else what the file calls it

    friend bool operator==(const DIO_Paint&, const DIO_Paint&) = default;
};

/// An area painted in one paint. The path carries its own fill rule.
struct DIO_Shape
{
    QPainterPath path;
    std::optional<QPainterPath> clip; ///< nothing outside it is painted
    double opacity = 1.0;             ///< above 0, up to 1: the paint's, the area's and its groups' together
    int paint = 0;                    ///< index into the palette
    /// What a sprite shows instead of the plain paint: pixels with coverage, stretched over the path's bounding
    /// rectangle. Null for most shapes.
    QImage picture = {};
};

/// Areas that belong together. Never without a shape.
struct DIO_Layer
{
    QString name;
    bool declared = false; ///< the file itself names it a layer or, where asked for, a group; else it was put together
    std::vector<DIO_Shape> shapes; ///< in the order of painting
    /// What the file says of the layer's volume, each as "name=value": in SVG files the attributes data-vallorin-name.
    QStringList values = {};
};

/// A drawing.
struct DIO_Drawing
{
    QString name;                   ///< the file's name without folder and suffix
    QSizeF size;                    ///< natural size in pixels, 96 to an inch
    QRectF viewBox;                 ///< the picture's part of the plane; as wide to high as the size is
    std::vector<DIO_Layer> layers;  ///< bottom up
    std::vector<DIO_Paint> palette; ///< each paint once, in the order of first use
    bool opaqueEdge = false;        ///< a bitmap that is opaque up to its borders
    QStringList warnings;           ///< what was left out or simplified, a line each, for people to read
};

/// What becomes a layer of the drawing.
enum class DIO_Grouping
{
    AUTO,   ///< each layer that the file declares; the whole drawing where it declares none
    GROUPS, ///< each top-level group
    ONE     ///< the whole drawing
};

/// What becomes of a drawing that paints nothing.
enum class DIO_Blank
{
    REFUSED, ///< it is an error
    ACCEPTED ///< it is a drawing without layers: a frame of an animation in which nothing shows
};
