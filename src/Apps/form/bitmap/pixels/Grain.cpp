// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/bitmap/pixels/Grain.h"

#include <algorithm>
#include <cstdlib>

namespace {

// Twice the middle pixel's distance from the mean of its neighbours, in levels of 255.
constexpr int kUneven = 4;
constexpr int kEdge = 40;
constexpr int kLeastThrees = 2000;

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

    double uneven() const { return _within < kLeastThrees ? 0.0 : double(_uneven) / _within; }

private:
    int _within = 0;
    int _uneven = 0;
};

} // namespace

double grainOf(const PixelPlane<QRgb>& colours)
{
    Threes threes;
    for (int y = 0; y < colours.height(); ++y)
        for (int x = 1; x + 1 < colours.width(); ++x)
            threes.add(colours.at(x - 1, y), colours.at(x, y), colours.at(x + 1, y));
    for (int y = 1; y + 1 < colours.height(); ++y)
        for (int x = 0; x < colours.width(); ++x)
            threes.add(colours.at(x, y - 1), colours.at(x, y), colours.at(x, y + 1));
    return threes.uneven();
}
