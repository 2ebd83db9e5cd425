// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The loops over rows that all conversions from pixmaps to pictures share.
#pragma once

#include "QuarvelCelCore/CEL_WithFormat.h"
#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelVectorLanes/VL_ParallelFor.h"

#include <algorithm>
#include <span>

/// The error of what was made to be a picture of normals and has no colour format.
inline UT_Error NM_noNormals()
{
    return {QStringLiteral("the rendered picture holds no normals; render in 16 bits or in float")};
}

/// Calls work(row) for every row in [first, end), several at once.
template<typename Work>
void NM_forRows(int first, int end, const Work& work)
{
    VL_parallelFor(tbb::blocked_range<int>(first, end), [&](const tbb::blocked_range<int>& rows) {
        for (int y = rows.begin(); y < rows.end(); ++y)
            work(y);
    });
}

/// Splits the columns x1 .. x2 - 1 of row y: calls missing(x, count) for the columns left and right of the store's
/// rectangle, and held(x, pixels) for those inside it, each only if there are any.
template<typename Pixel, typename Missing, typename Held>
void NM_splitRow(const CEL_PixelStore<Pixel>& source, int y, int x1, int x2, const Missing& missing, const Held& held)
{
    const Math::Box2di& rect = source.allocatedRect();
    const bool rowHeld = !rect.isEmpty() && y >= rect.y1 && y < rect.y2;
    const int first = rowHeld ? std::clamp(rect.x1, x1, x2) : x2;
    const int end = rowHeld ? std::clamp(rect.x2, first, x2) : x2;
    if (x1 < first)
        missing(x1, first - x1);
    if (first < end)
        held(first,
             source.row(y).subspan(static_cast<std::size_t>(first - rect.x1), static_cast<std::size_t>(end - first)));
    if (end < x2)
        missing(end, x2 - end);
}

/// Calls visit(i, pixel) for i = 0 .. x2 - x1 - 1 with the pixels of row y from x1 on; all channels of a missing pixel
/// are zero.
template<typename Pixel, typename Visit>
void NM_visitRow(const CEL_PixelStore<Pixel>& source, int y, int x1, int x2, const Visit& visit)
{
    const auto missing = [&](int x, int count) {
        for (int i = 0; i < count; ++i)
            visit(x - x1 + i, Pixel{});
    };
    const auto held = [&](int x, std::span<const Pixel> pixels) {
        for (const Pixel& pixel : pixels)
            visit(x++ - x1, pixel);
    };
    NM_splitRow(source, y, x1, x2, missing, held);
}

/// Calls encode(pixel, samples) for every pixel of the picture's data window, with the pixmap's pixel and the picture's
/// samples.
template<typename Sample, typename Pixel, typename Encode>
void NM_encodeRows(const CEL_PixelStore<Pixel>& source, IIO_Picture& picture, const Encode& encode)
{
    const Math::Box2di window = picture.dataWindow();
    const int channels = picture.channelCount();
    NM_forRows(window.y1, window.y2, [&](int y) {
        Sample* samples = picture.row<Sample>(y).data();
        NM_visitRow(source, y, window.x1, window.x2,
                    [&](int i, const Pixel& pixel) { encode(pixel, samples + std::ptrdiff_t{i} * channels); });
    });
}
