// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The colours of a scene whose gloss can be set, and how settings of gloss are kept. A gloss belongs to a colour, not
// to a drawing: what is set for the grey of a sword holds in the next drawing with the same grey.
#pragma once

#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "jobs/shown/GlossDrawing.h"

#include <QStringList>

/// A colour of the scene's drawings.
struct DrawnColour
{
    QColor colour;
    QString name; ///< of the palette's colour; of a sprite's colour as people write it: "#D02020"
};

/// All colours of the scene's palettes in their order, then the most frequent colours of its sprites, the most frequent
/// first; each colour once.
std::vector<DrawnColour> drawnColours(const MO_Scene& scene);

/// The part of the settings that concerns these colours.
GlossSettings glossOf(const std::vector<DrawnColour>& colours, const GlossSettings& known);
/// The settings with those of some colours replaced.
///
/// @param set the gloss of `colours` and of others
GlossSettings withGloss(const GlossSettings& known, const std::vector<DrawnColour>& colours, const GlossSettings& set);

/// As text for the application's settings: "#9999aa=0.8", "all=0.2".
QStringList glossTexts(const GlossSettings& gloss);
/// The inverse; texts that cannot be read are left out.
GlossSettings glossOfTexts(const QStringList& texts);
