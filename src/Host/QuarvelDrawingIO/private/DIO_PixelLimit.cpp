// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The limit of Qt's readers, in pixels.
#include "QuarvelDrawingIO/private/DIO_PixelLimit.h"

#include <QImageReader>

#include <limits>

std::int64_t DIO_mostPixels()
{
    constexpr std::int64_t kMebibyte = 1024 * 1024;
    constexpr std::int64_t kBytesOfPixel = 4;
    const std::int64_t limit = QImageReader::allocationLimit();
    // For Qt, 0 stands for no limit.
    return limit > 0 ? limit * kMebibyte / kBytesOfPixel : std::numeric_limits<int>::max();
}
