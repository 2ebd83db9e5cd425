// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Compares masks with a picture that keeps every cell.
#include "form/raster/CellMask.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

#include <array>

namespace {

constexpr int kSide = 12; // of the picture
const QRect kPicture(0, 0, kSide, kSide);

// Which cells are covered; none outside the picture.
struct Cells
{
    std::array<std::array<bool, kSide>, kSide> covered{}; // by row

    bool at(int x, int y) const
    {
        return kPicture.contains(x, y) && covered[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
    }
};

// A box in the picture, possibly empty.
QRect someBox()
{
    const int left = *rc::gen::inRange(0, kSide);
    const int top = *rc::gen::inRange(0, kSide);
    return {left, top, *rc::gen::inRange(0, kSide + 1 - left), *rc::gen::inRange(0, kSide + 1 - top)};
}

// A mask and its cells; about one cell in so many is uncovered.
std::pair<CellMask, Cells> some()
{
    Cells cells;
    const int most = *rc::gen::inRange(2, 12);
    const CellMask mask = CellMask::where(someBox(), [&](int x, int y) {
        return cells.covered[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] = *rc::gen::inRange(0, most) > 0;
    });
    return {mask, cells};
}

template<typename Function>
int count(const QRect& box, Function function)
{
    int found = 0;
    for (int y = box.top(); y <= box.bottom(); ++y)
        for (int x = box.left(); x <= box.right(); ++x)
            found += function(x, y) ? 1 : 0;
    return found;
}

const QRect kAround = kPicture.adjusted(-2, -2, 2, 2);

} // namespace

RC_GTEST_PROP(CellMask, coversItsCells, ())
{
    const auto [mask, cells] = some();
    for (int y = kAround.top(); y <= kAround.bottom(); ++y)
        for (int x = kAround.left(); x <= kAround.right(); ++x)
            RC_ASSERT(mask.at(x, y) == cells.at(x, y));
    RC_ASSERT(mask.area() == count(kPicture, [&](int x, int y) { return cells.at(x, y); }));
    const QRect part = someBox();
    RC_ASSERT(mask.areaInside(part) == count(part, [&](int x, int y) { return cells.at(x, y); }));
}

RC_GTEST_PROP(CellMask, hasRunsWithUncoveredCellsBetweenThem, ())
{
    const CellMask mask = some().first;
    mask.forEachRun([&](int y, int from, int to) {
        RC_ASSERT(from < to);
        RC_ASSERT(!mask.at(from - 1, y));
        RC_ASSERT(!mask.at(to, y));
        for (int x = from; x < to; ++x)
            RC_ASSERT(mask.at(x, y));
    });
}

RC_GTEST_PROP(CellMask, hasAnOutlineOfTheCellsBesideUncoveredOnes, ())
{
    const auto [mask, cells] = some();
    std::vector<std::pair<int, int>> expected; // y, x
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x)
            if (cells.at(x, y) &&
                !(cells.at(x - 1, y) && cells.at(x + 1, y) && cells.at(x, y - 1) && cells.at(x, y + 1)))
                expected.emplace_back(y, x);
    std::vector<std::pair<int, int>> found;
    mask.forEachAtOutline([&](int x, int y) { found.emplace_back(y, x); });
    RC_ASSERT(found == expected);
}

RC_GTEST_PROP(CellMask, overlapsAndUnitesWithAnother, ())
{
    const auto [one, cells] = some();
    const auto [two, others] = some();
    RC_ASSERT(one.overlap(two) == count(kPicture, [&](int x, int y) { return cells.at(x, y) && others.at(x, y); }));
    CellMask both = one;
    both.unite(two);
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x)
            RC_ASSERT(both.at(x, y) == (cells.at(x, y) || others.at(x, y)));
    RC_ASSERT(both.box() == (one.box() | two.box()));
}

RC_GTEST_PROP(CellMask, isAPlaneOfCells, ())
{
    const auto [mask, cells] = some();
    const PixelPlane<char> plane = mask.planeOf(kAround);
    for (int y = 0; y < plane.height(); ++y)
        for (int x = 0; x < plane.width(); ++x)
            RC_ASSERT(plane.at(x, y) == (cells.at(x + kAround.left(), y + kAround.top()) ? 1 : 0));
}

TEST(CellMask, CountsCellsThatAreHalfCovered)
{
    const std::array<std::uint8_t, 6> coverage{0, 126, 128, 255, 130, 0};
    const CellMask mask = CellMask::ofCoverage(QRect(1, 1, 3, 2), coverage);
    std::vector<std::pair<int, int>> covered;
    mask.forEach([&](int x, int y) { covered.emplace_back(x, y); });
    EXPECT_THAT(covered, testing::ElementsAre(std::pair(3, 1), std::pair(1, 2), std::pair(2, 2)));
}

TEST(CellMask, CountsHalfOfTheMostCoveredCellOfAThinArea)
{
    const std::array<std::uint8_t, 4> coverage{10, 25, 50, 24};
    EXPECT_EQ(CellMask::ofCoverage(QRect(0, 0, 4, 1), coverage).area(), 2);
}
