// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The limit of Qt's readers, in pixels.
#include "QuarvelDrawingIO/private/DIO_PixelLimit.h"

#include <QImageReader>

#include <algorithm>
#include <cmath>
#include <limits>

std::int64_t DIO_mostPixels()
{
    constexpr std::int64_t kMebibyte = 1024 * 1024;
    constexpr std::int64_t kBytesOfPixel = 4;
    const std::int64_t limit = QImageReader::allocationLimit();
    // For Qt, 0 stands for no limit.
    return limit > 0 ? limit * kMebibyte / kBytesOfPixel : std::numeric_limits<int>::max();
}

QString DIO_tooManyPixels(std::int64_t width, std::int64_t height)
{
    const std::int64_t most = DIO_mostPixels();
    const double factor =
        std::sqrt(static_cast<double>(most) / static_cast<double>(width) / static_cast<double>(height));
    const auto side = [&](std::int64_t length) {
        return std::clamp<std::int64_t>(static_cast<std::int64_t>(static_cast<double>(length) * factor), 1, most);
    };
    // Of a picture that is a line, only the longer side becomes smaller.
    const std::int64_t fittingWidth = std::min(side(width), most / side(height));
    return QStringLiteral("%1 x %2 pixels, more than the %3 million for which there is memory; %4 x %5 pixels fit")
        .arg(width)
        .arg(height)
        .arg(most / 1'000'000)
        .arg(fittingWidth)
        .arg(std::min(side(height), most / fittingWidth));
}
