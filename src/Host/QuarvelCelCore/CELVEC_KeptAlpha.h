// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CELVEC_KeptAlpha: the alpha of a painted drawing, kept for its next painting. A drawing is often painted twice, in
// its colours and in opaque white, which tells where it is. Every channel of the white picture equals the alpha of the
// coloured one, so the second painting is a copy.
#pragma once

#include "QuarvelBaseCore/Math_Box2di.h"
#include "QuarvelCelCore/QuarvelCelCoreExport.h"

#include <memory>

/// Belongs to one picture of one drawing, which is painted several times, one painting after the other
/// (CELVEC_RenderArgs::keptAlpha). The rasteriser fills it with the first painting and decides whether a later one is
/// the same but for its colours.
class QUARVELCELCORE_EXPORT CELVEC_KeptAlpha
{
public:
    CELVEC_KeptAlpha();
    ~CELVEC_KeptAlpha();
    CELVEC_KeptAlpha(const CELVEC_KeptAlpha&) = delete;
    CELVEC_KeptAlpha& operator=(const CELVEC_KeptAlpha&) = delete;

    class Painting;
    /// What the last painting left; null if there was none.
    const std::unique_ptr<Painting>& painting() const { return _painting; }
    void keep(std::unique_ptr<Painting> painting);

private:
    std::unique_ptr<Painting> _painting;
};
