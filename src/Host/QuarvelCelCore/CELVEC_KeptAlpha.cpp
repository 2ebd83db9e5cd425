// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Holds the painting; the rasteriser makes and reads it.
#include "QuarvelCelCore/CELVEC_KeptAlpha.h"

#include "QuarvelCelCore/private/CELVEC_AlphaPainting.h"

CELVEC_KeptAlpha::CELVEC_KeptAlpha() = default;

CELVEC_KeptAlpha::~CELVEC_KeptAlpha() = default;

void CELVEC_KeptAlpha::keep(std::unique_ptr<Painting> painting)
{
    _painting = std::move(painting);
}
