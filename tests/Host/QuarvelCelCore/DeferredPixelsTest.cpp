// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Pixels that are made when somebody first asks for one.
#include "MultiStageKvd/MultiStageKvd.h"
#include "QuarvelCelCore/CEL_Cel.h"

#include <gtest/gtest.h>
#include <tbb/parallel_for.h>

#include <atomic>
#include <stdexcept>

using Math::Box2di;

namespace {

constexpr int kSide = 40;
const Box2di kRect(3, 4, 3 + kSide, 4 + kSide);

UT_SharedPtr<CEL_PixmapAreaRGBA16> emptyPixmap()
{
    return UT_makeShared<CEL_PixmapAreaRGBA16>(Math::Size2di{100, 100}, Box2di(0, 0, 100, 100));
}

// Every pixel says where it lies.
UT_SharedPtr<CEL_PixmapArea> painted()
{
    auto made = emptyPixmap();
    made->realloc(kRect, false);
    for (int y = kRect.y1; y < kRect.y2; ++y)
        for (int x = kRect.x1; x < kRect.x2; ++x)
            made->at(x, y) = {static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 0, 1};
    return made;
}

// A pixmap whose pixels are painted later, and how often they were.
struct Promise
{
    Promise()
    {
        pixmap->defer(kRect, [this] {
            ++timesMade;
            return painted();
        });
    }
    UT_SharedPtr<CEL_PixmapAreaRGBA16> pixmap = emptyPixmap();
    std::atomic<int> timesMade = 0;
};

CELVEC_RenderArgs pixels(int side)
{
    const Box2di canvas(0, 0, side, side);
    return {QTransform(), {side, side}, canvas, canvas};
}

// A square in one opaque colour.
CA_CelRef squareCel()
{
    auto palette = UT_makeShared<CM_Palette>(UT_String("test"));
    auto color = UT_makeShared<CM_Color>(UT_String(), 0, CM_ColorId_t(1));
    color->SetNominalColor({255, 0, 0, 255});
    palette->addColor(color);
    auto drawing = UT_makeShared<CELVEC_Kvd>(palette);
    QPainterPath path;
    path.addRect(QRectF(2, 3, 4, 5));
    drawing->addShape(GR_Art::COLOUR, {path, CM_ColorId_t(1), 1.0, {}, {}});
    auto cel = UT_makeShared<CEL_Cel>();
    cel->setRepresentation(drawing);
    cel->setRenderArgs(pixels(16));
    return cel;
}

} // namespace

TEST(DeferredPixels, AreMadeWhenOneIsRead)
{
    const Promise promise;
    EXPECT_EQ(promise.pixmap->allocatedRect(), kRect);
    EXPECT_TRUE(promise.pixmap->isDeferred());
    EXPECT_EQ(promise.timesMade, 0);
    EXPECT_EQ(promise.pixmap->at(5, 9), (CEL_PixelRGBA16{5, 9, 0, 1}));
    EXPECT_EQ(promise.pixmap->row(9)[2], (CEL_PixelRGBA16{5, 9, 0, 1}));
    EXPECT_FALSE(promise.pixmap->isDeferred());
    EXPECT_EQ(promise.timesMade, 1);
}

TEST(DeferredPixels, OfACopyAreMadeForIt)
{
    const Promise promise;
    const auto copy = promise.pixmap->clone().dynamicCast<CEL_PixmapAreaRGBA16>();
    EXPECT_EQ(copy->at(5, 9), (CEL_PixelRGBA16{5, 9, 0, 1}));
    EXPECT_EQ(promise.timesMade, 1);
}

TEST(DeferredPixels, AreKeptWhereTheRectangleGrowsOrShrinks)
{
    for (const Box2di& rect : {kRect.getEnlarged(3), kRect.getEnlarged(-2), Box2di(5, 9, 6, 10)}) {
        const Promise promise;
        promise.pixmap->realloc(rect, true);
        EXPECT_EQ(promise.pixmap->allocatedRect(), rect);
        EXPECT_EQ(promise.pixmap->at(5, 9), (CEL_PixelRGBA16{5, 9, 0, 1}));
    }
}

TEST(DeferredPixels, AreMadeOnceForManyThreads)
{
    const Promise promise;
    std::atomic<int> wrong = 0;
    tbb::parallel_for(kRect.y1, kRect.y2, [&](int y) {
        for (int x = kRect.x1; x < kRect.x2; ++x)
            wrong += promise.pixmap->row(y)[static_cast<std::size_t>(x - kRect.x1)].r == x ? 0 : 1;
    });
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(promise.timesMade, 1);
}

TEST(DeferredPixels, MayBeMadeByParallelLoops)
{
    const auto pixmap = emptyPixmap();
    pixmap->defer(kRect, [] {
        std::atomic<int> sum = 0;
        tbb::parallel_for(0, 1000, [&](int i) { sum += i; });
        return painted();
    });
    std::atomic<int> rows = 0;
    tbb::parallel_for(kRect.y1, kRect.y2, [&](int y) { rows += pixmap->row(y)[0].g == y ? 1 : 0; });
    EXPECT_EQ(rows, kSide);
}

TEST(DeferredPixels, AreTriedAgainAfterAFailure)
{
    bool fails = true;
    const auto pixmap = emptyPixmap();
    pixmap->defer(kRect, [&] {
        if (fails)
            throw std::runtime_error("no memory");
        return painted();
    });
    EXPECT_THROW(pixmap->makePixels(), std::runtime_error);
    EXPECT_TRUE(pixmap->isDeferred());
    fails = false;
    EXPECT_EQ(pixmap->at(5, 9).r, 5);
}

TEST(DeferredPixels, OfAVectorDrawingAreItsOwn)
{
    const CA_CelRef cel = squareCel();
    const auto later = cel->convertTo(CEL_FORMAT_RGBA16)->pixmap().dynamicCast<CEL_PixmapAreaRGBA16>();
    ASSERT_TRUE(later->isDeferred());
    CEL_PixmapAreaRGBA16 now({16, 16}, {0, 0, 16, 16});
    cel->findBestVectorRepresentation()->render(*cel->renderArgs(), now);
    ASSERT_EQ(later->allocatedRect(), now.allocatedRect());
    for (int y = now.allocatedRect().y1; y < now.allocatedRect().y2; ++y)
        EXPECT_TRUE(std::ranges::equal(std::as_const(*later).row(y), std::as_const(now).row(y))) << y;
}

TEST(DeferredPixels, ShowTheDrawingAsItWasWhenItWasConverted)
{
    const CA_CelRef cel = squareCel();
    const auto later = cel->convertTo(CEL_FORMAT_RGBA16)->pixmap().dynamicCast<CEL_PixmapAreaRGBA16>();
    QPainterPath other;
    other.addRect(QRectF(0, 0, 16, 16));
    cel->findBestVectorRepresentation()->addShape(GR_Art::COLOUR, {other, CM_ColorId_t(1), 1.0, {}, {}});
    EXPECT_EQ(later->find(12, 12), nullptr);
    EXPECT_EQ(later->at(3, 4).a, 32767);
}
