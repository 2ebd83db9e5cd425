// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Paints the drawings of a scene in the gloss of their colours, as NM_paintedMaskPicture() takes it: red and green hold
// the value. Edges stay as exact as in the drawing, because the same shapes are painted. Palette colours are
// found by their colour, pixels of sprites by theirs, which must be the same in red, green and blue.
#pragma once

#include "QuarvelSceneCore/graph/MO_Scene.h"

#include <QColor>

#include <vector>

/// The gloss of one colour.
struct ColourGloss
{
    QColor colour;
    double gloss = 0.0; ///< 0 dull to 1 glossy
};

/// The gloss of all colours of a drawing.
struct GlossSettings
{
    std::vector<ColourGloss> colours; ///< of several for one colour the last one holds
    double others = 0.0;              ///< of colours that are not listed

    bool isAny() const { return !colours.empty() || others > 0.0; }
};

/// Changes the drawings and the palettes of a scene. Use it only on scenes that are rendered and not saved.
///
/// @return the listed colours that occur in no drawing
std::vector<QColor> paintGloss(MO_Scene& scene, const GlossSettings& settings);
