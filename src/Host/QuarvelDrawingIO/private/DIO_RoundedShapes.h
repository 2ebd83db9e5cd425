// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Rounds the coordinates of shapes to short decimal numbers. What is computed from single-precision numbers, or by
// widening and cutting paths, has 16 digits of which no picture shows more than five. An animation has millions of such
// numbers, which a scene keeps as text.
#pragma once

#include "QuarvelDrawingIO/DIO_Drawing.h"

/// For one picture.
class DIO_RoundedShapes
{
public:
    /// @param side the longer side of the picture, above 0. Coordinates are rounded to the largest power of ten that is
    ///             at most a millionth of it: to 0.001 where it is 1000 to 9999
    explicit DIO_RoundedShapes(double side);

    /// Rounds the paths and clips of shapes.
    void round(std::vector<DIO_Shape>& shapes);

private:
    void round(QPainterPath& path) const;

    double _perUnit; // a power of ten
};
