// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The two largest units are enough to decide whether to wait.
#include "SpokenTime.h"

#include <algorithm>
#include <cmath>

QString spokenTime(double seconds)
{
    const auto whole = static_cast<long long>(std::ceil(std::clamp(seconds, 0.0, 1e12)));
    const auto two = [](long long number) { return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0')); };
    if (whole < 60)
        return QStringLiteral("%1 s").arg(whole);
    if (whole < 3600)
        return QStringLiteral("%1 min %2 s").arg(whole / 60).arg(two(whole % 60));
    return QStringLiteral("%1 h %2 min").arg(whole / 3600).arg(two(whole / 60 % 60));
}
