// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// InnerRules: what becomes of a shape that lies inside a part: an eye, a mouth, a stripe, a shadow, a window.
#pragma once

#include "form/choice/Part.h"

/// What is known of such a shape.
struct InnerShape
{
    const ShapeFacts& shape;
    const ShapeFacts& body;   ///< the largest piece of the part's body
    const ShapeFacts& ground; ///< the shape that it is painted on, in the part
    double share = 0.0;       ///< its area over that of the part's body
    double follows = 0.0;     ///< the share of its outline that runs along the part's
    double outlined = 0.0;    ///< the share of its outline beyond which another colour shows
    bool concentric = false;  ///< it is a smaller copy of the part's outline about the same centre
    double held = 0.0;        ///< the area of later shapes that lie inside it, over its own
    int siblings = 0;         ///< other shapes of its colour, and not of a quite different size, inside the same part
    double gridArea = 0.0;    ///< of the picture, in cells
};

/// Decides about one.
Verdict judgeInner(const InnerShape& inner);
