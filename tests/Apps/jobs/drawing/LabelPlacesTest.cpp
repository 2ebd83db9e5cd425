// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A number has to stand on the object that it names.
#include "jobs/drawing/LabelPlaces.h"

#include <gtest/gtest.h>

namespace {

// An image of areas from rows of digits; anything else belongs to no area.
QImage areasOf(const std::vector<QString>& rows)
{
    QImage image(static_cast<int>(rows.front().size()), static_cast<int>(rows.size()), QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QChar digit = rows[static_cast<std::size_t>(y)][x];
            image.setPixel(x, y, digit.isDigit() ? 0xff000000U | static_cast<QRgb>(digit.digitValue()) : 0U);
        }
    return image;
}

using Places = std::vector<std::optional<QPoint>>;

TEST(LabelPlaces, AreInsideTheFrameThatRunsAroundAnotherArea)
{
    const QImage areas = areasOf({"000000000", //
                                  "000000000", //
                                  "000000000", //
                                  "000111000", //
                                  "000111000", //
                                  "000111000", //
                                  "000000000", //
                                  "000000000", //
                                  "000000000"});
    // The middles of the four sides are as deep as the frame's corners and nearer to its centre, which is not its own.
    EXPECT_EQ(labelPlaces(areas, 2), (Places{QPoint(4, 1), QPoint(4, 4)}));
}

TEST(LabelPlaces, AreInsideOnePartOfAnAreaInTwoParts)
{
    const QImage areas = areasOf({"00000.1.00000", //
                                  "00000.1.00000", //
                                  "00000.1.00000", //
                                  "00000.1.00000", //
                                  "00000.1.00000"});
    EXPECT_EQ(labelPlaces(areas, 2), (Places{QPoint(2, 2), QPoint(6, 2)}));
}

TEST(LabelPlaces, AreInTheMiddleOfWhatIsDeepAllAlong)
{
    const QImage areas = areasOf({"00000000000", //
                                  "00000000000", //
                                  "00000000000"});
    EXPECT_EQ(labelPlaces(areas, 1), Places{QPoint(5, 1)});
}

TEST(LabelPlaces, AreNoneForAreasThatDoNotShow)
{
    const QImage areas = areasOf({"....", //
                                  ".22.", //
                                  "..7."});
    EXPECT_EQ(labelPlaces(areas, 3), (Places{std::nullopt, std::nullopt, QPoint(1, 1)}));
}

} // namespace
