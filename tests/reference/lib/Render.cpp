// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The whole render in its order: accumulate the inputs by object, build every listed object, compose.
#include "reference/Render.h"

#include "reference/Accumulator.h"
#include "reference/Volume.h"

#include <cmath>

namespace reference {
namespace {

double finiteOr(double value, double otherwise)
{
    return std::isfinite(value) ? value : otherwise;
}

RefVolumeParameters parametersOf(const RefObjectRecord& record, const RefRenderParameters& parameters)
{
    const double truck = parameters.useTruckFactor ? parameters.truckFactor : 1.0;
    RefVolumeParameters object;
    object.bevel = finiteOr(record.bevelSize, 0.0) * parameters.blurScale * truck;
    object.elevation = finiteOr(record.elevation, 0.0) * truck * parameters.elevationScale;
    object.smoothness = finiteOr(record.smoothness, 1.0) * parameters.elevationSmoothness;
    object.resolutionX = parameters.resolutionX;
    object.generateNormals = parameters.generateNormals;
    object.quality = parameters.normalQuality;
    object.clipWithGeometry = parameters.clipBlurredWithGeometry;
    return object;
}

} // namespace

RefRender16 render16(const std::vector<RefInput16>& inputs, const std::vector<RefObjectRecord>& records,
                     const RefRenderParameters& parameters, const RefImage16& referencePicture, const RefBlur16& blur)
{
    RefRender16 render;
    for (const RefInput16& input : inputs) {
        if (!input.image || input.objectId < 1 || input.image->width < 1 || input.image->height < 1) {
            continue;
        }
        if (!render.accumulators.contains(input.objectId)) {
            render.accumulators.emplace(input.objectId, makeAccumulator16(*input.image, parameters.outputRect));
        }
        accumulate16(render.accumulators.at(input.objectId), *input.image);
    }
    if (records.empty()) {
        return render;
    }

    for (const RefObjectRecord& record : records) {
        if (record.objectId < 1 || !render.accumulators.contains(record.objectId)) {
            continue;
        }
        RefRange& range = render.ranges[record.objectId];
        const std::optional<RefImage16> result =
            buildVolume16(render.accumulators.at(record.objectId), referencePicture.box,
                          parametersOf(record, parameters), range, blur);
        render.results.erase(record.objectId);
        if (result) {
            render.results.emplace(record.objectId, *result);
        }
    }

    RefBox allocated;
    for (const auto& [objectId, result] : render.results) {
        allocated = united(allocated, result.box);
    }
    RefImage16 output(allocated, referencePicture.canvas, referencePicture.width, referencePicture.height);
    compose16(output, inputs, render.results, render.ranges, parameters.generateNormals, parameters.depthInBlue);
    render.output = output;
    return render;
}

RefRenderFloat renderFloat(const std::vector<RefInputFloat>& inputs, const std::vector<RefObjectRecord>& records,
                           const RefRenderParameters& parameters, const RefImageFloat& referencePicture,
                           const RefBlurFloat& blur)
{
    RefRenderFloat render;
    for (const RefInputFloat& input : inputs) {
        if (!input.image || input.objectId < 1 || input.image->width < 1 || input.image->height < 1) {
            continue;
        }
        if (!render.accumulators.contains(input.objectId)) {
            render.accumulators.emplace(input.objectId, makeAccumulatorFloat(*input.image, parameters.outputRect));
        }
        accumulateFloat(render.accumulators.at(input.objectId), *input.image);
    }
    if (records.empty()) {
        return render;
    }

    for (const RefObjectRecord& record : records) {
        if (record.objectId < 1 || !render.accumulators.contains(record.objectId)) {
            continue;
        }
        RefRange& range = render.ranges[record.objectId];
        const std::optional<RefImageFloat> result =
            buildVolumeFloat(render.accumulators.at(record.objectId), referencePicture.box,
                             parametersOf(record, parameters), range, blur);
        render.results.erase(record.objectId);
        if (result) {
            render.results.emplace(record.objectId, *result);
        }
    }

    RefBox allocated;
    for (const auto& [objectId, result] : render.results) {
        allocated = united(allocated, result.box);
    }
    RefImageFloat output(allocated, referencePicture.canvas, referencePicture.width, referencePicture.height);
    composeFloat(output, inputs, render.results, render.ranges, parameters.generateNormals, parameters.depthInBlue);
    render.output = output;
    return render;
}

} // namespace reference
