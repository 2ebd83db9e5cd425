// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The plane's memory; the kernels of painted rows know how alphas become channels.
#include "QuarvelCelCore/CELVEC_AlphaPlane.h"

#include "QuarvelBaseCore/UT_PixelMemory.h"
#include "QuarvelCelCore/private/CELVEC_RowKernels.h"

#include <cassert>

using CELVEC_RowKernels::Coverage;

CELVEC_AlphaPlane::CELVEC_AlphaPlane(const Math::Box2di& rect, bool isClosed)
    : _rect(rect)
    , _isClosed(isClosed)
    , _bytes(static_cast<std::size_t>(rect.area()) * sizeof(std::uint16_t))
    , _alphas(_bytes == 0 ? nullptr : static_cast<std::uint16_t*>(UT_PixelMemory::take(_bytes)))
{}

CELVEC_AlphaPlane::~CELVEC_AlphaPlane()
{
    UT_PixelMemory::give(_alphas, _bytes);
}

void CELVEC_AlphaPlane::readOwn(int y, std::span<std::int16_t> alphas) const
{
    readWhite(y, alphas);
}

void CELVEC_AlphaPlane::readOwn(int y, std::span<float> alphas) const
{
    CELVEC_RowKernels::convertAlphas(rowStart(y), _isClosed ? Coverage::CLOSED : Coverage::KEPT, alphas);
}

void CELVEC_AlphaPlane::readWhite(int y, std::span<std::int16_t> alphas) const
{
    CELVEC_RowKernels::convertAlphas(rowStart(y), alphas);
}

void CELVEC_AlphaPlane::readWhite(int y, std::span<float> alphas) const
{
    CELVEC_RowKernels::convertAlphas(rowStart(y), Coverage::KEPT, alphas);
}

std::uint16_t* CELVEC_AlphaPlane::rowStart(int y) const
{
    assert(y >= _rect.y1 && y < _rect.y2);
    return _alphas + static_cast<std::size_t>(y - _rect.y1) * static_cast<std::size_t>(_rect.width());
}
