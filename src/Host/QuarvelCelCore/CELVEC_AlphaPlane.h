// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CELVEC_AlphaPlane: the alpha of a drawing, painted without its colours. A drawing is often painted twice, in its
// colours and in opaque white, by somebody who reads nothing of the first picture but its alpha. All channels of the
// second are the alpha of the first, because a painter composes every channel in the same way. So one plane of 16 bits
// a pixel tells both pictures (CELVEC_Kvd::sharedAlpha).
#pragma once

#include "QuarvelBaseCore/Math_Box2di.h"
#include "QuarvelCelCore/QuarvelCelCoreExport.h"

#include <cstddef>
#include <cstdint>
#include <span>

/// One channel of unsigned 16 bits, 65535 is opaque. Threads may read it, or write disjoint rows of it, at once.
class QUARVELCELCORE_EXPORT CELVEC_AlphaPlane
{
public:
    /// Uninitialised alphas.
    ///
    /// @param isClosed whether the pixels of the drawing's own picture have closed seams
    /// (CELVEC_RenderArgs::closesSeams)
    CELVEC_AlphaPlane(const Math::Box2di& rect, bool isClosed);
    ~CELVEC_AlphaPlane();
    CELVEC_AlphaPlane(const CELVEC_AlphaPlane&) = delete;
    CELVEC_AlphaPlane& operator=(const CELVEC_AlphaPlane&) = delete;

    /// The allocated rectangle of both pictures.
    const Math::Box2di& rect() const { return _rect; }

    /// The alphas of row y, which must be inside the rectangle, from its first column on.
    std::span<std::uint16_t> row(int y) { return {rowStart(y), static_cast<std::size_t>(_rect.width())}; }

    /// Copies the alphas of row y as the pixels of the drawing's own picture hold them.
    ///
    /// @param alphas as many as the rectangle has columns
    void readOwn(int y, std::span<std::int16_t> alphas) const;
    void readOwn(int y, std::span<float> alphas) const;

    /// Copies those of the white picture, which are the values of all its channels.
    void readWhite(int y, std::span<std::int16_t> alphas) const;
    void readWhite(int y, std::span<float> alphas) const;

private:
    std::uint16_t* rowStart(int y) const;

    Math::Box2di _rect;
    bool _isClosed;
    std::size_t _bytes;
    std::uint16_t* _alphas; // from UT_PixelMemory
};
