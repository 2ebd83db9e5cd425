// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_FrameKey: the moment of the scene that something is asked for.
#pragma once

/// A frame of the scene. Frames may lie between the whole numbers.
struct MO_FrameKey
{
    double frame = 0.0;

    friend constexpr bool operator==(const MO_FrameKey&, const MO_FrameKey&) = default;
};
