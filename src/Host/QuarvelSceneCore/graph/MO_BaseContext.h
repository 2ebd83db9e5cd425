// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_BaseContext: what a module needs to answer a question about a picture: the frame, and the picture's size.
#pragma once

#include "QuarvelSceneCore/graph/MO_FrameKey.h"

#include <utility>

/// The frame and the resolution of a question. A plain value.
class MO_BaseContext
{
public:
    /// @param frameKey   the frame that is asked about
    /// @param resolution width and height of the scene's frame, in pixels
    MO_BaseContext(const MO_FrameKey& frameKey, const std::pair<int, int>& resolution)
        : _frameKey(frameKey), _resolution(resolution)
    {}

    const MO_FrameKey& frameKey() const { return _frameKey; }
    /// Width and height of the scene's frame, in pixels.
    const std::pair<int, int>& resolution() const { return _resolution; }

private:
    MO_FrameKey _frameKey;
    std::pair<int, int> _resolution;
};
