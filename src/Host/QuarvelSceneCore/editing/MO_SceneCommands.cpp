// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The frames and the height of a scene.
#include "QuarvelSceneCore/editing/MO_SceneCommands.h"

#include "QuarvelSceneCore/editing/private/MO_StateCmd.h"

#include <cmath>

MO_EditCommand MO_frameRangeCmd(MO_Scene& scene, int first, int last)
{
    const std::pair before(scene.firstFrame(), scene.lastFrame());
    const std::pair after(first, last);
    if (before == after || !MO_SceneCommon::mayHaveFrames(first, last))
        return nullptr;
    return MO_makeStateCmd(
        MO_CommandTexts::tr("Change Frames"), before, after,
        [&scene](const std::pair<int, int>& range) { scene.setFrameRange(range.first, range.second); });
}

MO_EditCommand MO_frameHeightCmd(MO_Scene& scene, double height)
{
    const double before = scene.frameHeight();
    if (before == height || !(height > 0.0) || std::isinf(height))
        return nullptr;
    return MO_makeStateCmd(MO_CommandTexts::tr("Change Frame Height"), before, height,
                           [&scene](double wanted) { scene.setFrameHeight(wanted); });
}

MO_EditCommand MO_frameRateCmd(MO_Scene& scene, double rate)
{
    const double before = scene.frameRate();
    if (before == rate || !(rate >= MO_Scene::kSlowest && rate <= MO_Scene::kFastest))
        return nullptr;
    return MO_makeStateCmd(MO_CommandTexts::tr("Change Frame Rate"), before, rate,
                           [&scene](double wanted) { scene.setFrameRate(wanted); });
}
