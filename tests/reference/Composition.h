// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The composition: for every output pixel the inputs in port order, each cutting the output (object 0) or blending its
// object's result into it by the input's own coverage A.
#pragma once

#include "reference/Elevation.h"
#include "reference/Image.h"

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace reference {

/// One input: the number of its object (-1 ignored, 0 cut-out, 1 and above a volume) and its picture, if it has one.
struct RefInput16
{
    int objectId = -1;
    std::optional<RefImage16> image;
};

struct RefInputFloat
{
    int objectId = -1;
    std::optional<RefImageFloat> image;
};

/// The coverage that an input's alpha stands for: A / 32767 and A; from 0.99 (16-bit) and 0.9999 (float) up it is
/// exactly 1.
double saturatedCoverage16(std::int16_t alpha);
double saturatedCoverageFloat(float alpha);

/// The normalised elevation of an R with normals off; in 16-bit the low 16 bits of the truncated value, so that it may
/// wrap.
std::int16_t normalisedElevation16(std::int16_t r, const RefRange& range);
float normalisedElevationFloat(float r, const RefRange& range);

/// Alpha after a cut by an input's alpha (not saturated).
std::int16_t cutAlpha16(std::int16_t outAlpha, std::int16_t inputAlpha);
float cutAlphaFloat(float outAlpha, float inputAlpha);

/// One output pixel. `inputs` in port order; `results` and `ranges` by object number.
void composePixel16(RefPixel16& out, int x, int y, const std::vector<RefInput16>& inputs,
                    const std::map<int, RefImage16>& results, const std::map<int, RefRange>& ranges,
                    bool generateNormals, bool depthInBlue);
void composePixelFloat(RefPixelFloat& out, int x, int y, const std::vector<RefInputFloat>& inputs,
                       const std::map<int, RefImageFloat>& results, const std::map<int, RefRange>& ranges,
                       bool generateNormals, bool depthInBlue);

/// Every allocated pixel of the output, row after row.
void compose16(RefImage16& output, const std::vector<RefInput16>& inputs, const std::map<int, RefImage16>& results,
               const std::map<int, RefRange>& ranges, bool generateNormals, bool depthInBlue);
void composeFloat(RefImageFloat& output, const std::vector<RefInputFloat>& inputs,
                  const std::map<int, RefImageFloat>& results, const std::map<int, RefRange>& ranges,
                  bool generateNormals, bool depthInBlue);

} // namespace reference
