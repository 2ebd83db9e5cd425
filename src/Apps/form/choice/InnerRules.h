// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// InnerRules: decides whether a shape inside a part (an eye, a mouth, a stripe, a shadow, a window) is an object or a
// mark.
#pragma once

#include "form/choice/Part.h"

/// The measurements of a shape inside a part.
struct InnerShape
{
    const ShapeFacts& shape;
    const ShapeFacts& body;   ///< the largest piece of the part's body
    const ShapeFacts& ground; ///< the shape that it is painted on, in the part
    double share = 0.0;       ///< its area, divided by the area of the part's body
    double follows = 0.0;     ///< the share of its outline that runs along the part's
    double outlined = 0.0;    ///< the share of its outline that has nothing or another paint just outside it
    bool concentric = false;  ///< it is a smaller copy of the part's outline around the same centre
    double held = 0.0;        ///< the area of the later shapes inside it, divided by its own
    int siblings = 0;         ///< the number of other shapes of its paint and about its size inside the same part
    double gridArea = 0.0;    ///< of the picture, in cells
    bool onBoard = false;     ///< the part is a flat thing with a rim
    bool isFace = false;      ///< it has eyes
    bool isOpenMouth = false; ///< the part is a round face with eyes, and this lies where the mouth is
    bool isBand = false;      ///< the part is round, and the shape reaches across it from rim to rim
};

/// Decides whether the shape is an object or a mark.
Verdict judgeInner(const InnerShape& inner);
