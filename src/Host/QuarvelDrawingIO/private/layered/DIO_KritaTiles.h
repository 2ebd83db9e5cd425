// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Pixels of Krita's layers: a head of lines of text, then tiles of 64 x 64 pixels at their places, each packed by LZF
// after the bytes of its pixels were sorted: the first bytes of all pixels, then the second ones, and so on.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelDrawingIO/private/layered/DIO_FileLimits.h"

#include <QImage>
#include <QPoint>

/// How the pixels of a layer are stored.
struct DIO_KritaForm
{
    int channels = 4; ///< with alpha, which is the last: 4, in the order blue, green, red, or 2, grey
    int bytes = 1;    ///< of a sample: 1 or 2

    std::size_t pixelBytes() const { return static_cast<std::size_t>(channels) * static_cast<std::size_t>(bytes); }
};

/// A layer's pixels and their place.
struct DIO_KritaPixels
{
    QImage image; ///< null where there are none
    QPoint place;
};

/// Reads the tiles of a layer.
///
/// @param usual what is shown where there are no tiles: a pixel, as it is stored
/// @param canvas the size of the picture; a usual pixel that shows fills it
UT_Result<DIO_KritaPixels> DIO_readKritaTiles(std::span<const std::uint8_t> file, const DIO_KritaForm& form,
                                              std::span<const std::uint8_t> usual, const QSize& canvas,
                                              DIO_PixelBudget& budget);
