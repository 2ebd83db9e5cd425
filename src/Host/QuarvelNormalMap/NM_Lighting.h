// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Lights a drawing by its normals and makes a picture of it, as a compositor or a game engine would.
//
// The model: a pixel's colour is multiplied by the ambient light plus, for every light, its colour times the cosine of
// the angle between the normal and the direction to the light (Lambert), or 0 where the surface looks away. A highlight
// may be added: strength times the cosine of the angle between the normal and the direction halfway between light and
// viewer, raised to the power of the sharpness (Blinn). All terms are computed in linear light; the result is encoded
// as sRGB and clamped. The coverage is that of the drawing.
//
//     lit = colour (ambient + sum of light_i f_i max(0, n . l_i))
//           + sum of light_i f_i highlight max(0, n . h_i)^sharpness
//
// where l_i is the direction to light i, h_i that of l_i + (0, 0, 1), and the highlight counts where n . l_i > 0. A
// distant light has one direction for all pixels and f = 1. A light at a place P = (x, y, height) has the direction P -
// p for the pixel p = (px, py, 0): the picture counts as flat, since normals do not tell heights. It becomes weaker
// with the distance r of the pixel from its foot (x, y):
//
//     f = 1 / (1 + (r / reach)^2)
//
// which is 1 below the light and one half at its reach. If the reach equals the height, this is the inverse-square law.
//
// Directions, and every step from them to the amount of light, use single precision in the order of the formulas;
// square roots and quotients are correctly rounded. So the bytes of a picture are the same on every machine and for any
// number of threads.
//
// With the default settings, a surface that faces the viewer keeps its own colour, so that only places with volume
// change.
#pragma once

#include "QuarvelNormalMap/NM_Surface.h"

#include <array>
#include <optional>

/// Amounts of red, green and blue light, linear; 1 is full light, more is allowed.
using NM_LightColour = std::array<float, 3>;

/// The place of a light near the picture. The unit is half of the picture's shorter side; the origin is the picture's
/// centre.
struct NM_LightPlace
{
    double x = 0.0;      ///< to the right
    double y = 0.0;      ///< up
    double height = 1.0; ///< above the picture, more than 0
    double reach = 1.0;  ///< the distance from its foot at which it is half as bright, more than 0
};

/// A light.
struct NM_Light
{
    /// Where the light comes from in the picture's plane, in degrees counterclockwise: 0 right, 90 above, 135 upper
    /// left.
    double azimuth = 135.0;
    /// The light's angle above the picture's plane, in degrees: 0 grazing, 90 from the viewer, negative from behind.
    double height = 45.0;
    NM_LightColour colour = {1.0F, 1.0F, 1.0F};
    /// The place of a point light, which does not use the angles; std::nullopt for a distant light.
    std::optional<NM_LightPlace> place = {};
};

/// All lights of a picture.
struct NM_LightingSettings
{
    std::vector<NM_Light> lights = {NM_Light{}};
    /// 1 - sin 45 degrees: together with the default light, this gives a surface that faces the viewer full light.
    NM_LightColour ambient = {0.29289323F, 0.29289323F, 0.29289323F};
    /// The strength of highlights, 0 (none) and up.
    float highlight = 0.0F;
    /// How small and hard highlights are: 1 (broad) to a few hundred.
    float sharpness = 32.0F;
};

/// Makes a picture of the lit drawing: 16-bit samples, straight sRGB colours and the drawing's coverage. Metadata:
/// "Software", and "Layout" with the value "lit".
///
/// @return an error if the picture does not fit in memory
QUARVELNORMALMAP_EXPORT UT_Result<IIO_Picture> NM_litPicture(const NM_Surface& surface,
                                                             const NM_LightingSettings& settings);

/// The formats of pixels with 8 bits per channel; rows follow each other without gaps.
enum class NM_ScreenPixels
{
    RGBA,              ///< bytes R G B A, straight
    PREMULTIPLIED_ARGB ///< 32-bit words 0xAARRGGBB, colours multiplied by coverage
};

/// Lights a drawing for the screen, fast enough for moving lights and playing films. The model is the same, but tables
/// are not interpolated and runs of uncovered pixels are skipped. A channel is within one of its 255 steps of
/// NM_litPicture(), and within two if it is multiplied by coverage.
///
/// @param bytes 4 x width x height bytes, aligned to 4
QUARVELNORMALMAP_EXPORT void NM_light(const NM_Surface& surface, const NM_LightingSettings& settings,
                                      NM_ScreenPixels pixels, std::span<std::uint8_t> bytes);
