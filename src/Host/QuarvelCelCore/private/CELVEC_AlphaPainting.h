// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The alpha of a painting, and what it depends on: the shapes, where they are, and how opaque each of them is.
#pragma once

#include "QuarvelBaseCore/UT_PixelMemory.h"
#include "QuarvelCelCore/CELVEC_KeptAlpha.h"
#include "QuarvelCelCore/CELVEC_Kvd.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

/// A shape as far as the alpha depends on it.
struct CELVEC_OpaqueShape
{
    const CELVEC_Shape* shape; ///< the drawing's, which outlives the painting
    QTransform toPixel;
    std::uint16_t alpha; ///< of the paint, 65535 is opaque

    friend bool operator==(const CELVEC_OpaqueShape&, const CELVEC_OpaqueShape&) = default;
};

/// A plane of 16 bits a pixel. Threads may write disjoint rows at once.
class CELVEC_KeptAlpha::Painting
{
public:
    /// Uninitialised alphas for a rectangle, which is not empty.
    Painting(std::vector<CELVEC_OpaqueShape> shapes, const Math::Box2di& rect)
        : _shapes(std::move(shapes))
        , _rect(rect)
        , _bytes(static_cast<std::size_t>(rect.area()) * sizeof(std::uint16_t))
        , _alphas(static_cast<std::uint16_t*>(UT_PixelMemory::take(_bytes)))
    {}
    ~Painting() { UT_PixelMemory::give(_alphas, _bytes); }
    Painting(const Painting&) = delete;
    Painting& operator=(const Painting&) = delete;

    /// Whether painting these shapes gives the same alphas.
    bool isOf(std::span<const CELVEC_OpaqueShape> shapes, const Math::Box2di& rect) const
    {
        return rect == _rect && std::ranges::equal(shapes, _shapes);
    }

    /// Row y, from the rectangle's first column on.
    std::span<std::uint16_t> row(int y) const
    {
        const auto width = static_cast<std::size_t>(_rect.width());
        return {_alphas + static_cast<std::size_t>(y - _rect.y1) * width, width};
    }

private:
    std::vector<CELVEC_OpaqueShape> _shapes;
    Math::Box2di _rect;
    std::size_t _bytes;
    std::uint16_t* _alphas; // from UT_PixelMemory
};
