// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A line belongs to a part as far as it is drawn along the part's outline. Lines of four units are drawn along edges,
// so they reach two units outside.
#include "../FormDrawings.h"

using namespace form_drawings;

namespace {

constexpr int kPixelsPerUnit = 4;

QImage paintedLayer(const ChosenObjects& found, std::size_t index)
{
    DIO_Drawing alone = found.drawing;
    alone.layers = {found.drawing.layers[index]};
    return painted(alone, 100 * kPixelsPerUnit);
}

int alphaAt(const QImage& picture, double x, double y)
{
    return qAlpha(picture.pixel(static_cast<int>(x * kPixelsPerUnit), static_cast<int>(y * kPixelsPerUnit)));
}

// A blade that ends behind the guard of a sword.
const QByteArray kSword = rect(40, 5, 20, 50, "#cfd6de") + rect(15, 50, 70, 16, "#d9ad3c") +
                          line("M40 50V5H60V50", "#111111", 4.0) + line("M15 50H85V66H15Z", "#111111", 4.0);

TEST(InkReach, EndsWhereTheLineAroundAPartEnds)
{
    const ChosenObjects found = chosen(kSword);
    ASSERT_EQ(found.objects.size(), 2U);
    const QImage guard = paintedLayer(found, 1);
    EXPECT_EQ(alphaAt(guard, 25.0, 48.5), 255) << "the upper half of its own line";
    EXPECT_EQ(alphaAt(guard, 40.0, 48.5), 255) << "where the blade's line meets it";
    EXPECT_EQ(alphaAt(guard, 40.0, 46.5), 0) << "the blade's line outside it";
    EXPECT_EQ(alphaAt(guard, 60.0, 46.5), 0);
}

TEST(InkReach, TakesNothingFromThePartThatALineBelongsTo)
{
    const QImage blade = paintedLayer(chosen(kSword), 0);
    EXPECT_EQ(alphaAt(blade, 38.5, 46.5), 255);
    EXPECT_EQ(alphaAt(blade, 61.5, 46.5), 255);
    EXPECT_EQ(alphaAt(blade, 50.0, 3.5), 255);
}

// A line beside an area, as a pen without a fill beneath it draws, belongs to the area over its whole width.
TEST(InkReach, IsTheWholeWidthOfALineBesideTheOutline)
{
    const ChosenObjects found =
        chosen(circle(40, 50, 20, "#d9ad3c") + line("M18 50A22 22 0 1 1 62 50A22 22 0 1 1 18 50", "#111111", 4.0) +
               circle(81, 50, 15, "#3355cc") + line("M66 50A15 15 0 1 1 96 50A15 15 0 1 1 66 50", "#111111", 4.0));
    ASSERT_EQ(found.objects.size(), 2U);
    EXPECT_EQ(alphaAt(paintedLayer(found, 0), 16.5, 50.0), 255);
    EXPECT_EQ(alphaAt(paintedLayer(found, 0), 40.0, 26.5), 255);
}

// Where a whisker leaves a face nothing else could wear its beginning.
TEST(InkReach, LeavesNoCellOfALineToNoPart)
{
    const DIO_Drawing drawing =
        read(circle(50, 50, 30, "#ffcc4d") +
             line("M80.5 50A30.5 30.5 0 1 1 19.5 50A30.5 30.5 0 1 1 80.5 50M70 55L95 60", "#111111", 3.0));
    const ChosenObjects found = chooseObjects(drawing, ObjectChoice::AUTO);
    EXPECT_EQ(pixelsThatDiffer(painted(found.drawing, 200), painted(drawing, 200)), 0);
}

} // namespace
