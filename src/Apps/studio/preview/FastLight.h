// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// FastLight: the lighting of NM_Lighting.h for the eye, as fast as a light is moved. The model is the same; what is
// saved is the interpolation between the values of tables, and everything where nothing is drawn. A channel is within
// one step of 255 of the exact one.
#pragma once

#include "QuarvelNormalMap/NM_Lighting.h"

#include <QImage>

/// The lit drawing, premultiplied.
///
/// @param target of the surface's size, in the format ARGB32_Premultiplied
void lightForScreen(const NM_Surface& surface, const NM_LightingSettings& settings, QImage& target);
