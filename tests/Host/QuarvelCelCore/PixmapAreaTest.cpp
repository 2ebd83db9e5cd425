// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What a pixmap promises about its allocated rectangle, in every format.
#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "QuarvelCelCore/CEL_PixmapConversion.h"
#include "QuarvelCelCore/CEL_PixmapFactory.h"

#include <gtest/gtest.h>

#include <rapidcheck/gtest.h>

using Math::Box2di;
using Math::Size2di;

namespace {

const Size2di kSize{8, 6};
const Box2di kCanvas(0, 0, 8, 6);

template<typename Pixmap>
class PixmapArea : public testing::Test
{
public:
    Pixmap pixmap{kSize, kCanvas};
    using Pixel = typename Pixmap::PixelType;
};

using Pixmaps = testing::Types<CEL_PixmapAreaRGBA16, CEL_PixmapAreaRGBAFloat, CEL_PixmapAreaZ>;
TYPED_TEST_SUITE(PixmapArea, Pixmaps);

CEL_PixelRGBA16 marked(CEL_PixelRGBA16)
{
    return {1, 2, 3, 4};
}
CEL_PixelRGBAFloat marked(CEL_PixelRGBAFloat)
{
    return {0.25F, 0.5F, 0.75F, 1.0F};
}
CEL_PixelFloat marked(CEL_PixelFloat)
{
    return {0.5F};
}

} // namespace

TYPED_TEST(PixmapArea, HoldsNothingWhenFresh)
{
    EXPECT_TRUE(this->pixmap.allocatedRect().isEmpty());
    EXPECT_EQ(this->pixmap.find(0, 0), nullptr);
    EXPECT_EQ(this->pixmap.canvasRect(), kCanvas);
    EXPECT_EQ(this->pixmap.size(), kSize);
}

TYPED_TEST(PixmapArea, MayBeAllocatedOutsideOfTheCanvas)
{
    this->pixmap.realloc(Box2di(-3, -2, 1, 1), true);
    EXPECT_NE(this->pixmap.find(-3, -2), nullptr);
    EXPECT_NE(this->pixmap.find(0, 0), nullptr);
    EXPECT_EQ(this->pixmap.find(1, 0), nullptr) << "the right end does not belong to the rectangle";
    EXPECT_EQ(this->pixmap.find(0, 1), nullptr) << "the lower end does not belong to the rectangle";
}

TYPED_TEST(PixmapArea, KeepsWhatOverlapsWhenReallocatedAndZeroesTheRest)
{
    this->pixmap.realloc(Box2di(1, 1, 3, 3), true);
    this->pixmap.at(2, 2) = marked(typename TestFixture::Pixel{});
    this->pixmap.realloc(Box2di(2, 2, 5, 4), true);
    EXPECT_EQ(this->pixmap.at(2, 2), marked(typename TestFixture::Pixel{}));
    EXPECT_EQ(this->pixmap.at(3, 2), typename TestFixture::Pixel{});
    EXPECT_EQ(this->pixmap.at(4, 3), typename TestFixture::Pixel{});
    EXPECT_EQ(this->pixmap.find(1, 1), nullptr);
}

TYPED_TEST(PixmapArea, KeepsThePixelsOfAnyPartThatItIsCutTo)
{
    // The corners of each part are marked: the large part remains in its memory, the small one moves to another.
    const auto mark = marked(typename TestFixture::Pixel{});
    for (const Box2di& part : {Box2di(1, 1, 7, 6), Box2di(3, 2, 5, 4)}) {
        this->pixmap.realloc(Box2di(), true);
        this->pixmap.realloc(kCanvas, true);
        for (const auto& [x, y] : {std::pair(part.x1, part.y1), std::pair(part.x2 - 1, part.y2 - 1)})
            this->pixmap.at(x, y) = mark;
        this->pixmap.realloc(part, true);
        int marks = 0;
        for (int y = part.y1; y < part.y2; ++y)
            marks += static_cast<int>(std::ranges::count(this->pixmap.row(y), mark));
        EXPECT_EQ(marks, 2);
        EXPECT_EQ(this->pixmap.at(part.x1, part.y1), mark);
        EXPECT_EQ(this->pixmap.at(part.x2 - 1, part.y2 - 1), mark);
        EXPECT_EQ(this->pixmap.find(0, 0), nullptr);
    }
}

TYPED_TEST(PixmapArea, KeepsItsPixelsWhenItIsCutAgainClonedAndGrown)
{
    const auto mark = marked(typename TestFixture::Pixel{});
    this->pixmap.realloc(kCanvas, true);
    this->pixmap.at(3, 3) = mark;
    this->pixmap.realloc(Box2di(1, 1, 8, 6), true);
    this->pixmap.realloc(Box2di(2, 2, 7, 6), true);
    const auto clone = this->pixmap.clone().template dynamicCast<TypeParam>();
    this->pixmap.realloc(Box2di(-1, 0, 9, 7), true);
    for (int y = 0; y < 7; ++y)
        for (int x = -1; x < 9; ++x)
            ASSERT_EQ(this->pixmap.at(x, y) == mark, x == 3 && y == 3) << x << ", " << y;
    for (int y = 2; y < 6; ++y)
        for (int x = 2; x < 7; ++x)
            ASSERT_EQ(clone->at(x, y) == mark, x == 3 && y == 3) << x << ", " << y;
}

TYPED_TEST(PixmapArea, GrowsToTheUnionWithAnother)
{
    this->pixmap.realloc(Box2di(0, 0, 2, 2), true);
    this->pixmap.at(0, 0) = marked(typename TestFixture::Pixel{});
    TypeParam other(kSize, kCanvas);
    other.realloc(Box2di(5, 4, 9, 7), true);
    this->pixmap.reallocToFit(other);
    EXPECT_EQ(this->pixmap.allocatedRect(), Box2di(0, 0, 9, 7));
    EXPECT_EQ(this->pixmap.at(0, 0), marked(typename TestFixture::Pixel{}));
}

TYPED_TEST(PixmapArea, GrowsNoFurtherThanTheCanvasWhenAsked)
{
    TypeParam other(kSize, kCanvas);
    other.realloc(Box2di(-4, 2, 20, 30), true);
    this->pixmap.reallocToFitAndClipToCanvas(other, true);
    EXPECT_EQ(this->pixmap.allocatedRect(), Box2di(0, 2, 8, 6));
}

TYPED_TEST(PixmapArea, StaysEmptyWhenTheOtherLiesOutsideOfTheCanvas)
{
    TypeParam other(kSize, kCanvas);
    other.realloc(Box2di(10, 10, 20, 20), true);
    this->pixmap.reallocToFitAndClipToCanvas(other, true);
    EXPECT_TRUE(this->pixmap.allocatedRect().isEmpty());
}

TYPED_TEST(PixmapArea, DropsWhatLiesOutsideOfTheCanvas)
{
    this->pixmap.realloc(Box2di(-1, -1, 9, 7), true);
    this->pixmap.clipToCanvas();
    EXPECT_EQ(this->pixmap.allocatedRect(), kCanvas);
}

TYPED_TEST(PixmapArea, ClonesItsPixels)
{
    this->pixmap.realloc(Box2di(0, 0, 2, 1), true);
    this->pixmap.at(1, 0) = marked(typename TestFixture::Pixel{});
    const auto clone = this->pixmap.clone();
    this->pixmap.at(1, 0) = typename TestFixture::Pixel{};
    EXPECT_EQ(clone.template dynamicCast<TypeParam>()->at(1, 0), marked(typename TestFixture::Pixel{}));
}

TYPED_TEST(PixmapArea, AlignsItsFirstRowForVectorCode)
{
    this->pixmap.realloc(Box2di(0, 0, 3, 2), true);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(this->pixmap.row(0).data()) % 64, 0U);
}

TEST(PixmapFactory, MakesTheThreeFormatsAndNoOther)
{
    for (const int format : {4, 5, 6}) {
        const auto pixmap = CEL_PixmapFactory::create2d(format, kSize, kCanvas);
        ASSERT_TRUE(pixmap);
        EXPECT_EQ(pixmap->format(), format);
    }
    EXPECT_FALSE(CEL_PixmapFactory::create2d(3, kSize, kCanvas));
}

TEST(DepthPixel, IsBlackOnlyAtZeroOfEitherSign)
{
    EXPECT_TRUE(CEL_PixelFloat{0.0F}.isBlack());
    EXPECT_TRUE(CEL_PixelFloat{-0.0F}.isBlack());
    EXPECT_FALSE(CEL_PixelFloat{-1.0F}.isBlack());
    EXPECT_FALSE(CEL_PixelFloat{1e-30F}.isBlack());
}

TEST(PixmapConversion, MapsFullToFullAndBack)
{
    auto pixmap = UT_makeShared<CEL_PixmapAreaRGBA16>(kSize, kCanvas);
    pixmap->realloc(Box2di(0, 0, 1, 1), true);
    pixmap->at(0, 0) = {32767, 0, -32767, 16384};
    const auto converted = CEL_convertPixmap(pixmap, 5).dynamicCast<CEL_PixmapAreaRGBAFloat>();
    ASSERT_TRUE(converted);
    EXPECT_EQ(converted->at(0, 0), (CEL_PixelRGBAFloat{1.0F, 0.0F, -1.0F, static_cast<float>(16384.0 / 32767.0)}));
}

TEST(PixmapConversion, HasNoWayFromDepth)
{
    EXPECT_FALSE(CEL_convertPixmap(UT_makeShared<CEL_PixmapAreaZ>(kSize, kCanvas), 4));
}

RC_GTEST_PROP(PixmapConversion, ThereAndBackIsTheSame, (std::int16_t r, std::int16_t g, std::int16_t b, std::int16_t a))
{
    RC_PRE(r > -32768 && g > -32768 && b > -32768 && a > -32768);
    auto pixmap = UT_makeShared<CEL_PixmapAreaRGBA16>(kSize, kCanvas);
    pixmap->realloc(Box2di(0, 0, 1, 1), true);
    pixmap->at(0, 0) = {r, g, b, a};
    const auto back = CEL_convertPixmap(CEL_convertPixmap(pixmap, 5), 4).dynamicCast<CEL_PixmapAreaRGBA16>();
    RC_ASSERT((back->at(0, 0) == CEL_PixelRGBA16{r, g, b, a}));
}
