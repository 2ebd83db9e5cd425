// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The blur of pixmaps: the format is looked up once, then one template serves both.
#include "BlurAlgo/BlurAlgo.h"

#include "BlurAlgo/BA_GaussianBlur.h"
#include "BlurAlgo/private/BlurPool.h"
#include "BlurAlgo/private/PixelPlanes.h"
#include "QuarvelCelCore/CEL_WithFormat.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace BlurAlgo {

namespace {

enum Channels : int
{
    ALL_CHANNELS = 0,
    ALPHA_ALONE = 1,
    RED_ALONE = 2
};

/// Four diagonals of the canvas, rounded up.
int largestGrowth(const Math::Box2di& canvas)
{
    const double diagonal = std::hypot(static_cast<double>(canvas.width()), static_cast<double>(canvas.height()));
    return static_cast<int>(std::min(std::ceil(4.0 * diagonal), double{BA_GaussianBlur::kLargestCoordinate}));
}

/// The rectangle of the result, or nothing when it is larger than a blur can handle.
std::optional<Math::Box2di> grown(const Math::Box2di& rect, const FilterImage& filter, const Math::Box2di& canvas)
{
    constexpr std::int64_t kLimit = BA_GaussianBlur::kLargestCoordinate;
    const int most = largestGrowth(canvas);
    const std::int64_t x = std::min(most, BA_GaussianBlur::reach(filter.sigmaX()));
    const std::int64_t y = std::min(most, BA_GaussianBlur::reach(filter.sigmaY()));
    if (rect.x1 - x < -kLimit || rect.y1 - y < -kLimit || rect.x2 + x > kLimit || rect.y2 + y > kLimit)
        return std::nullopt;
    return Math::Box2di(static_cast<int>(rect.x1 - x), static_cast<int>(rect.y1 - y), static_cast<int>(rect.x2 + x),
                        static_cast<int>(rect.y2 + y));
}

/// Copies the colours, but not the alpha, of the pixels that the input has.
template<typename Pixel>
void copyColours(const CEL_PixmapOf<Pixel>& input, CEL_PixmapOf<Pixel>& result)
{
    const Math::Box2di& from = input.allocatedRect();
    const Math::Box2di& to = result.allocatedRect();
    for (int y = from.y1; y < from.y2; ++y) {
        const std::span<const Pixel> source = input.row(y);
        Pixel* target = result.row(y).data() + (from.x1 - to.x1);
        for (std::size_t x = 0; x < source.size(); ++x)
            target[x] = Pixel{source[x].r, source[x].g, source[x].b, {}};
    }
}

template<typename Pixel>
void blurChannel(const CEL_PixmapOf<Pixel>& input, Channel<Pixel> Pixel::*channel, BA_GaussianBlur& gaussian,
                 float gain, CEL_PixmapOf<Pixel>& result)
{
    ChannelSink<Pixel> sink(result, channel, gain);
    gaussian.run(ChannelSource<Pixel>(input, channel), input.allocatedRect(), sink, result.allocatedRect());
}

template<typename Pixel>
UT_SharedPtr<CEL_PixmapArea> blurColours(const CEL_PixmapOf<Pixel>& input, const FilterImage& filter,
                                         const Math::Box2di& rect, int channels)
{
    const auto result = UT_makeShared<CEL_PixmapOf<Pixel>>(input.size(), input.canvasRect());
    result->realloc(rect, channels != RED_ALONE);
    if (rect.isEmpty())
        return result;

    BorrowedBlur gaussian(filter.sigmaX(), filter.sigmaY());
    const auto gain = static_cast<float>(filter.gain());
    if (channels == RED_ALONE) {
        RedSink<Pixel> sink(*result, gain);
        gaussian->run(ChannelSource<Pixel>(input, &Pixel::r), input.allocatedRect(), sink, rect);
        return result;
    }
    if (channels == ALPHA_ALONE)
        copyColours<Pixel>(input, *result);
    else
        for (const auto colour : {&Pixel::r, &Pixel::g, &Pixel::b})
            blurChannel<Pixel>(input, colour, *gaussian, gain, *result);
    blurChannel<Pixel>(input, &Pixel::a, *gaussian, gain, *result);
    return result;
}

/// A depth pixmap is a plane already: its rows are read and written where they are.
UT_SharedPtr<CEL_PixmapArea> blurDepth(const CEL_PixmapAreaZ& input, const FilterImage& filter, Math::Box2di rect,
                                       const Math::Box2di& canvas)
{
    const auto result = UT_makeShared<CEL_PixmapAreaZ>(input.size(), input.canvasRect());
    rect = rect.getIntersection(canvas);
    if (rect.isEmpty())
        return result;
    result->realloc(rect, false);
    BorrowedBlur gaussian(filter.sigmaX(), filter.sigmaY());
    DepthSink sink(*result, static_cast<float>(filter.gain()));
    gaussian->run(DepthSource(input), input.allocatedRect(), sink, rect);
    return result;
}

} // namespace

void getGaussianFilter(FilterImage& filter, double sx, double sy, bool normalise)
{
    filter.setGaussian(sx, sy, normalise);
}

UT_SharedPtr<CEL_PixmapArea> blur(const CEL_PixmapArea& input, const FilterImage& filter,
                                  const Math::Box2di& canvasRect, int channels, PaddingType padding)
{
    if (channels < ALL_CHANNELS || channels > RED_ALONE || padding != PaddingType::TRANSPARENT_PADDING)
        return {};
    const Math::Box2di& rect = input.allocatedRect();
    const Math::Box2di& canvas = canvasRect.isEmpty() ? input.canvasRect() : canvasRect;
    const std::optional<Math::Box2di> resultRect = rect.isEmpty() ? Math::Box2di() : grown(rect, filter, canvas);
    if (!resultRect)
        return {};
    if (const auto* const depth = dynamic_cast<const CEL_PixmapAreaZ*>(&input))
        return blurDepth(*depth, filter, *resultRect, canvas);
    UT_SharedPtr<CEL_PixmapArea> blurred;
    CEL_withFormat(input, [&](const auto& typed) {
        blurred = blurColours<CEL_PixelOf<decltype(typed)>>(typed, filter, *resultRect, channels);
    });
    return blurred;
}

} // namespace BlurAlgo
