// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "QuarvelDrawingIO/private/layered/DIO_FrameTimes.h"

#include "QuarvelDrawingIO/private/layered/DIO_FileLimits.h"

#include <algorithm>
#include <cmath>
#include <numeric>

DIO_FrameTimes DIO_frameTimes(std::span<const int> milliseconds)
{
    constexpr int kHasty = 10;
    constexpr int kInstead = 100;
    constexpr int kShortest = 16; // of a frame, at 60 a second
    std::vector<int> times(milliseconds.begin(), milliseconds.end());
    for (int& time : times)
        time = time <= kHasty ? kInstead : time;
    const int shortest = *std::ranges::min_element(times);
    const int common = std::accumulate(times.begin(), times.end(), 0, [](int a, int b) { return std::gcd(a, b); });
    const double whole = std::accumulate(times.begin(), times.end(), 0.0);
    const double unit = std::max(static_cast<double>(common >= kShortest ? common : shortest), whole / DIO_kMostFrames);
    DIO_FrameTimes made;
    double frames = 0.0;
    for (const int time : times) {
        made.counts.push_back(std::max(1, static_cast<int>(std::lround(time / unit))));
        frames += made.counts.back();
    }
    made.frameRate = 1000.0 * frames / whole;
    return made;
}
