// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Outlines of shapes that are small enough to be drawn by hand.
#include "studio/objects/CoverageOutline.h"

#include <gtest/gtest.h>

#include <random>

namespace {

/// A pixmap at (3, 2) from rows of text, where x is covered.
CoverageBits bitsOf(const std::vector<std::string>& rows)
{
    const auto width = static_cast<int>(rows.front().size());
    CEL_PixmapAreaRGBA16 pixmap({200, 100}, {0, 0, 200, 100});
    pixmap.realloc({3, 2, 3 + width, 2 + static_cast<int>(rows.size())}, true);
    for (std::size_t y = 0; y < rows.size(); ++y)
        for (std::size_t x = 0; x < rows[y].size(); ++x)
            pixmap.at(3 + static_cast<int>(x), 2 + static_cast<int>(y)).a = rows[y][x] == 'x' ? 32767 : 0;
    return CoverageBits(pixmap, {0, 0, 200, 100});
}

int lineCount(const QPainterPath& path)
{
    int count = 0;
    for (int i = 0; i < path.elementCount(); ++i)
        count += path.elementAt(i).isMoveTo() ? 1 : 0;
    return count;
}

TEST(CoverageOutlineTest, NothingHasNoOutline)
{
    EXPECT_TRUE(outlineOf(bitsOf({"..", ".."})).isEmpty());
}

TEST(CoverageOutlineTest, APixelIsADiamondThroughTheMiddlesOfItsSides)
{
    const QPainterPath path = outlineOf(bitsOf({"...", ".x.", "..."}));
    EXPECT_EQ(path.boundingRect(), QRectF(4.0, 3.0, 1.0, 1.0));
    ASSERT_EQ(path.elementCount(), 5);
    EXPECT_EQ(QPointF(path.elementAt(0)), QPointF(4.5, 3.0));
    EXPECT_EQ(QPointF(path.elementAt(1)), QPointF(5.0, 3.5));
    EXPECT_EQ(QPointF(path.elementAt(2)), QPointF(4.5, 4.0));
    EXPECT_EQ(QPointF(path.elementAt(3)), QPointF(4.0, 3.5));
    EXPECT_EQ(QPointF(path.elementAt(4)), QPointF(4.5, 3.0));
}

TEST(CoverageOutlineTest, StraightLinesHaveNoPointsInTheirMiddles)
{
    // Two points on each side.
    EXPECT_EQ(outlineOf(bitsOf({"xxxxxx", "xxxxxx", "xxxxxx", "xxxxxx"})).elementCount(), 8 + 1);
}

TEST(CoverageOutlineTest, AHoleHasALineOfItsOwnAndSoHasWhatTouchesAtACornerAlone)
{
    EXPECT_EQ(lineCount(outlineOf(bitsOf({"xxx", "x.x", "xxx"}))), 2);
    EXPECT_EQ(lineCount(outlineOf(bitsOf({"x.", ".x"}))), 2);
    EXPECT_EQ(lineCount(outlineOf(bitsOf({".x", "x."}))), 2);
    EXPECT_EQ(lineCount(outlineOf(bitsOf({"xx", ".x"}))), 1);
}

TEST(CoverageOutlineTest, TheMiddleOfAPixelIsInsideExactlyWhenItIsCovered)
{
    std::mt19937 random(7);
    for (const int width : {1, 2, 31, 63, 64, 65, 130}) {
        std::vector<std::string> rows(9, std::string(static_cast<std::size_t>(width), '.'));
        for (std::string& row : rows)
            for (char& pixel : row)
                pixel = std::uniform_int_distribution(0, 2)(random) == 0 ? '.' : 'x';
        const QPainterPath path = outlineOf(bitsOf(rows));
        for (int y = 0; y < 9; ++y)
            for (int x = 0; x < width; ++x)
                EXPECT_EQ(path.contains(QPointF(3 + x + 0.5, 2 + y + 0.5)),
                          rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] == 'x')
                    << width << ": " << x << ", " << y;
    }
}

TEST(CoverageOutlineTest, StepsGoAlongTheEdgesOfPixels)
{
    const QPainterPath corner = outlineOf(bitsOf({"xx", ".x"}), OutlineForm::STEPS);
    const std::vector<QPointF> expected{{3, 2}, {5, 2}, {5, 4}, {4, 4}, {4, 3}, {3, 3}, {3, 2}};
    ASSERT_EQ(corner.elementCount(), static_cast<int>(expected.size()));
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_EQ(QPointF(corner.elementAt(static_cast<int>(i))), expected[i]) << i;
    // A ring is two squares.
    const QPainterPath ring = outlineOf(bitsOf({"xxx", "x.x", "xxx"}), OutlineForm::STEPS);
    EXPECT_EQ(lineCount(ring), 2);
    EXPECT_EQ(ring.elementCount(), 2 * 5);
    EXPECT_TRUE(ring.contains(QPointF(3.1, 2.1)));
    EXPECT_FALSE(ring.contains(QPointF(4.1, 3.1)));
}

} // namespace
