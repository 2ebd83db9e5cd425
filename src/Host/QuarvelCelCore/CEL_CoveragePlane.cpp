// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The plane's memory, and pictures that are pixels already.
#include "QuarvelCelCore/CEL_CoveragePlane.h"

#include "QuarvelBaseCore/UT_PixelZeros.h"
#include "QuarvelCelCore/private/CEL_PixelOver.h"
#include "QuarvelVectorLanes/VL_ParallelFor.h"

#include <cstring>

CEL_CoveragePlane::CEL_CoveragePlane(const Math::Box2di& rect)
    : _rect(rect.isEmpty() ? Math::Box2di() : rect)
    , _bytes(static_cast<std::size_t>(_rect.area()) * sizeof(std::int16_t))
    , _values(_bytes == 0 ? nullptr : static_cast<std::int16_t*>(UT_PixelMemory::take(_bytes)))
{
    if (_values)
        std::memset(_values, 0, UT_PixelMemory::zerosFrom(_values, _bytes));
}

CEL_CoveragePlane::~CEL_CoveragePlane()
{
    UT_PixelMemory::give(_values, _bytes);
}

void CEL_CoveragePlane::add(const CEL_PixmapAreaRGBA16& picture, CEL_CoverageStep step)
{
    const Math::Box2di common = _rect.getIntersection(picture.allocatedRect());
    if (common.isEmpty())
        return;
    const auto apply =
        step == CEL_CoverageStep::PAINT_OVER ? CEL_pixelOver<CEL_PixelRGBA16> : CEL_pixelCut<CEL_PixelRGBA16>;
    const auto width = static_cast<std::size_t>(common.width());
    // Before the threads of the loop wait for each other.
    picture.makePixels();
    VL_parallelFor(tbb::blocked_range<int>(common.y1, common.y2, 16), [&](const tbb::blocked_range<int>& rows) {
        for (int y = rows.begin(); y < rows.end(); ++y) {
            const auto above =
                picture.row(y).subspan(static_cast<std::size_t>(common.x1 - picture.allocatedRect().x1), width);
            const auto below = row(y).subspan(static_cast<std::size_t>(common.x1 - _rect.x1), width);
            for (std::size_t i = 0; i < width; ++i)
                if (above[i].a != 0)
                    below[i] = apply({0, 0, 0, above[i].a}, {0, 0, 0, below[i]}).a;
        }
    });
}
