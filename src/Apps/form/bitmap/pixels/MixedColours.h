// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MixedColours: compares the colours of opaque pixels, and finds out which of them antialiasing mixed of two others.
#pragma once

#include <QColor>

#include <optional>

/// Whether two colours differ by no more than the noise of a good JPEG.
inline bool areAlike(QRgb one, QRgb other)
{
    constexpr int kAlike = 14; // of 255, in each channel
    const auto near = [](int a, int b) { return a - b <= kAlike && b - a <= kAlike; };
    return near(qRed(one), qRed(other)) && near(qGreen(one), qGreen(other)) && near(qBlue(one), qBlue(other));
}

/// The sum of the squared differences of the channels, each 0 to 255.
double squaredDistance(QRgb one, QRgb other);

/// How much of the colour `over` a pixel has if it is a mixture of `under` and `over`: about 0 to 1, but it may be
/// outside for a colour on the same line. Nothing if it is no such mixture.
std::optional<double> mixedShare(QRgb pixel, QRgb under, QRgb over);
