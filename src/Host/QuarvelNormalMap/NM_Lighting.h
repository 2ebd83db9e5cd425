// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Lights a drawing by its normals: what a compositor or a game engine makes of them, as a picture to look at.
//
// The model: a pixel's colour is multiplied by the ambient light plus, for every light, its colour times the cosine of
// the angle between the normal and the direction to the light (Lambert), nothing where the surface looks away. A
// highlight may be added: strength times the cosine between the normal and the direction halfway between light and
// viewer, raised to the power of the sharpness (Blinn). All of this in linear light; the result is encoded as sRGB and
// clamped. Coverage stays the drawing's.
//
//     lit = colour (ambient + sum of light_i f_i max(0, n . l_i)) + sum of light_i f_i highlight max(0, n .
//     h_i)^sharpness
//
// where l_i is the direction to light i, h_i that of l_i + (0, 0, 1), and the highlight counts where n . l_i > 0. A
// light from far away has one direction for all pixels and f = 1. A light at a place P = (x, y, height) has the
// direction P - p for the pixel p = (px, py, 0): the picture counts as flat, since normals say nothing of heights. It
// becomes weaker with the distance r of the pixel from its foot (x, y):
//
//     f = 1 / (1 + (r / reach)^2)
//
// which is 1 below the light and a half at its reach. With a reach that equals the height, this is the law of the
// inverse square of the distance.
//
// Directions are single precision, and so is every step from them to the amount of light, in the order of the formulas;
// roots and quotients are correctly rounded. So the same picture has the same bytes on every machine and any number of
// threads.
//
// With the default settings a surface that faces the viewer keeps its own colour, so that only what has volume changes.
#pragma once

#include "QuarvelNormalMap/NM_Surface.h"

#include <array>
#include <optional>

/// Amounts of red, green and blue light, linear; 1 is full, more is allowed.
using NM_LightColour = std::array<float, 3>;

/// Where a light near the picture stands. Units: half the picture's shorter side; the origin is the picture's centre.
struct NM_LightPlace
{
    double x = 0.0;      ///< to the right
    double y = 0.0;      ///< up
    double height = 1.0; ///< above the picture, more than 0
    double reach = 1.0;  ///< how far from its foot it is half as bright; more than 0
};

/// A light.
struct NM_Light
{
    /// Where the light comes from in the picture's plane, in degrees counterclockwise: 0 right, 90 above, 135 upper
    /// left.
    double azimuth = 135.0;
    /// How far it stands above the picture's plane, in degrees: 0 grazing, 90 from the viewer, negative from behind.
    double height = 45.0;
    NM_LightColour colour = {1.0F, 1.0F, 1.0F};
    /// The place of a point light, which has no use for the angles; nothing for a light from far away.
    std::optional<NM_LightPlace> place = {};
};

/// All lights of a picture.
struct NM_LightingSettings
{
    std::vector<NM_Light> lights = {NM_Light{}};
    /// What the default light leaves of full light on a surface that faces the viewer: 1 - sin 45 degrees.
    NM_LightColour ambient = {0.29289323F, 0.29289323F, 0.29289323F};
    /// The strength of highlights, 0 (none) and up.
    float highlight = 0.0F;
    /// How small and hard highlights are: 1 (broad) to some hundreds.
    float sharpness = 32.0F;
};

/// The lit drawing as a picture of 16-bit samples, straight sRGB colours and the drawing's coverage; metadata:
/// "Software", and "Layout" with the value "lit".
///
/// @return an error when the picture does not fit in memory
QUARVELNORMALMAP_EXPORT UT_Result<IIO_Picture> NM_litPicture(const NM_Surface& surface,
                                                             const NM_LightingSettings& settings);

/// The forms of pixels of 8 bits a channel, rows without gaps.
enum class NM_ScreenPixels
{
    RGBA,              ///< bytes R G B A, straight
    PREMULTIPLIED_ARGB ///< 32-bit words 0xAARRGGBB, colours multiplied by coverage
};

/// The lit drawing for the eye, as fast as a light is moved and a film is played. The model is the same; what is saved
/// is the interpolation between the values of tables, and everything where nothing is drawn. A channel is within one
/// step of 255 of the exact one, and within two where it is multiplied by coverage.
///
/// @param bytes 4 x width x height of them, aligned to 4
QUARVELNORMALMAP_EXPORT void NM_light(const NM_Surface& surface, const NM_LightingSettings& settings,
                                      NM_ScreenPixels pixels, std::span<std::uint8_t> bytes);
