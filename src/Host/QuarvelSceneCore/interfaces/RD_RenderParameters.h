// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RD_RenderParameters: the choices for a render.
#pragma once

#include "QuarvelCelCore/CEL_Pixels.h"

#include <compare>
#include <utility>

/// Pixels beyond the frame that are rendered too, on each side; 0 and more.
struct RD_Margins
{
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    friend constexpr bool operator==(const RD_Margins&, const RD_Margins&) = default;
    friend constexpr auto operator<=>(const RD_Margins&, const RD_Margins&) = default;
    constexpr bool isEmpty() const { return *this == RD_Margins(); }
};

/// The choices for a render. A plain value.
struct RD_RenderParameters
{
    /// The values of imageProcessingFormat. Other values count as 16-bit.
    enum ImageProcessingFormat
    {
        IMAGE_PROCESSING_16BIT = 0,
        IMAGE_PROCESSING_FLOAT = 1
    };

    /// The sizes that a picture may have, its margins included, in pixels.
    static constexpr int kMaxResolution = 32767;

    int imageProcessingFormat = IMAGE_PROCESSING_16BIT;
    /// Width and height of the scene's frame, in pixels.
    std::pair<int, int> resolution{1920, 1080};
    /// What lies around the frame. It changes neither what a scene's unit is in pixels nor where the frame lies, but
    /// modules that measure by the canvas see a larger one.
    RD_Margins margins = {};

    friend constexpr bool operator==(const RD_RenderParameters&, const RD_RenderParameters&) = default;

    /// The format of the cels that travel through the graph, a value of CEL_Format.
    constexpr CEL_Format celFormat() const
    {
        return imageProcessingFormat == IMAGE_PROCESSING_FLOAT ? CEL_FORMAT_RGBAFLOAT : CEL_FORMAT_RGBA16;
    }
};
