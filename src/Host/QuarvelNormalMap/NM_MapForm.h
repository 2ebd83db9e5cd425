// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// NM_MapForm: the properties of a normal map, besides its vectors, that programs which light drawings need: where y
// points, what alpha holds, how many bits a sample has, and how far the vectors reach outside the silhouette.
//
// Many programs multiply colours by alpha when they load a picture. This changes vectors, so such a program lights
// every antialiased edge wrongly if the map's alpha is the coverage. If alpha is full everywhere, it lights the edges
// correctly: it knows the coverage from the drawing.
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelNormalMap/NM_Layout.h"

#include <array>
#include <cstdint>

/// What the alpha of a normal map holds.
enum class NM_Alpha
{
    FULL,     ///< 1 everywhere
    COVERAGE, ///< the covered share of the pixel
    HARD      ///< 1 for pixels with any coverage, else 0
};

/// The 16-bit samples R G B of a vector that faces the viewer. In 8 bits it is 128, 128, 255.
inline constexpr std::array<std::uint16_t, 3> NM_kFacingSamples{32768, 32768, 65535};

/// The form of a normal map in the layout TANGENT.
struct NM_MapForm
{
    NM_YAxis yAxis = NM_YAxis::UP;
    NM_Alpha alpha = NM_Alpha::COVERAGE;
    int bits = 16; ///< bits of a sample in files of integers: 8 or 16
    int pad = 0;   ///< how far the vectors continue outside the silhouette, in pixels

    friend bool operator==(const NM_MapForm&, const NM_MapForm&) = default;
};

/// Replaces the alpha of a picture, which must hold the coverage.
///
/// @param picture with the channels R G B A
QUARVELNORMALMAP_EXPORT void NM_setAlpha(IIO_Picture& picture, NM_Alpha alpha);

/// Rounds every 16-bit sample to a multiple of 257; a file with 8 bits per channel holds exactly these. Alpha is
/// rounded to the nearest multiple. The other channels are dithered (NM_Dither.h), so that wide slopes have no steps,
/// except for the vector that faces the viewer, which becomes 128, 128, 255. Pictures of floats stay unchanged.
///
/// @param picture with the channels R G B A, R G B, Y A or Y
QUARVELNORMALMAP_EXPORT void NM_ditherTo8Bits(IIO_Picture& picture);

/// Brings a normal map from NM_toPicture() into this form: padding, alpha, bits, and the form's metadata. The map's y
/// axis must be the form's already. Samples of floats are not dithered.
///
/// @param picture in the layout TANGENT, with the channels R G B A
QUARVELNORMALMAP_EXPORT void NM_finishMap(IIO_Picture& picture, const NM_MapForm& form);

/// The metadata "Encoding" of a map of signed components.
QUARVELNORMALMAP_EXPORT QString NM_signedEncoding();

/// Converts the components of a finished map of floats from the range 0 .. 1 to signed ones, -1 .. 1, and sets
/// "Encoding" accordingly.
///
/// @param picture floats, in the layout TANGENT, with the channels R G B A
QUARVELNORMALMAP_EXPORT void NM_makeSigned(IIO_Picture& picture);

/// The metadata of a map in this form: that of its layout and "Alpha" (NM_nameOf). "Encoding" mentions the coverage
/// only if alpha holds it.
QUARVELNORMALMAP_EXPORT IIO_Metadata NM_metadataOf(const NM_MapForm& form);

/// The name of an alpha in files and on command lines: opaque, coverage, hard.
QUARVELNORMALMAP_EXPORT QString NM_nameOf(NM_Alpha alpha);
