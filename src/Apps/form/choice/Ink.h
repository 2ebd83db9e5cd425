// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Ink: decides which shapes of a drawing are lines drawn around and on its parts, not parts themselves.
#pragma once

#include "form/choice/ShapeFacts.h"

#include <vector>

/// Recognises a drawing's ink: dark lines that are thin compared with the picture and long compared with their width,
/// short lines drawn with the same pen, and the outlines of shapes in darker shades of their colours.
class Ink
{
public:
    Ink(const std::vector<ShapeFacts>& facts, const Grid& grid);

    bool isInk(const ShapeFacts& shape) const;

private:
    bool isLongLine(const ShapeFacts& shape) const;

    double _widest;
    double _pen = 0.0; // the width of the lines, in cells; 0 if there are too few
};
