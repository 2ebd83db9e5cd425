// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Wide forms have no grain, and float does not change anything else: neither coverage nor the look of abutting shapes.
#include "jobs/shown/RenderPrecision.h"

#include "QuarvelNormalMap/NM_Direction.h"
#include "QuarvelNormalMap/NM_NormalPicture.h"
#include "TestFolder.h"
#include "jobs/drawing/NormalMapJob.h"
#include "jobs/drawing/ReadDrawing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

constexpr int kSide = 512;
constexpr double kDegrees = 180.0 / std::numbers::pi;

const char* const kDisc = R"(<circle cx="50" cy="50" r="40" fill="#d02020"/>)";
// The same disc in two halves that meet between two columns of pixels.
const char* const kHalves = R"(<path d="M50.05 10A40 40 0 0 0 50.05 90z" fill="#d02020"/>
  <path d="M50.05 10A40 40 0 0 1 50.05 90z" fill="#d02020"/>)";
const char* const kTwoDiscs = R"(<circle cx="40" cy="50" r="30" fill="#d02020"/>
  <circle cx="65" cy="50" r="30" fill="#20d020"/>)";

class RenderPrecision : public testing::Test
{
protected:
    LayeredDrawing read(const char* content, ObjectChoice objects = ObjectChoice::ONE)
    {
        const QString path = _folder.write(
            "drawing.svg",
            QByteArray(R"(<svg xmlns="http://www.w3.org/2000/svg" width="100" height="100">)") + content + "</svg>");
        auto made = readDrawing(path, {.objects = objects, .shape = FormShape::RIM});
        EXPECT_TRUE(made) << made.error().sentence().toStdString();
        return made->drawing;
    }

    static NormalMapSettings form(double bevel, double elevation)
    {
        NormalMapSettings settings;
        settings.size = QSize(kSide, kSide);
        settings.allObjects.bevel = bevel;
        settings.allObjects.elevation = elevation;
        settings.allObjects.smoothness = 2.0;
        return settings;
    }
    // Bevel 240 and elevation 8 of 720 are 171 and 213 pixels.
    static NormalMapSettings wide() { return form(240.0, 8.0); }
    static NormalMapSettings narrow() { return form(24.0, 1.0); }

    static ShownFrame render(const LayeredDrawing& drawing, const NormalMapSettings& settings,
                             const ShownParts& wanted = {})
    {
        auto frame = renderNormalMap(drawing, settings, wanted);
        EXPECT_TRUE(frame) << frame.error().sentence().toStdString();
        return *frame;
    }

    static bool isFloat(const ShownFrame& frame) { return frame.picture->format() == CEL_FORMAT_RGBAFLOAT; }

    template<typename Function>
    static void forPixels(const CEL_PixmapArea& pixmap, const Function& function)
    {
        const auto visit = [&](const auto& typed) {
            for (int y = 0; y < kSide; ++y)
                for (int x = 0; x < kSide; ++x)
                    if (const auto* const pixel = typed.find(x, y))
                        function(x, y, *pixel);
        };
        if (const auto* const whole = dynamic_cast<const CEL_PixmapAreaRGBA16*>(&pixmap))
            visit(*whole);
        else
            visit(dynamic_cast<const CEL_PixmapAreaRGBAFloat&>(pixmap));
    }

    static std::vector<Math::Vector3d> normalsOf(const ShownFrame& frame)
    {
        std::vector<Math::Vector3d> normals(std::size_t{kSide} * kSide, NM_kFacingViewer);
        forPixels(*frame.picture,
                  [&](int x, int y, const auto& pixel) { normals[place(x, y)] = NM_directionOf(pixel); });
        return normals;
    }

    static std::vector<double> coverageOf(const CEL_PixmapArea& pixmap)
    {
        std::vector<double> coverage(std::size_t{kSide} * kSide, 0.0);
        const double full = pixmap.format() == CEL_FORMAT_RGBA16 ? 32767.0 : 1.0;
        forPixels(pixmap, [&](int x, int y, const auto& pixel) { coverage[place(x, y)] = pixel.a / full; });
        return coverage;
    }

    static std::size_t place(int x, int y) { return static_cast<std::size_t>(y) * kSide + static_cast<std::size_t>(x); }

    static double angle(const Math::Vector3d& a, const Math::Vector3d& b)
    {
        return std::hypot(a.x - b.x, a.y - b.y, a.z - b.z) * kDegrees;
    }

private:
    TestFolder _folder;
};

TEST_F(RenderPrecision, IsFloatForWideFormsOnly)
{
    EXPECT_TRUE(isFloat(render(read(kDisc), wide())));
    EXPECT_FALSE(isFloat(render(read(kDisc), narrow())));
    // The same form is finer in a small picture.
    NormalMapSettings small = wide();
    small.size = QSize(128, 128);
    EXPECT_FALSE(isFloat(render(read(kDisc), small)));
    NormalMapSettings asked = narrow();
    asked.renderInFloat = true;
    EXPECT_TRUE(isFloat(render(read(kDisc), asked)));
}

TEST_F(RenderPrecision, IsWholeWhereFloatWouldLoseLevels)
{
    NormalMapSettings settings = wide();
    settings.levels = {{QColor(0xd0, 0x20, 0x20), 128}};
    EXPECT_FALSE(isFloat(render(read(kDisc), settings)));
}

TEST_F(RenderPrecision, IsAsGivenWhereTheChannelsAreLookedAt)
{
    const ShownFrame frame = render(read(kDisc), wide(), {.channels = true});
    EXPECT_EQ(frame.channels->format(), CEL_FORMAT_RGBA16);
}

// The bending of a smooth form changes slowly from pixel to pixel; grain makes it jump.
TEST_F(RenderPrecision, LeavesNoGrain)
{
    const auto normals = normalsOf(render(read(kDisc), wide()));
    double sum = 0.0;
    int count = 0;
    for (int y = kSide / 4; y < kSide * 3 / 4; ++y)
        for (int x = kSide / 4; x < kSide * 3 / 4; ++x) {
            const Math::Vector3d& before = normals[place(x - 1, y)];
            const Math::Vector3d& here = normals[place(x, y)];
            const Math::Vector3d& after = normals[place(x + 1, y)];
            const double bending = angle({before.x + after.x, before.y + after.y, before.z + after.z},
                                         {2.0 * here.x, 2.0 * here.y, 2.0 * here.z});
            sum += bending * bending;
            ++count;
        }
    EXPECT_LT(std::sqrt(sum / count), 0.03) << "degrees";
}

TEST_F(RenderPrecision, LeavesCoverageAsTheDrawingHasIt)
{
    const LayeredDrawing drawing = read(kTwoDiscs, ObjectChoice::SHAPES);
    const ShownFrame fine = render(drawing, wide(), {.drawing = true});
    ASSERT_TRUE(isFloat(fine));
    NormalMapSettings settings = narrow();
    const ShownFrame whole = render(drawing, settings);
    ASSERT_FALSE(isFloat(whole));
    const auto a = coverageOf(*fine.picture);
    const auto b = coverageOf(*whole.picture);
    const auto c = coverageOf(*fine.drawing);
    int soft = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        ASSERT_NEAR(a[i], c[i], 1e-4) << i % kSide << ' ' << i / kSide;
        // The node treats a coverage of 0.99 or more as full.
        ASSERT_NEAR(a[i], b[i], 0.011) << i % kSide << ' ' << i / kSide;
        soft += a[i] > 0.0 && a[i] < 1.0 ? 1 : 0;
    }
    EXPECT_GT(soft, 500);
}

TEST_F(RenderPrecision, IsTheSameWhetherOrNotTheDrawingIsWanted)
{
    // Without the drawing's colours, its coverage is found in another way.
    const LayeredDrawing drawing = read(kTwoDiscs, ObjectChoice::SHAPES);
    const ShownFrame with = render(drawing, wide(), {.drawing = true});
    const ShownFrame without = render(drawing, wide());
    ASSERT_TRUE(isFloat(with));
    ASSERT_EQ(with.picture->allocatedRect(), without.picture->allocatedRect());
    const auto& a = dynamic_cast<const CEL_PixmapAreaRGBAFloat&>(*with.picture);
    const auto& b = dynamic_cast<const CEL_PixmapAreaRGBAFloat&>(*without.picture);
    for (int y = a.allocatedRect().y1; y < a.allocatedRect().y2; ++y)
        ASSERT_TRUE(std::ranges::equal(a.row(y), b.row(y))) << y;
}

TEST_F(RenderPrecision, ShowsNoSeamBetweenShapesThatAbut)
{
    NormalMapSettings settings = form(60.0, 1.3);
    settings.renderInFloat = true;
    const auto whole = normalsOf(render(read(kDisc), settings));
    const auto halves = normalsOf(render(read(kHalves), settings));
    double largest = 0.0;
    for (int y = kSide / 4; y < kSide * 3 / 4; ++y)
        for (int x = kSide / 2 - 30; x < kSide / 2 + 30; ++x)
            largest = std::max(largest, angle(whole[place(x, y)], halves[place(x, y)]));
    EXPECT_LT(largest, 0.2) << "degrees";
}

TEST_F(RenderPrecision, KeepsWhatIsFlatExactlyFlat)
{
    // A bevel of 90 units reaches 64 pixels inwards; the square is 410 pixels wide.
    const LayeredDrawing square = read(R"(<rect x="10" y="10" width="80" height="80" fill="#d02020"/>)");
    const ShownFrame frame = render(square, form(90.0, 20.0));
    ASSERT_TRUE(isFloat(frame));
    const auto picture = NM_toPicture(*frame.picture, frame.window, {});
    ASSERT_TRUE(picture);
    for (int y = kSide / 2 - 100; y < kSide / 2 + 100; ++y) {
        const auto row = picture->row<std::uint16_t>(y);
        for (std::size_t x = kSide / 2 - 100; x < kSide / 2 + 100; ++x) {
            ASSERT_EQ(row[4 * x], 32768) << x << ' ' << y;
            ASSERT_EQ(row[4 * x + 1], 32768) << x << ' ' << y;
            ASSERT_EQ(row[4 * x + 2], 65535) << x << ' ' << y;
        }
    }
}

} // namespace
