// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// QuickPace: how large a quick picture may be so that pictures keep up with the hand. The size follows the time that
// the last one took.
#pragma once

#include <QSize>

#include <chrono>

/// Chooses the size of quick pictures. For one thread.
class QuickPace
{
public:
    /// As long as a quick picture may take: 15 in a second.
    static constexpr std::chrono::milliseconds kGoal{66};
    /// The sides of quick pictures are divided by these.
    static constexpr int kLeastDivisor = 1;
    static constexpr int kFirstDivisor = 4;
    static constexpr int kMostDivisor = 8;
    /// No quick picture's shorter side is smaller than this, unless the full picture's is.
    static constexpr int kSmallest = 48;

    int divisor() const { return _divisor; }

    /// The next quick picture's size: the full one's, divided, and no more than so many pixels.
    QSize sizeFor(const QSize& full, double mostPixels) const;

    /// A quick picture was rendered. The next one is smaller when it took longer than the goal, and one step larger
    /// when the larger one would surely meet it. Time is taken to grow with the number of pixels.
    ///
    /// @param divisor that the picture had
    void took(std::chrono::nanoseconds time, int divisor);

    /// By what the sides of one picture are divided in another.
    static int divisorOf(const QSize& full, const QSize& size);

private:
    int _divisor = kFirstDivisor;
};
