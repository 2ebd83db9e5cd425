// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// QuickPace: chooses the size of quick pictures so that they keep up with the mouse. The size follows from the time
// that the last quick picture took.
#pragma once

#include <QSize>

#include <chrono>

/// Chooses the size of quick pictures. Only one thread may use it.
class QuickPace
{
public:
    /// The time that a quick picture may take: 15 pictures per second.
    static constexpr std::chrono::milliseconds kGoal{66};
    /// The range of the divisors of quick pictures' sides, and the first one.
    static constexpr int kLeastDivisor = 1;
    static constexpr int kFirstDivisor = 4;
    static constexpr int kMostDivisor = 8;
    /// The least length of a quick picture's shorter side, unless the full picture's is smaller.
    static constexpr int kSmallest = 48;

    int divisor() const { return _divisor; }

    /// The next quick picture's size: the divided full size, with at most `mostPixels` pixels.
    QSize sizeFor(const QSize& full, double mostPixels) const;

    /// Reports the time of a quick picture. The next one is smaller if the time exceeded the goal, and one step larger
    /// if the larger one would meet the goal with a reserve. The time is assumed to be proportional to the number of
    /// pixels.
    ///
    /// @param divisor the picture's divisor
    void took(std::chrono::nanoseconds time, int divisor);

    /// The divisor by which a size was made from the full size.
    static int divisorOf(const QSize& full, const QSize& size);

private:
    int _divisor = kFirstDivisor;
};
