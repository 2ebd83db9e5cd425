// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Ink: which shapes of a drawing are lines drawn around and upon its parts, rather than parts themselves.
#pragma once

#include "form/choice/ShapeFacts.h"

#include <vector>

/// Knows a drawing's ink: dark lines, thin against the picture and long against their width, and short ones that were
/// drawn with the same pen.
class Ink
{
public:
    Ink(const std::vector<ShapeFacts>& facts, const Grid& grid);

    bool isInk(const ShapeFacts& shape) const;

private:
    bool isLongLine(const ShapeFacts& shape) const;

    double _widest;
    double _pen = 0.0; // the width of the lines, in cells; 0: there are none to speak of
};
