// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The node first; the drawing in greys only if it is wanted.
#include "RenderedDrawing.h"

#include "WritePictures.h"
#include "jobs/drawing/DrawingScene.h"
#include "jobs/drawing/ObjectNames.h"

namespace {

UT_Result<NormalMapSettings> withNumbers(const LayeredDrawing& drawing, const NormalMapSettings& chosen)
{
    QStringList names;
    for (const LayeredDrawing::Layer& layer : drawing.layers)
        names << layer.name;
    const auto wishes = withNumberedObjects(chosen, names);
    if (!wishes)
        return wishes.error();
    NormalMapSettings settings = chosen;
    static_cast<ObjectWishes&>(settings) = *wishes;
    return settings;
}

} // namespace

UT_Result<RenderedDrawing> renderDrawing(const LayeredDrawing& drawing, const NormalMapSettings& settings,
                                         const NormalMapOptions& options, const OutputFiles& files,
                                         const JobProgress& progress, int atOnce)
{
    const auto numbered = withNumbers(drawing, settings);
    if (!numbered)
        return numbered.error();
    auto frame = renderNormalMap(drawing, *numbered, wantedPictures(options, files), progress, atOnce);
    if (!frame)
        return frame.error();
    RenderedDrawing rendered{std::move(*frame), {}, showsNothing(drawing, *numbered)};
    if (files.gloss.isEmpty())
        return rendered;
    auto gloss = renderGloss(drawing, *numbered, options.gloss);
    if (!gloss)
        return gloss.error();
    rendered.gloss = std::move(*gloss);
    return rendered;
}
