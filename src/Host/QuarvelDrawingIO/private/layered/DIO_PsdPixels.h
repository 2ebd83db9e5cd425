// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Pixels of PSD files: each channel is a plane of its own, packed in one of four ways.
#pragma once

#include "QuarvelDrawingIO/private/layered/DIO_ByteReader.h"
#include "QuarvelDrawingIO/private/layered/DIO_FileLimits.h"

#include <QImage>
#include <QRect>

/// How the pixels of a file are stored.
struct DIO_PsdForm
{
    int depth = 8; ///< bits of a sample, 8 or 16
    bool isGrey = false;
    bool isLarge = false; ///< PSB: numbers that count bytes are longer
};

/// Samples of one channel, 16 bits each: those of 8 bits are widened.
using DIO_PsdPlane = std::vector<std::uint16_t>;

/// Unpacks a channel.
///
/// @param packing 0 none, 1 runs, 2 zlib, 3 zlib of differences
UT_Result<DIO_PsdPlane> DIO_psdPlane(std::span<const std::uint8_t> packed, int packing, const QSize& size,
                                     const DIO_PsdForm& form);

/// The channels of a picture; an empty alpha is full, empty green and blue are the red's.
struct DIO_PsdPlanes
{
    DIO_PsdPlane red, green, blue, alpha;
};

/// A picture of its channels: ARGB32 of samples of 8 bits, else RGBA64.
QImage DIO_psdImage(const DIO_PsdPlanes& planes, const QSize& size, const DIO_PsdForm& form);

/// A layer's mask.
struct DIO_PsdMask
{
    QRect place;
    int outside = 255; ///< what it is outside its place
    bool isOn = false;
    DIO_PsdPlane samples;
};

/// Multiplies alpha by a mask.
///
/// @param place of the alpha's pixels
void DIO_applyPsdMask(DIO_PsdPlane& alpha, const QRect& place, const DIO_PsdMask& mask);
