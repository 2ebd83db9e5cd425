// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The whole render: from inputs in port order, object records and the node's parameters to the output picture and all
// intermediate results.
#pragma once

#include "reference/Blur.h"
#include "reference/Composition.h"
#include "reference/Elevation.h"
#include "reference/Image.h"

#include <map>
#include <optional>
#include <vector>

namespace reference {

/// A row of the object list.
struct RefObjectRecord
{
    int objectId = 0;
    double bevelSize = 5.0;
    double elevation = 1.0;
    double smoothness = 1.0;
};

/// The node's parameters and the host's for the render. The defaults are plain values for tests.
struct RefRenderParameters
{
    double blurScale = 1.0;
    double elevationScale = 1.0;
    double elevationSmoothness = 1.0;
    bool generateNormals = true;
    bool useTruckFactor = false;
    bool depthInBlue = false;
    bool clipBlurredWithGeometry = false;
    int normalQuality = 0;
    /// How much the camera magnifies; counts only with useTruckFactor.
    double truckFactor = 1.0;
    /// Horizontal resolution of the render in pixels.
    int resolutionX = 720;
    /// The render's output rectangle: the canvas of every accumulator.
    RefBox outputRect;
};

/// The result of a render; without an output, it is the blank cel of an empty object list.
struct RefRender16
{
    std::optional<RefImage16> output;
    std::map<int, RefImage16> accumulators;
    std::map<int, RefImage16> results;
    std::map<int, RefRange> ranges;
};

struct RefRenderFloat
{
    std::optional<RefImageFloat> output;
    std::map<int, RefImageFloat> accumulators;
    std::map<int, RefImageFloat> results;
    std::map<int, RefRange> ranges;
};

/// Renders. `referencePicture` gives the output its canvas and size, and its allocated rectangle to every blurred
/// object. Inputs without a picture, with numbers below 0, or (for accumulation) with a size below 1 are skipped. In a
/// record, a bevel that is not finite counts as 0, an elevation as 0, a smoothness as 1.
RefRender16 render16(const std::vector<RefInput16>& inputs, const std::vector<RefObjectRecord>& records,
                     const RefRenderParameters& parameters, const RefImage16& referencePicture,
                     const RefBlur16& blur = gaussianBlur16);
RefRenderFloat renderFloat(const std::vector<RefInputFloat>& inputs, const std::vector<RefObjectRecord>& records,
                           const RefRenderParameters& parameters, const RefImageFloat& referencePicture,
                           const RefBlurFloat& blur = gaussianBlurFloat);

} // namespace reference
