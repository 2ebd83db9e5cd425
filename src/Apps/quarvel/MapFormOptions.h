// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The form of normal maps as a command line says it. What it leaves out follows from the program that the maps are made
// for.
#pragma once

#include "jobs/shown/FramePicture.h"
#include "jobs/targets/Targets.h"

#include <optional>

/// The values of --for, --y, --alpha, --bits, --pad and --exr; of render also --half.
struct MapFormOptions
{
    const Target* target = nullptr; ///< null: none is named
    std::optional<NM_YAxis> yAxis;
    std::optional<NM_Alpha> alpha;
    std::optional<int> bits;
    std::optional<int> pad; ///< pixels
    ExrContent exr = ExrContent::LAYERS;
    bool half = false; ///< 16-bit floats in OpenEXR files
    /// Whether the layers of OpenEXR files contain the object numbers.
    bool objectNumbers = false;

    /// The form that is asked for.
    ///
    /// @param otherwise the form where neither an option nor a target decides
    NM_MapForm resolved(const NM_MapForm& otherwise) const
    {
        const NM_MapForm wanted = target ? target->form : otherwise;
        return {.yAxis = yAxis.value_or(wanted.yAxis),
                .alpha = alpha.value_or(wanted.alpha),
                .bits = bits.value_or(wanted.bits),
                .pad = pad.value_or(wanted.pad)};
    }
};
