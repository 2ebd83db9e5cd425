// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CELVEC_RenderArgs: how a vector drawing becomes pixels.
#pragma once

#include "QuarvelBaseCore/Math_Box2di.h"
#include "QuarvelBaseCore/Math_Size2di.h"

#include <QTransform>

/// Where and at which resolution a vector drawing is rasterised.
struct CELVEC_RenderArgs
{
    QTransform drawingToPixel; ///< from the drawing's units to pixels; pixel (x, y) covers [x, x+1) x [y, y+1)
    Math::Size2di size;        ///< the picture's size in pixels
    Math::Box2di canvas;       ///< the picture's rectangle
    Math::Box2di wanted;       ///< the requested pixels; they may lie outside the canvas
    /// Whether float pixels get the coverage 1 - (1 - a)^2 instead of a, as if they were painted twice. Pixels of other
    /// formats, and those of a drawing with a colour transform, stay as they are.
    bool closesSeams = false;
};
