// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/bitmap/pixels/Grain.h"

#include <algorithm>
#include <cstdlib>

namespace {

// Twice the middle pixel's distance from the mean of its neighbours, in levels of 255.
constexpr int kUneven = 4;
constexpr int kEdge = 40;

class Threes
{
public:
    void add(QRgb before, QRgb middle, QRgb after)
    {
        if (qAlpha(before) != 255 || qAlpha(middle) != 255 || qAlpha(after) != 255)
            return;
        const int bend = std::max({std::abs(qRed(before) - 2 * qRed(middle) + qRed(after)),
                                   std::abs(qGreen(before) - 2 * qGreen(middle) + qGreen(after)),
                                   std::abs(qBlue(before) - 2 * qBlue(middle) + qBlue(after))});
        _within += bend <= kEdge ? 1 : 0;
        _uneven += bend >= kUneven && bend <= kEdge ? 1 : 0;
    }

    double uneven(int least) const { return _within < least ? 0.0 : double(_uneven) / _within; }

private:
    int _within = 0;
    int _uneven = 0;
};

QRgb averageOf(const PixelPlane<QRgb>& colours, int left, int top, int side)
{
    int red = 0;
    int green = 0;
    int blue = 0;
    for (int y = top; y < top + side; ++y)
        for (int x = left; x < left + side; ++x) {
            const QRgb pixel = colours.at(x, y);
            if (qAlpha(pixel) != 255)
                return 0;
            red += qRed(pixel);
            green += qGreen(pixel);
            blue += qBlue(pixel);
        }
    const int count = side * side;
    return qRgb((red + count / 2) / count, (green + count / 2) / count, (blue + count / 2) / count);
}

} // namespace

double grainOf(const PixelPlane<QRgb>& colours, int least)
{
    Threes threes;
    for (int y = 0; y < colours.height(); ++y)
        for (int x = 1; x + 1 < colours.width(); ++x)
            threes.add(colours.at(x - 1, y), colours.at(x, y), colours.at(x + 1, y));
    for (int y = 1; y + 1 < colours.height(); ++y)
        for (int x = 0; x < colours.width(); ++x)
            threes.add(colours.at(x, y - 1), colours.at(x, y), colours.at(x, y + 1));
    return threes.uneven(least);
}

PixelPlane<QRgb> averagesOf(const PixelPlane<QRgb>& colours, int side)
{
    PixelPlane<QRgb> averages(colours.width() / side, colours.height() / side);
    for (int y = 0; y < averages.height(); ++y)
        for (int x = 0; x < averages.width(); ++x)
            averages.at(x, y) = averageOf(colours, x * side, y * side, side);
    return averages;
}
