// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RD_RenderParameters: what is chosen for a render.
#pragma once

#include "QuarvelCelCore/CEL_Pixels.h"

#include <utility>

/// The choices for a render. A plain value.
struct RD_RenderParameters
{
    /// The values of imageProcessingFormat. Others count as 16-bit.
    enum ImageProcessingFormat
    {
        IMAGE_PROCESSING_16BIT = 0,
        IMAGE_PROCESSING_FLOAT = 1
    };

    /// The sizes that a picture may have, in pixels.
    static constexpr int kMaxResolution = 32767;

    int imageProcessingFormat = IMAGE_PROCESSING_16BIT;
    /// Width and height of the scene's frame, in pixels.
    std::pair<int, int> resolution{1920, 1080};

    friend constexpr bool operator==(const RD_RenderParameters&, const RD_RenderParameters&) = default;

    /// The format of the cels that travel through the graph, a value of CEL_Format.
    constexpr CEL_Format celFormat() const
    {
        return imageProcessingFormat == IMAGE_PROCESSING_FLOAT ? CEL_FORMAT_RGBAFLOAT : CEL_FORMAT_RGBA16;
    }
};
