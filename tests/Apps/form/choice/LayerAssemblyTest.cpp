// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What shapes wear is held to their outlines by clips.
#include "../FormDrawings.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <set>

using namespace form_drawings;

namespace {

// A disc whose outline is a polygon.
QByteArray polygon(int corners, double x, double radius, const QByteArray& colour)
{
    QByteArray outline;
    for (int i = 0; i < corners; ++i) {
        const double angle = 2.0 * std::numbers::pi * i / corners;
        outline += (i == 0 ? "M" : "L") + QByteArray::number(x + radius * std::cos(angle), 'f', 5) + " " +
                   QByteArray::number(50.0 + radius * std::sin(angle), 'f', 5);
    }
    return "<path fill='" + colour + "' d='" + outline + "Z'/>";
}

QByteArray levelLines(int lines, const QByteArray& ends)
{
    QByteArray content;
    for (int i = 0; i < lines; ++i) {
        const QByteArray y = QByteArray::number(30.0 + 40.0 * i / lines);
        content +=
            "<path fill='none' stroke='#111111' stroke-width='0.1' d='" + QByteArray(ends).replace('y', y) + "'/>";
    }
    return content;
}

QByteArray disc(int corners, int lines, const QByteArray& ends)
{
    return polygon(corners, 50.0, 35.0, "#ffcc4d") + levelLines(lines, ends);
}

struct Counts
{
    qint64 clipElements = 0;
    std::set<double> lines; // the heights at which lines are painted whole
    std::set<double> clippedLines;
};

bool isDisc(const DIO_Shape& shape)
{
    return shape.path.boundingRect().height() > 30.0;
}

void count(const DIO_Layer& layer, Counts& counts)
{
    for (const DIO_Shape& shape : layer.shapes) {
        counts.clipElements += shape.clip ? shape.clip->elementCount() : 0;
        const QRectF box = shape.path.boundingRect();
        if (box.height() < 1.0)
            (shape.clip ? counts.clippedLines : counts.lines).insert(box.center().y());
    }
}

Counts countsOf(const DIO_Layer& layer)
{
    Counts counts;
    count(layer, counts);
    return counts;
}

Counts countsOf(const ChosenObjects& found)
{
    Counts counts;
    for (const DIO_Layer& layer : found.drawing.layers)
        count(layer, counts);
    return counts;
}

TEST(LayerAssembly, HoldsLinesThatGoOnBesideAnObjectToItsOutline)
{
    EXPECT_EQ(countsOf(chosen(disc(100, 20, "M10 yH90"))).clippedLines.size(), 20U);
}

// Else 100 lines on an outline of 50,000 elements would be clipped by many millions.
TEST(LayerAssembly, PaintsLinesWholeWhereTheirClipsWouldHaveMillionsOfElements)
{
    Counts counts = countsOf(chosen(disc(50'000, 100, "M40 yH60")));
    EXPECT_GT(counts.clippedLines.size(), 0U);
    EXPECT_GT(counts.lines.size(), 0U);
    counts.lines.merge(counts.clippedLines);
    EXPECT_EQ(counts.lines.size(), 100U);
    // Two million and what a single line adds.
    EXPECT_GT(counts.clipElements, 2'000'000);
    EXPECT_LT(counts.clipElements, 2'500'000);
}

// Else each disc would paint all lines, of thousands as of these. On the lower disc the upper one would hide them.
TEST(LayerAssembly, PaintsEachLineWholeOnceOnTheUppermostDiscThatWearsIt)
{
    const QByteArray discs = polygon(50'000, 29.0, 20.0, "#ffcc4d") + polygon(50'000, 71.0, 20.0, "#3b88c3");
    const ChosenObjects found = chosen(discs + levelLines(100, "M5 yH95"));
    std::vector<Counts> ofDiscs;
    for (const DIO_Layer& layer : found.drawing.layers)
        if (std::ranges::any_of(layer.shapes, isDisc))
            ofDiscs.push_back(countsOf(layer));
    ASSERT_EQ(ofDiscs.size(), 2U);
    EXPECT_GT(ofDiscs[0].clippedLines.size(), 0U);
    EXPECT_EQ(ofDiscs[0].lines.size(), 0U);
    EXPECT_GT(ofDiscs[1].lines.size(), 50U);
}

} // namespace
