// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The time left is that of the part that is done, scaled to the rest.
#include "RunProgress.h"

#include "SpokenTime.h"

#include <algorithm>

namespace {

QString timeLeft(double fraction, double seconds)
{
    // Earlier, start-up and the first drawing decide the guess.
    constexpr double kSoonest = 3.0;
    if (seconds < kSoonest || fraction <= 0.0)
        return {};
    return QStringLiteral(", %1 left").arg(spokenTime(seconds / fraction * (1.0 - fraction)));
}

} // namespace

RunProgress::RunProgress(ProgressLine& line, std::size_t drawings) : _line(line), _done(drawings, 0.0) {}

void RunProgress::show(std::size_t index, double done, const QString& drawing)
{
    const std::scoped_lock lock(_mutex);
    double& known = _done[index];
    _finished += known < 1.0 && done >= 1.0 ? 1 : 0;
    _sum += std::max(0.0, done - known);
    known = std::max(done, known);
    const double fraction = _sum / static_cast<double>(_done.size());
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - _start;
    _line.show(fraction, text(_finished, _done.size(), fraction, passed.count(), drawing));
}

void RunProgress::clear()
{
    const std::scoped_lock lock(_mutex);
    _line.clear();
}

QString RunProgress::text(int done, std::size_t all, double fraction, double seconds, const QString& drawing)
{
    if (all == 1)
        return drawing;
    return QStringLiteral("%1 of %2%3: %4").arg(done).arg(all).arg(timeLeft(fraction, seconds), drawing);
}
