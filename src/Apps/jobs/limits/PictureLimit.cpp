// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The limit is that of Qt's readers, which belongs to the process.
#include "jobs/limits/PictureLimit.h"

#include <QImageReader>

#include <algorithm>

void limitPictures(const JobLimits& limits)
{
    constexpr double kMebibyte = 1024.0 * 1024.0;
    // Reading a bitmap and choosing its objects takes at most six times what its pixels take.
    constexpr double kCopies = 6.0;
    constexpr double kLeast = 128.0;
    // Larger than any memory, and a number of pixels that still fits in 64 bits.
    constexpr double kMost = 1024.0 * 1024.0 * 1024.0;
    QImageReader::setAllocationLimit(static_cast<int>(std::clamp(limits.memory / kMebibyte / kCopies, kLeast, kMost)));
}
