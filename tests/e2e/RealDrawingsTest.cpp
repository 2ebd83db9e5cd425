// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// More than a thousand drawings from outside the project, each through the whole program with the plug-in loaded as a
// plug-in: every one renders, and the normal map covers what the drawing covers.
#include "QuarvelCelCore/CEL_WithFormat.h"
#include "jobs/drawing/NormalMapJob.h"
#include "jobs/drawing/ReadDrawing.h"

#include <QDirIterator>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr int kSize = 256;
constexpr int kAtLeast = 1000;

// Files of a moderate size, in a fixed order.
QStringList realDrawings()
{
    QStringList drawings;
    QDirIterator files(QStringLiteral(REAL_DRAWINGS), {QStringLiteral("*.svg")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext())
        drawings.append(files.next());
    drawings.sort();
    return drawings;
}

// In steps of 16 bits.
int coverageAt(const CEL_PixmapArea& pixmap, int x, int y)
{
    int coverage = 0;
    CEL_withFormat(pixmap, [&](const auto& typed) {
        using Traits = CEL_PixelTraits<CEL_PixelOf<decltype(typed)>>;
        if (const auto* const pixel = typed.find(x, y))
            coverage = static_cast<int>(std::lround(32767.0 * pixel->a / Traits::kFull));
    });
    return coverage;
}

// A coverage of 0.99 and more counts as full, every object on top rounds down once, and where a few shapes just touch a
// pixel, the drawing adds up what the smallest steps of their coverage, a 255th each, are.
int largestDifference(const ShownFrame& frame)
{
    int largest = 0;
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < frame.window.width(); ++x)
            largest = std::max(largest, std::abs(coverageAt(*frame.picture, x, y) - coverageAt(*frame.drawing, x, y)));
    return largest;
}

class RealDrawing : public testing::TestWithParam<int>
{};

} // namespace

// The set is divided into shares, so that the machine's cores can work in parallel.
constexpr int kShares = 8;

TEST_P(RealDrawing, RendersAndCoversWhatTheDrawingCovers)
{
    const QStringList drawings = realDrawings();
    ASSERT_GE(drawings.size(), kAtLeast) << "the package with the drawings is missing: ./dev test installs it";
    NormalMapSettings settings;
    settings.size = QSize(kSize, kSize);
    for (qsizetype i = GetParam(); i < drawings.size(); i += kShares) {
        SCOPED_TRACE(drawings[i].toStdString());
        const UT_Result<ReadDrawing> read = readDrawing(drawings[i], {});
        ASSERT_TRUE(read) << read.error().text.toStdString();
        const auto rendered = renderNormalMap(read->drawing, settings, {.drawing = true});
        ASSERT_TRUE(rendered) << rendered.error().text.toStdString();
        const auto layers = static_cast<int>(read->drawing.layers.size());
        EXPECT_LE(largestDifference(*rendered), 328 + 2 * layers + 4 * 129);
    }
}

INSTANTIATE_TEST_SUITE_P(Shares, RealDrawing, testing::Range(0, kShares));
