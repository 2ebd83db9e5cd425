// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// NormalParser: reads normals back out of a pixmap that stores them as colours.
#pragma once

#include "MultiStageKvd/MultiStageKvdExport.h"
#include "QuarvelBaseCore/Math_Vector3d.h"
#include "QuarvelCelCore/CEL_PixmapArea.h"

/// Decodes the normal that a pixel stores, in double precision: x = 2 red / full - 1 and y = 2 green / full - 1 (y
/// down), z = sqrt(max(0, 1 - x^2 - y^2)), negated where blue is negative. Up to rounding it inverts the encoding of
/// normal pixmaps; the vector is not normalised.
template<typename Pixel>
Math::Vector3d NormalParser_decode(const Pixel& pixel)
{
    constexpr auto kFull = static_cast<double>(CEL_PixelTraits<Pixel>::kFull);
    const double x = 2.0 * static_cast<double>(pixel.r) / kFull - 1.0;
    const double y = 2.0 * static_cast<double>(pixel.g) / kFull - 1.0;
    const double z = std::sqrt(std::max(0.0, 1.0 - x * x - y * y));
    return {x, y, pixel.b < 0 ? -z : z};
}

/// Reads the normals of a pixmap in one of the two colour formats. The pixmap must outlive the parser; several threads
/// may read through one parser at once.
class MULTISTAGEKVD_EXPORT NormalParser
{
public:
    explicit NormalParser(const CEL_PixmapArea& normals);

    /// Reads the normal at a pixel.
    ///
    /// @param normal is written only on success
    /// @return false where the pixmap has no pixel, where the pixel is empty (alpha 0), and for pixmaps of other
    /// formats
    bool normalAt(int x, int y, Math::Vector3d& normal) const;

private:
    const CEL_PixmapAreaRGBA16* _normals16;
    const CEL_PixmapAreaRGBAFloat* _normalsFloat;
};
