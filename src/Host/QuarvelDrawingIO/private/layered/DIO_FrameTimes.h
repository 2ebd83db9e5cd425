// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Files of moving pictures say how long each picture stays; scenes have one frame rate.
#pragma once

#include <span>
#include <vector>

/// A frame rate, and the number of frames for which each picture is shown.
struct DIO_FrameTimes
{
    double frameRate = 0.0;
    std::vector<int> counts; ///< each at least 1
};

/// The slowest rate at which the pictures stay as long as they should. Where that would be faster than 60 frames a
/// second, each picture gets the nearest number of frames as long as the shortest one. A film
/// has at most DIO_kMostFrames and one for every picture; longer ones get a slower rate.
///
/// @param milliseconds of each picture, at least one; those up to 10 count as 100, as browsers take them
DIO_FrameTimes DIO_frameTimes(std::span<const int> milliseconds);
