// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// NM_MapForm: what programs that light drawings want of a normal map beside its vectors: which way y points, what alpha
// holds, how many bits a sample has, and how far the vectors reach past the drawing.
//
// Many programs multiply colours by alpha when they load a picture. A vector that was multiplied by the coverage is
// another vector, so a map whose alpha is the coverage is lit wrongly along every antialiased edge there. A map whose
// alpha is full everywhere is lit rightly everywhere: how much of a pixel is covered is known from the drawing.
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelNormalMap/NM_Layout.h"

/// What the alpha of a normal map holds.
enum class NM_Alpha
{
    FULL,     ///< 1 everywhere
    COVERAGE, ///< how much of the pixel is covered
    HARD      ///< 1 where anything is covered, else 0
};

/// The form of a normal map in the layout TANGENT.
struct NM_MapForm
{
    NM_YAxis yAxis = NM_YAxis::UP;
    NM_Alpha alpha = NM_Alpha::COVERAGE;
    int bits = 16; ///< of a sample in files of whole numbers: 8 or 16
    int pad = 0;   ///< pixels that the vectors grow past the silhouette

    friend bool operator==(const NM_MapForm&, const NM_MapForm&) = default;
};

/// Replaces the alpha of a picture that holds the coverage there.
///
/// @param picture with the channels R G B A
QUARVELNORMALMAP_EXPORT void NM_setAlpha(IIO_Picture& picture, NM_Alpha alpha);

/// Brings every 16-bit sample to a multiple of 257, which is what a file of 8 bits a channel holds exactly. Alpha
/// becomes the nearest of them; all else is dithered (NM_Dither.h), so that wide slopes have no steps, but for the
/// vector that faces the viewer, which becomes 128, 128, 255. Samples of floats stay as they are.
///
/// @param picture with the channels R G B A, R G B, Y A or Y
QUARVELNORMALMAP_EXPORT void NM_ditherTo8Bits(IIO_Picture& picture);

/// Brings a normal map as NM_toPicture() makes it into this form: padding, alpha, bits, and the metadata of the form.
/// Its y axis has to be the form's already. Samples of floats are not dithered.
///
/// @param picture in the layout TANGENT, with the channels R G B A
QUARVELNORMALMAP_EXPORT void NM_finishMap(IIO_Picture& picture, const NM_MapForm& form);

/// The metadata "Encoding" of a map of signed components.
QUARVELNORMALMAP_EXPORT QString NM_signedEncoding();

/// Turns the coded components of a finished map of floats, 0 .. 1, into signed ones, -1 .. 1, and says so in
/// "Encoding".
///
/// @param picture floats, in the layout TANGENT, with the channels R G B A
QUARVELNORMALMAP_EXPORT void NM_makeSigned(IIO_Picture& picture);

/// The metadata of a map in this form: that of its layout, "Alpha" (NM_nameOf), and no coverage in "Encoding" where
/// alpha does not hold it.
QUARVELNORMALMAP_EXPORT IIO_Metadata NM_metadataOf(const NM_MapForm& form);

/// A form's alpha as it is written in files and on command lines: opaque, coverage, hard.
QUARVELNORMALMAP_EXPORT QString NM_nameOf(NM_Alpha alpha);
