// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Large pictures are written past the processor's cache, small ones are not: the pixels are the same either way, with
// every instruction set.
#include "DepthSurface.h"
#include "OneInstructionSet.h"
#include "RandomPictures.h"
#include "SmallPixmaps.h"

#include "QuarvelBaseCore/UT_PixelMemory.h"
#include "render/Composition.h"
#include "render/StreamKernels.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace {

using VolumeRowKernels::Reader;
using VolumeRowKernels::Stores;

constexpr int kStripRows = 40;

template<typename Pixel>
class LargePicture : public testing::Test
{};

using Formats = testing::Types<Pixel16, PixelFloat>;
TYPED_TEST_SUITE(LargePicture, Formats);

template<typename Pixel>
Stores storesFor(const Math::Box2di& rect, Reader reader)
{
    return VolumeRowKernels::storesFor(rect.area() * static_cast<std::int64_t>(sizeof(Pixel)), reader);
}

template<typename Pixel>
UT_SharedPtr<CEL_PixmapOf<Pixel>> emptyPicture(const Math::Box2di& canvas, const Math::Box2di& rect)
{
    auto picture = UT_makeShared<CEL_PixmapOf<Pixel>>(Math::Size2di{canvas.width(), canvas.height()}, canvas);
    picture->realloc(rect, true);
    return picture;
}

// Hills with a hole, black around them.
UT_SharedPtr<CEL_PixmapAreaZ> hills(const Math::Box2di& rect)
{
    auto depth = UT_makeShared<CEL_PixmapAreaZ>(Math::Size2di{rect.width(), rect.height()}, rect);
    depth->realloc(rect, true);
    RandomPictures random(7);
    for (int y = rect.y1 + 5; y < rect.y2 - 5; ++y)
        for (int x = rect.x1 + 3; x < rect.x2 - 9; ++x)
            if ((x / 50 + y / 50) % 7 != 0)
                depth->at(x, y).value = 20.0F + static_cast<float>((x * y) % 97) + static_cast<float>(random.chance(2));
    return depth;
}

UT_SharedPtr<CEL_PixmapAreaZ> rowsOf(const CEL_PixmapAreaZ& depth, int y1, int y2)
{
    auto rows = depth.clone().dynamicCast<CEL_PixmapAreaZ>();
    Math::Box2di rect = depth.allocatedRect();
    rect.y1 = y1;
    rect.y2 = y2;
    rows->realloc(rect.getIntersection(depth.allocatedRect()), true);
    return rows;
}

// The composition of all ports inside a rectangle.
template<typename Pixel>
UT_SharedPtr<CEL_PixmapOf<Pixel>> composed(const VallorinRenderHandler& handler, const Math::Box2di& canvas,
                                           const Math::Box2di& rect, const VallorinRenderHandler::PixmapMap& inputs,
                                           const VallorinRenderHandler::PixmapMap& results)
{
    const auto output = emptyPicture<Pixel>(canvas, {});
    PortComposition composition(handler, *output, rect);
    composition.include(rect);
    for (const auto& [port, input] : inputs) {
        const auto result = results.find(handler.portObjectIds[static_cast<std::size_t>(port)]);
        composition.add(port, input, result == results.end() ? nullptr : result->second);
    }
    composition.finish();
    return output;
}

template<typename Pixel>
void expectSameRows(const CEL_PixmapOf<Pixel>& whole, const CEL_PixmapOf<Pixel>& part, int y1, int y2)
{
    for (int y = y1; y < y2; ++y)
        ASSERT_TRUE(std::ranges::equal(whole.row(y), part.row(y))) << "row " << y;
}

} // namespace

TYPED_TEST(LargePicture, HasTheNormalsOfItsRows)
{
    const Math::Box2di rect(-3, 0, 2001, 1400);
    ASSERT_EQ(storesFor<TypeParam>(rect, Reader::SOON), Stores::PAST_CACHE);
    const auto depth = hills(rect);
    for (const int quality : {LOW_NORMAL_QUALITY, HIGH_NORMAL_QUALITY}) {
        const auto whole = normalsOf<TypeParam>(DepthSurface(*depth), quality, rect);
        for (int y = rect.y1; y < rect.y2; y += 5 * kStripRows) {
            // Smoothing reads two rows further.
            const auto strip = rowsOf(*depth, y - 2, y + kStripRows + 2);
            ASSERT_EQ(storesFor<TypeParam>(strip->allocatedRect(), Reader::SOON), Stores::CACHED);
            const auto part = normalsOf<TypeParam>(DepthSurface(*strip), quality, rect);
            expectSameRows<TypeParam>(*whole, *part, y, y + kStripRows);
        }
    }
}

TYPED_TEST(LargePicture, IsComposedAsItsRowsAre)
{
    const Math::Box2di rect(0, 0, 1301, 900);
    ASSERT_EQ(storesFor<TypeParam>(rect, Reader::LATER), Stores::PAST_CACHE);
    RandomPictures random(3);
    VallorinRenderHandler handler(1.0, MO_CompositeModuleBitmapHandler::CompositeModuleInterface{}, {});
    handler.portObjectIds = {1, 2, 0, 1};
    // Side by side at the top, overlapping further down, and none at the bottom.
    const Math::Box2di boxes[] = {{701, 3, 1250, 400}, {11, 100, 700, 800}, {300, 350, 900, 500}, {5, 3, 330, 90}};
    VallorinRenderHandler::PixmapMap inputs;
    for (int port = 0; port < 4; ++port)
        inputs[port] = random.picture<TypeParam>(boxes[port], rect);
    const VallorinRenderHandler::PixmapMap results{{1, random.picture<TypeParam>({0, 0, 1301, 450}, rect)},
                                                   {2, random.picture<TypeParam>({9, 90, 650, 801}, rect)}};
    for (const bool depthInBlue : {false, true}) {
        handler.depthInBlue = depthInBlue;
        std::vector<UT_SharedPtr<CEL_PixmapOf<TypeParam>>> parts;
        for (int y = rect.y1; y < rect.y2; y += kStripRows) {
            const Math::Box2di strip(rect.x1, y, rect.x2, std::min(y + kStripRows, rect.y2));
            parts.push_back(composed<TypeParam>(handler, rect, strip, inputs, results));
        }
        withEachInstructionSet([&] {
            const auto whole = composed<TypeParam>(handler, rect, rect, inputs, results);
            ASSERT_EQ(whole->allocatedRect(), rect);
            for (const auto& part : parts)
                expectSameRows<TypeParam>(*whole, *part, part->allocatedRect().y1, part->allocatedRect().y2);
        });
    }
}

TYPED_TEST(LargePicture, IsTheSameInNewMemoryAndInUsedMemory)
{
    const Math::Box2di rect(0, 0, 1301, 900);
    RandomPictures random(4);
    VallorinRenderHandler handler(1.0, MO_CompositeModuleBitmapHandler::CompositeModuleInterface{}, {});
    handler.portObjectIds = {1, 2, 2};
    // With a gap between the first two, which the third covers in part, and empty rows and columns around them.
    const Math::Box2di boxes[] = {{701, 30, 1250, 400}, {11, 100, 300, 800}, {250, 350, 900, 500}};
    VallorinRenderHandler::PixmapMap inputs;
    for (int port = 0; port < 3; ++port)
        inputs[port] = random.picture<TypeParam>(boxes[port], rect);
    const VallorinRenderHandler::PixmapMap results{{1, random.picture<TypeParam>(rect, rect)},
                                                   {2, random.picture<TypeParam>(rect, rect)}};
    const std::size_t bytes = static_cast<std::size_t>(rect.area()) * sizeof(TypeParam);
    const auto composedIn = [&](std::size_t used) {
        UT_PixelMemory::trim();
        if (used > 0) {
            void* const block = UT_PixelMemory::take(used);
            std::memset(block, 0x5A, used);
            UT_PixelMemory::give(block, used);
        }
        return composed<TypeParam>(handler, rect, rect, inputs, results);
    };
    const auto inUsedMemory = composedIn(bytes);
    for (const std::size_t used : {std::size_t{0}, bytes / 2}) {
        SCOPED_TRACE(used);
        expectSameRows<TypeParam>(*inUsedMemory, *composedIn(used), rect.y1, rect.y2);
    }
}

TYPED_TEST(LargePicture, RunsAreFilledAndCopiedToThePixelWhereverTheyBegin)
{
    RandomPictures random(5);
    const auto marker = random.pixel<TypeParam>();
    const auto pixel = random.pixel<TypeParam>();
    withEachInstructionSet([&] {
        for (const Stores stores : {Stores::CACHED, Stores::PAST_CACHE})
            for (std::size_t first = 0; first < 9; ++first)
                for (std::size_t count = 0; count < 40; ++count) {
                    std::vector<TypeParam> source(count);
                    for (TypeParam& one : source)
                        one = random.pixel<TypeParam>();
                    std::vector<TypeParam> row(first + count + 9, marker);
                    std::vector<TypeParam> expected = row;
                    const auto run = std::span(row).subspan(first, count);
                    VolumeRowKernels::fillPixels(run, pixel, stores);
                    std::fill_n(expected.begin() + static_cast<std::ptrdiff_t>(first), count, pixel);
                    ASSERT_EQ(row, expected) << "filled from " << first << ", " << count;
                    VolumeRowKernels::copyPixels(source.data(), run, stores);
                    std::ranges::copy(source, expected.begin() + static_cast<std::ptrdiff_t>(first));
                    ASSERT_EQ(row, expected) << "copied from " << first << ", " << count;
                }
    });
}
