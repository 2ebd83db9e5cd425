// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The composition of one output pixel after the other. Coverage is double; the normalised elevation is single, every
// operation rounded.
#include "reference/Composition.h"

#include "reference/Blend.h"
#include "reference/lib/Single.h"

namespace reference {

double saturatedCoverage16(std::int16_t alpha)
{
    const double a = static_cast<double>(alpha) / 32767.0;
    return a >= 0.99 ? 1.0 : a;
}

double saturatedCoverageFloat(float alpha)
{
    const auto a = static_cast<double>(alpha);
    return a >= 0.9999 ? 1.0 : a;
}

std::int16_t normalisedElevation16(std::int16_t r, const RefRange& range)
{
    const float above = single(static_cast<float>(r) - range.offset);
    const float share = single(above * range.scale);
    const float value = single(share * 32767.0F);
    return lowSixteenBits(static_cast<std::int32_t>(value));
}

float normalisedElevationFloat(float r, const RefRange& range)
{
    const float above = single(r - range.offset);
    return single(above * range.scale);
}

std::int16_t cutAlpha16(std::int16_t outAlpha, std::int16_t inputAlpha)
{
    const double a = static_cast<double>(inputAlpha) / 32767.0;
    return static_cast<std::int16_t>(static_cast<double>(outAlpha) * (1.0 - a));
}

float cutAlphaFloat(float outAlpha, float inputAlpha)
{
    return singleOf(static_cast<double>(outAlpha) * (1.0 - static_cast<double>(inputAlpha)));
}

void composePixel16(RefPixel16& out, int x, int y, const std::vector<RefInput16>& inputs,
                    const std::map<int, RefImage16>& results, const std::map<int, RefRange>& ranges,
                    bool generateNormals, bool depthInBlue)
{
    for (const RefInput16& input : inputs) {
        if (!input.image || input.objectId < 0 || !input.image->has(x, y)) {
            continue;
        }
        const std::int16_t alpha = input.image->at(x, y).a;
        if (alpha < 1) {
            continue;
        }
        if (input.objectId == 0) {
            out = RefPixel16{0, 0, 0, cutAlpha16(out.a, alpha)};
            continue;
        }
        const auto result = results.find(input.objectId);
        if (result == results.end() || !result->second.has(x, y)) {
            continue;
        }
        const RefPixel16& object = result->second.at(x, y);
        if (generateNormals) {
            const std::int16_t blue = depthInBlue ? object.b : lowSixteenBits(input.objectId);
            blendNormal16(out, object, saturatedCoverage16(alpha), blue);
            continue;
        }
        const auto range = ranges.find(input.objectId);
        if (range == ranges.end()) {
            continue;
        }
        const std::int16_t value = normalisedElevation16(object.r, range->second);
        if (value > out.r) {
            out = RefPixel16{value, value, value, value};
        }
    }
}

void composePixelFloat(RefPixelFloat& out, int x, int y, const std::vector<RefInputFloat>& inputs,
                       const std::map<int, RefImageFloat>& results, const std::map<int, RefRange>& ranges,
                       bool generateNormals, bool depthInBlue)
{
    for (const RefInputFloat& input : inputs) {
        if (!input.image || input.objectId < 0 || !input.image->has(x, y)) {
            continue;
        }
        const float alpha = input.image->at(x, y).a;
        if (!(alpha > 0.0F)) {
            continue;
        }
        if (input.objectId == 0) {
            out = RefPixelFloat{0.0F, 0.0F, 0.0F, cutAlphaFloat(out.a, alpha)};
            continue;
        }
        const auto result = results.find(input.objectId);
        if (result == results.end() || !result->second.has(x, y)) {
            continue;
        }
        const RefPixelFloat& object = result->second.at(x, y);
        if (generateNormals) {
            const float blue = depthInBlue ? object.b : 0.0F;
            blendNormalFloat(out, object, saturatedCoverageFloat(alpha), blue);
            continue;
        }
        const auto range = ranges.find(input.objectId);
        if (range == ranges.end()) {
            continue;
        }
        const float value = normalisedElevationFloat(object.r, range->second);
        if (value > out.r) {
            out = RefPixelFloat{value, value, value, value};
        }
    }
}

void compose16(RefImage16& output, const std::vector<RefInput16>& inputs, const std::map<int, RefImage16>& results,
               const std::map<int, RefRange>& ranges, bool generateNormals, bool depthInBlue)
{
    for (int y = output.box.y1; y < output.box.y2; ++y) {
        for (int x = output.box.x1; x < output.box.x2; ++x) {
            composePixel16(output.at(x, y), x, y, inputs, results, ranges, generateNormals, depthInBlue);
        }
    }
}

void composeFloat(RefImageFloat& output, const std::vector<RefInputFloat>& inputs,
                  const std::map<int, RefImageFloat>& results, const std::map<int, RefRange>& ranges,
                  bool generateNormals, bool depthInBlue)
{
    for (int y = output.box.y1; y < output.box.y2; ++y) {
        for (int x = output.box.x1; x < output.box.x2; ++x) {
            composePixelFloat(output.at(x, y), x, y, inputs, results, ranges, generateNormals, depthInBlue);
        }
    }
}

} // namespace reference
