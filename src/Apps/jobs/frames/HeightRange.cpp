// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The range that holds the ranges of all frames.
#include "jobs/frames/HeightRange.h"

#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "jobs/frames/FrameState.h"
#include "jobs/frames/FramesInOrder.h"
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

} // namespace

UT_Result<NM_HeightRange> heightRangeOf(const ShownModule& shown, const RenderFramesSettings& settings,
                                        const RenderFramesWatcher& watcher)
{
    const auto goOn = [&](double) { return !(watcher.stop && watcher.stop()); };
    const auto rangeOfFrame = [&](int frame) -> UT_Result<NM_HeightRange> {
        const auto rendered = shown.render(frame, settings.parameters, surfaceParts(), goOn);
        if (!rendered)
            return rendered.error();
        const auto heights = heightPicture(*rendered);
        if (!heights)
            return heights.error();
        return NM_rangeOf(*heights);
    };
    NM_HeightRange all;
    const auto widen = [&](const NM_HeightRange& frame) -> UT_Result<void> {
        all.black = std::min(all.black, frame.black);
        all.white = std::max(all.white, frame.white);
        return {};
    };
    const std::vector<int> frames = differentFrames(shown, settings.frames);
    if (const UT_Result<void> seen = framesInOrder<NM_HeightRange>(
            frames, settings.atOnce, QStringLiteral("the heights"), rangeOfFrame, widen, watcher);
        !seen)
        return seen.error();
    return all;
}
