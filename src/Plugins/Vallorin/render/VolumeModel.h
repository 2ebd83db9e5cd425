// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The model that all of render/ works on. There is no code here; the other files point to this page.
//
// Coordinates. Pictures have x to the right and y down, in pixels; rectangles are half-open. A pixmap holds pixels
// inside its allocated rectangle only, and a pixel outside it is missing, which is not the same as zero.
//
// Coverage. How much of a pixel an object covers, 0 to full (32767 in 16-bit pixmaps, 1.0 in float ones).
//
// Level. How strongly a place adds to the volume, 0 (carving) to full (adding). An object has a level of its own; every
// listed palette colour has one too, which replaces the object's where the colour covers. An input pixmap holds both as
// two layers:
//
//     R the object's level       A where the object is
//     G the colours' level       B where listed colours are
//
// Accumulator. All inputs of one object merged (CoverageMerge.h): R the value so far, A the coverage.
//
// Mask. The accumulator as one number a pixel, value times coverage, in a plane of floats on the channel's own scale
// (CoverageMask.h). Blurred by a Gaussian, it falls off towards the object's edge: that slope is the bevel. Rounded to
// the channel, and clipped where it spread beyond the drawing, it is the elevation plane (ElevationPlane.h).
//
// Elevation. A value's share x, from 0 to 1, of the range from the plane's lowest to its highest positive value, shaped
// by the smoothness p into x^(1/p) (ElevationProfile.h). A surface has it as a depth in pixels, 37.5 times the object's
// elevation on a canvas 720 wide and in proportion on others (ElevationSurface.h). Depth 0 is black: there is no
// surface.
//
// Normals (NormalMap.h) are perpendicular to the surface (x, y, depth), of unit length, and point out of the picture. x
// and y are stored as (n + 1) / 2 of full: on a slope that rises to the right, the normal leans left and R is below the
// middle; on one that rises downwards, it leans up and G is below the middle. z is not stored: it follows from the unit
// length, and has the sign of B.
//
// Output, with normals: R and G the normal, B the elevation if requested, otherwise the object's number (16-bit) or 0.0
// (float), A the coverage. Without normals: all four channels hold the elevation of the highest object.
//
// Precision. Channels are int16 or float, planes and depths are float; a float holds every number of a 16-bit channel.
// An expression with a decimal constant is computed in double; one of floats and integers alone in float, every
// operation rounded. A result is rounded once, when it is stored. Normals of float pictures that are stored without
// smoothing are computed in single precision throughout, within a millionth of what double precision gives.
#pragma once

/// The width of the canvas in the units that bevels are measured in.
inline constexpr double kUnitsAcross = 720.0;
