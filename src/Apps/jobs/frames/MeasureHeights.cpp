// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "jobs/frames/MeasureHeights.h"

#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "jobs/frames/FrameState.h"
#include "jobs/shown/SurfacePictures.h"

#include <algorithm>
#include <set>

namespace {

// One frame of each picture.
std::vector<int> differentFrames(const ShownModule& shown, const std::vector<int>& frames)
{
    const auto* const scene = dynamic_cast<const MO_Scene*>(shown.module().sceneCommon());
    if (!scene)
        return frames;
    std::set<QByteArray> known;
    std::vector<int> different;
    for (const int frame : frames)
        if (known.insert(frameStateOf(*scene, frame)).second)
            different.push_back(frame);
    return different;
}

UT_Result<NM_HeightRange> rangeOf(const ShownModule& shown, int frame, const RD_RenderParameters& parameters,
                                  const RD_SoftRenderer::Progress& progress)
{
    const auto rendered = shown.render(frame, parameters, surfaceParts(), progress);
    if (!rendered)
        return rendered.error();
    const auto heights = heightPicture(*rendered);
    if (!heights)
        return heights.error();
    return NM_rangeOf(*heights);
}

} // namespace

UT_Result<NM_HeightRange> measureHeights(const ShownModule& shown, const RenderFramesSettings& settings,
                                         const RenderFramesWatcher& watcher)
{
    const std::vector<int> frames = differentFrames(shown, settings.frames);
    NM_HeightRange range;
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const auto goOn = [&](double done) {
            if (watcher.progress)
                watcher.progress((static_cast<double>(i) + done) / static_cast<double>(frames.size()));
            return !watcher.stop || !watcher.stop();
        };
        if (!goOn(0.0))
            return UT_stopped();
        const auto own = rangeOf(shown, frames[i], settings.parameters, goOn);
        if (!own)
            return own;
        range.black = std::min(range.black, own->black);
        range.white = std::max(range.white, own->white);
    }
    return range;
}
