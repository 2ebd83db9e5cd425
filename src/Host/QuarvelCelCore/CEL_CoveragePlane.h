// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CEL_CoveragePlane: the coverage of a picture without its colours. Code that needs only the coverage of several
// drawings paints them into one plane, which takes a quarter of the memory of a colour picture, and needs no picture of
// each drawing:
//
//     auto coverage = UT_makeShared<CEL_CoveragePlane>(canvas);
//     lower.addCoverage(args, CEL_CoverageStep::PAINT_OVER, *coverage);
//     upper.addCoverage(args, CEL_CoverageStep::PAINT_OVER, *coverage);
//
// The values are the alphas that the same steps in 16 bits give (CEL_Compositing.h). A cel carries a plane as a
// message.
#pragma once

#include "QuarvelBaseCore/UT_PixelMemory.h"
#include "QuarvelCelCore/CEL_Message.h"
#include "QuarvelCelCore/CEL_PixmapArea.h"

#include <cstdint>
#include <span>

/// What a drawing does to the coverage below it.
enum class CEL_CoverageStep
{
    PAINT_OVER,
    CUT_OUT
};

/// One 16-bit channel, 32767 is full. Any number of threads may read a plane, or write disjoint rows of it.
class QUARVELCELCORE_EXPORT CEL_CoveragePlane final : public CEL_Message
{
public:
    /// Covers nothing in the rectangle; what lies outside it does not exist.
    explicit CEL_CoveragePlane(const Math::Box2di& rect);
    ~CEL_CoveragePlane() override;

    const Math::Box2di& rect() const { return _rect; }

    /// The values of row y, which must be inside the rectangle, from rect().x1 on.
    std::span<std::int16_t> row(int y) { return {rowStart(y), static_cast<std::size_t>(_rect.width())}; }
    std::span<const std::int16_t> row(int y) const { return {rowStart(y), static_cast<std::size_t>(_rect.width())}; }

    /// Paints a picture's coverage over this one, or cuts it out, where they overlap.
    void add(const CEL_PixmapAreaRGBA16& picture, CEL_CoverageStep step);

private:
    std::int16_t* rowStart(int y) const
    {
        assert(y >= _rect.y1 && y < _rect.y2);
        return _values + std::ptrdiff_t{y - _rect.y1} * _rect.width();
    }

    Math::Box2di _rect;
    std::size_t _bytes;
    std::int16_t* _values; // from UT_PixelMemory
};
