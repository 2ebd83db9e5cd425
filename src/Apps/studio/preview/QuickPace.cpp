// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Divisors are integers, so that a pixel of a quick picture stands for whole pixels of the full one.
#include "studio/preview/QuickPace.h"

#include <algorithm>
#include <cmath>

namespace {

QSize divided(const QSize& full, int divisor)
{
    return {std::max(1, full.width() / divisor), std::max(1, full.height() / divisor)};
}

double pixelsOf(const QSize& size)
{
    return static_cast<double>(size.width()) * size.height();
}

} // namespace

QSize QuickPace::sizeFor(const QSize& full, double mostPixels) const
{
    int divisor = _divisor;
    while (divisor < kMostDivisor && pixelsOf(divided(full, divisor)) > mostPixels)
        ++divisor;
    while (divisor > kLeastDivisor && std::min(full.width(), full.height()) / divisor < kSmallest)
        --divisor;
    return divided(full, divisor);
}

void QuickPace::took(std::chrono::nanoseconds time, int divisor)
{
    // The larger size must meet the goal with a reserve, or the size would change back at once.
    constexpr double kSure = 0.7;
    const double share = std::chrono::duration<double>(time) / std::chrono::duration<double>(kGoal);
    const auto shareWith = [&](int other) { return share * divisor * divisor / (other * other); };
    _divisor = divisor;
    while (_divisor < kMostDivisor && shareWith(_divisor) > 1.0)
        ++_divisor;
    if (_divisor == divisor && divisor > kLeastDivisor && shareWith(divisor - 1) < kSure)
        --_divisor;
}

int QuickPace::divisorOf(const QSize& full, const QSize& size)
{
    const int longer = std::max(full.width(), full.height());
    return std::max(1,
                    static_cast<int>(std::lround(static_cast<double>(longer) / std::max(size.width(), size.height()))));
}
