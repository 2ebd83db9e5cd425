// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Blurs of pixmaps: rectangle, channels, rounding, both formats.
#include "BlurAlgo/BlurAlgo.h"
#include "Host/BlurAlgo/DirectBlur.h"

#include <gtest/gtest.h>

#include <random>
#include <type_traits>

using BlurAlgo::PaddingType;
using Math::Box2di;
using Math::Size2di;

namespace {

const Size2di kSize{200, 100};
const Box2di kCanvas(-10, -20, 190, 80);
constexpr PaddingType kTransparent = BlurAlgo::TRANSPARENT_PADDING;

FilterImage gaussian(double sx, double sy, bool normalise = true)
{
    FilterImage filter(0, 0);
    BlurAlgo::getGaussianFilter(filter, sx, sy, normalise);
    return filter;
}

template<typename Pixmap>
class BlurOf : public testing::Test
{
public:
    using Pixel = typename Pixmap::PixelType;
    using Channel = typename CEL_PixelTraits<Pixel>::Channel;
    static constexpr Channel kFull = CEL_PixelTraits<Pixel>::kFull;
    static constexpr bool kIntegers = std::is_integral_v<Channel>;
    /// Two steps of 16 bits, and half a step for rounding.
    static constexpr double kTolerance = kIntegers ? 2.5 : 1.0 / 16384;

    /// A pixmap with noise in all channels.
    static Pixmap noise(const Box2di& rect)
    {
        Pixmap pixmap(kSize, kCanvas);
        pixmap.realloc(rect, true);
        std::mt19937 random(5);
        const auto value = [&] { return static_cast<Channel>(kFull * static_cast<double>(random() % 1001) / 1000); };
        for (int y = rect.y1; y < rect.y2; ++y)
            for (Pixel& pixel : pixmap.row(y))
                pixel = Pixel{value(), value(), value(), value()};
        return pixmap;
    }

    /// One channel's exact blur.
    static direct::Exact exact(const Pixmap& pixmap, Channel Pixel::*channel, double sigmaX, double sigmaY)
    {
        direct::Plane plane(pixmap.allocatedRect());
        for (int y = plane.rect.y1; y < plane.rect.y2; ++y)
            for (int x = plane.rect.x1; x < plane.rect.x2; ++x)
                plane.at(x, y) = static_cast<float>(pixmap.at(x, y).*channel);
        return direct::blurred(plane, sigmaX, sigmaY);
    }

    static UT_SharedPtr<Pixmap> blurred(const Pixmap& pixmap, const FilterImage& filter, int channels)
    {
        return BlurAlgo::blur(pixmap, filter, pixmap.canvasRect(), channels, kTransparent)
            .template dynamicCast<Pixmap>();
    }

    static void expectNear(const Pixmap& result, Channel Pixel::*channel, const direct::Exact& wanted)
    {
        ASSERT_EQ(result.allocatedRect(), wanted.rect);
        for (int y = wanted.rect.y1; y < wanted.rect.y2; ++y)
            for (int x = wanted.rect.x1; x < wanted.rect.x2; ++x)
                ASSERT_NEAR(result.at(x, y).*channel, wanted.at(x, y), kTolerance) << x << ", " << y;
    }
};

using Pixmaps = testing::Types<CEL_PixmapAreaRGBA16, CEL_PixmapAreaRGBAFloat>;
TYPED_TEST_SUITE(BlurOf, Pixmaps);

} // namespace

TYPED_TEST(BlurOf, GrowsTheRectangleAndKeepsSizeAndCanvas)
{
    const auto input = this->noise(Box2di(-4, 3, 20, 9));
    const auto result = this->blurred(input, gaussian(1.1, 3.0), 2);
    ASSERT_TRUE(result);
    EXPECT_EQ(result->allocatedRect(), Box2di(-9, -9, 25, 21));
    EXPECT_EQ(result->size(), kSize);
    EXPECT_EQ(result->canvasRect(), kCanvas);
}

TYPED_TEST(BlurOf, KeepsThePixmapsOwnCanvasWhicheverRectangleIsPassed)
{
    const auto input = this->noise(Box2di(0, 0, 5, 5));
    const auto result = BlurAlgo::blur(input, gaussian(1.0, 1.0), Box2di(0, 0, 9, 9), 2, kTransparent);
    EXPECT_EQ(result->canvasRect(), kCanvas);
}

TYPED_TEST(BlurOf, GrowsByNoMoreThanFourDiagonalsOfTheCanvas)
{
    const auto input = this->noise(Box2di(0, 0, 2, 1));
    // A canvas of 30 x 40 has a diagonal of 50.
    const auto result = BlurAlgo::blur(input, gaussian(1000.0, 10.0), Box2di(0, 0, 30, 40), 2, kTransparent);
    ASSERT_TRUE(result);
    EXPECT_EQ(result->allocatedRect(), Box2di(-200, -40, 202, 41));
}

TYPED_TEST(BlurOf, BlursRedAloneIntoAPictureOfOneChannel)
{
    const auto input = this->noise(Box2di(-7, 5, 40, 31));
    for (const double sigma : {0.6, 3.0, 3.7, 8.0}) {
        const auto result = this->blurred(input, gaussian(sigma, sigma), 2);
        ASSERT_TRUE(result);
        this->expectNear(*result, &TestFixture::Pixel::r, this->exact(input, &TestFixture::Pixel::r, sigma, sigma));
        for (int y = result->allocatedRect().y1; y < result->allocatedRect().y2; ++y)
            for (const auto& pixel : result->row(y)) {
                ASSERT_EQ(pixel.g, 0);
                ASSERT_EQ(pixel.b, 0);
                ASSERT_EQ(pixel.a, pixel.r != 0 ? TestFixture::kFull : typename TestFixture::Channel{0});
            }
    }
}

TYPED_TEST(BlurOf, BlursRedThatStandsInPixelsWithoutAlpha)
{
    TypeParam input(kSize, kCanvas);
    input.realloc(Box2di(0, 0, 1, 1), true);
    input.at(0, 0).r = TestFixture::kFull;
    const auto result = this->blurred(input, gaussian(1.0, 1.0), 2);
    // Full scale divided by 2 pi.
    EXPECT_NEAR(result->at(0, 0).r, TestFixture::kFull / 6.2831853, TestFixture::kIntegers ? 0.5 : 1e-5);
    EXPECT_EQ(result->at(0, 0).a, TestFixture::kFull);
}

TYPED_TEST(BlurOf, BlursAlphaAloneAndLeavesTheColours)
{
    const auto input = this->noise(Box2di(2, 5, 21, 17));
    const auto result = this->blurred(input, gaussian(2.0, 4.0), 1);
    ASSERT_TRUE(result);
    this->expectNear(*result, &TestFixture::Pixel::a, this->exact(input, &TestFixture::Pixel::a, 2.0, 4.0));
    for (int y = result->allocatedRect().y1; y < result->allocatedRect().y2; ++y)
        for (int x = result->allocatedRect().x1; x < result->allocatedRect().x2; ++x) {
            const auto* before = input.find(x, y);
            const auto wanted = before ? *before : typename TestFixture::Pixel{};
            ASSERT_EQ(result->at(x, y).r, wanted.r);
            ASSERT_EQ(result->at(x, y).g, wanted.g);
            ASSERT_EQ(result->at(x, y).b, wanted.b);
        }
}

TYPED_TEST(BlurOf, BlursAllFourChannels)
{
    const auto input = this->noise(Box2di(-30, -21, 11, 5));
    const auto result = this->blurred(input, gaussian(5.0, 1.5), 0);
    ASSERT_TRUE(result);
    for (const auto channel :
         {&TestFixture::Pixel::r, &TestFixture::Pixel::g, &TestFixture::Pixel::b, &TestFixture::Pixel::a})
        this->expectNear(*result, channel, this->exact(input, channel, 5.0, 1.5));
}

TYPED_TEST(BlurOf, GivesTheSameRedWhetherAloneOrNot)
{
    const auto input = this->noise(Box2di(-3, -4, 60, 33));
    for (const double sigma : {1.0, 4.0}) {
        const auto alone = this->blurred(input, gaussian(sigma, sigma), 2);
        const auto all = this->blurred(input, gaussian(sigma, sigma), 0);
        for (int y = alone->allocatedRect().y1; y < alone->allocatedRect().y2; ++y)
            for (int x = alone->allocatedRect().x1; x < alone->allocatedRect().x2; ++x)
                ASSERT_EQ(alone->at(x, y).r, all->at(x, y).r);
    }
}

TYPED_TEST(BlurOf, MultipliesByTheGainOfAFilterThatIsNotNormalised)
{
    TypeParam input(kSize, kCanvas);
    input.realloc(Box2di(5, 5, 6, 6), true);
    input.at(5, 5) = {TestFixture::kFull, 0, 0, 0};
    const auto result = this->blurred(input, gaussian(2.0, 2.0, false), 2);
    EXPECT_NEAR(result->at(5, 5).r, TestFixture::kFull, TestFixture::kTolerance) << "the largest weight is 1";
    EXPECT_NEAR(result->at(7, 5).r, TestFixture::kFull * std::exp(-0.5), TestFixture::kTolerance);
}

TYPED_TEST(BlurOf, CopiesRedWithoutADeviation)
{
    const auto input = this->noise(Box2di(3, 3, 30, 7));
    const auto result = this->blurred(input, FilterImage(0, 0), 2);
    ASSERT_EQ(result->allocatedRect(), input.allocatedRect());
    for (int y = 3; y < 7; ++y)
        for (int x = 3; x < 30; ++x)
            ASSERT_EQ(result->at(x, y).r, input.at(x, y).r);
}

TYPED_TEST(BlurOf, KeepsTheInputAsItIs)
{
    const auto input = this->noise(Box2di(0, 0, 20, 20));
    const auto before = this->noise(Box2di(0, 0, 20, 20));
    this->blurred(input, gaussian(4.0, 4.0), 2);
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 20; ++x)
            ASSERT_EQ(input.at(x, y), before.at(x, y));
}

TYPED_TEST(BlurOf, GivesNoPixelsOfNoPixels)
{
    const TypeParam input(kSize, kCanvas);
    for (const int channels : {0, 1, 2}) {
        const auto result = this->blurred(input, gaussian(4.0, 4.0), channels);
        ASSERT_TRUE(result);
        EXPECT_TRUE(result->allocatedRect().isEmpty());
        EXPECT_EQ(result->canvasRect(), kCanvas);
    }
}

TYPED_TEST(BlurOf, RefusesWhatItDoesNotKnow)
{
    const auto input = this->noise(Box2di(0, 0, 4, 4));
    EXPECT_FALSE(this->blurred(input, gaussian(1.0, 1.0), 3));
    EXPECT_FALSE(this->blurred(input, gaussian(1.0, 1.0), -1));
    EXPECT_FALSE(BlurAlgo::blur(input, gaussian(1.0, 1.0), kCanvas, 2, static_cast<PaddingType>(1)));
}

TYPED_TEST(BlurOf, RefusesRectanglesBeyondItsCoordinates)
{
    TypeParam input(kSize, kCanvas);
    const int far = BA_GaussianBlur::kLargestCoordinate;
    input.realloc(Box2di(far - 2, 0, far, 1), true);
    EXPECT_FALSE(this->blurred(input, gaussian(1.0, 1.0), 2));
    EXPECT_TRUE(this->blurred(input, gaussian(0.0, 1.0), 2));
}

namespace {

// Noise from 0 to 1 as a float pixmap's red and as depths.
CEL_PixmapAreaZ depthsOfRed(const CEL_PixmapAreaRGBAFloat& input)
{
    CEL_PixmapAreaZ depths(input.size(), input.canvasRect());
    depths.realloc(input.allocatedRect(), true);
    for (int y = input.allocatedRect().y1; y < input.allocatedRect().y2; ++y)
        for (int x = input.allocatedRect().x1; x < input.allocatedRect().x2; ++x)
            depths.at(x, y).value = input.at(x, y).r;
    return depths;
}

} // namespace

TEST(BlurOfDepths, GivesTheValuesOfAFloatPixmapsRed)
{
    const auto input = BlurOf<CEL_PixmapAreaRGBAFloat>::noise(Box2di(20, 5, 61, 31));
    for (const bool normalise : {true, false}) {
        const FilterImage filter = gaussian(4.0, 3.0, normalise);
        const auto red = BlurOf<CEL_PixmapAreaRGBAFloat>::blurred(input, filter, 2);
        const auto depths =
            BlurAlgo::blur(depthsOfRed(input), filter, kCanvas, 2, kTransparent).dynamicCast<CEL_PixmapAreaZ>();
        ASSERT_TRUE(depths);
        ASSERT_EQ(depths->allocatedRect(), red->allocatedRect());
        for (int y = red->allocatedRect().y1; y < red->allocatedRect().y2; ++y)
            for (int x = red->allocatedRect().x1; x < red->allocatedRect().x2; ++x)
                ASSERT_EQ(depths->at(x, y).value, red->at(x, y).r);
    }
}

TEST(BlurOfDepths, StaysInsideOfTheCanvas)
{
    const auto input = BlurOf<CEL_PixmapAreaRGBAFloat>::noise(Box2di(-15, -10, 30, 31));
    const auto filter = gaussian(4.0, 4.0);
    const auto red = BlurOf<CEL_PixmapAreaRGBAFloat>::blurred(input, filter, 2);
    const auto depths =
        BlurAlgo::blur(depthsOfRed(input), filter, kCanvas, 2, kTransparent).dynamicCast<CEL_PixmapAreaZ>();
    ASSERT_EQ(depths->allocatedRect(), Box2di(-10, -20, 46, 47)) << "16 more on each side, cut on the left and above";
    for (int y = -20; y < 47; ++y)
        for (int x = -10; x < 46; ++x)
            ASSERT_EQ(depths->at(x, y).value, red->at(x, y).r);
}

TEST(BlurOfDepths, HasNoPixelsWhereTheCanvasIsOutOfReach)
{
    const auto input = BlurOf<CEL_PixmapAreaRGBAFloat>::noise(Box2di(300, 300, 310, 310));
    const auto depths = BlurAlgo::blur(depthsOfRed(input), gaussian(4.0, 4.0), kCanvas, 2, kTransparent);
    ASSERT_TRUE(depths);
    EXPECT_TRUE(depths->allocatedRect().isEmpty());
}

TEST(BlurOfIntegers, RoundsToTheNearestWithHalvesAwayFromZero)
{
    // Without a deviation the gain of a filter is 1; with 0.5 in y alone, 1 + 2 (e^-2 + e^-8 + e^-18) = 1.27134. The
    // pixel itself has weight 1 / 1.27134 = 0.786573: 10 becomes 7.87 and -10 becomes -7.87.
    CEL_PixmapAreaRGBA16 input(kSize, kCanvas);
    input.realloc(Box2di(0, 0, 37, 1), true);
    for (int x = 0; x < 37; ++x)
        input.at(x, 0).r = static_cast<std::int16_t>(x % 2 == 0 ? 10 : -10);
    const auto result =
        BlurAlgo::blur(input, gaussian(0.0, 0.5), kCanvas, 2, kTransparent).dynamicCast<CEL_PixmapAreaRGBA16>();
    for (int x = 0; x < 37; ++x) {
        ASSERT_EQ(result->at(x, 0).r, x % 2 == 0 ? 8 : -8);
        // Beside it 10 e^-2 / 1.27134 = 1.0645, two away 10 e^-8 / 1.27134 = 0.0026.
        ASSERT_EQ(result->at(x, -1).r, x % 2 == 0 ? 1 : -1);
        ASSERT_EQ(result->at(x, 2), CEL_PixelRGBA16{});
    }
}

TEST(BlurOfIntegers, ClampsToTheChannelsRange)
{
    CEL_PixmapAreaRGBA16 input(kSize, kCanvas);
    input.realloc(Box2di(0, 0, 37, 1), true);
    for (int x = 0; x < 37; ++x)
        input.at(x, 0).r = static_cast<std::int16_t>(x % 2 == 0 ? 32767 : -32768);
    // The gain cancels the weight, so the values stay the same or exceed the range slightly.
    const auto result =
        BlurAlgo::blur(input, gaussian(0.0, 0.5, false), kCanvas, 2, kTransparent).dynamicCast<CEL_PixmapAreaRGBA16>();
    for (int x = 0; x < 37; ++x)
        ASSERT_EQ(result->at(x, 0).r, x % 2 == 0 ? 32767 : -32767);
}
