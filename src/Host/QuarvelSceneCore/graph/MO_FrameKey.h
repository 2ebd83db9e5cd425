// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_FrameKey: the frame that a question is about.
#pragma once

/// A frame of the scene; it need not be a whole number.
struct MO_FrameKey
{
    double frame = 0.0;

    friend constexpr bool operator==(const MO_FrameKey&, const MO_FrameKey&) = default;
};
