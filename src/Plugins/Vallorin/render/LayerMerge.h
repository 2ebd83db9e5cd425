// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Merges one pixel of an input into one of the accumulator (CoverageMerge.h): first the one layer, then the other.
#pragma once

#include "render/PixelTraits.h"

/// @return the accumulator's pixel; its G and B are 0
template<typename Pixel>
Pixel mergePixel(Pixel out, const Pixel& in)
{
    using Traits = VolumeTraits<Pixel>;
    if (Traits::isFull(in.a)) {
        out.r = in.r;
        out.a = Traits::kFull;
    } else if (in.a > 0 && in.r > out.r) {
        out.r = Traits::mergeValue(out.r, in.a, in.r);
        out.a = Traits::mergeCoverage(out.a, in.a);
    }
    if (Traits::isFull(in.b)) {
        out.r = in.g;
        out.a = Traits::kFull;
    } else if (Traits::isSecondLayer(in.b)) {
        out.r = Traits::mergeValue(out.r, in.b, in.g);
        out.a = Traits::mergeCoverage(out.a, in.b);
    }
    return {out.r, 0, 0, out.a};
}
