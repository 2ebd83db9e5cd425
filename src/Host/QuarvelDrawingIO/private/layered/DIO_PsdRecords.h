// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The records of a PSD file's layers: what is said of each layer before its pixels. A group is a record below its
// layers, which ends it, and one above them, which has its name.
#pragma once

#include "QuarvelDrawingIO/private/layered/DIO_PsdPixels.h"

#include <QByteArray>
#include <QString>

/// Bytes of a PSD file, in its order.
using DIO_PsdReader = DIO_ByteReader<DIO_ByteOrder::BIG>;

/// What a record stands for.
enum class DIO_PsdSection : std::uint32_t
{
    NONE = 0, ///< a layer
    OPEN_GROUP = 1,
    CLOSED_GROUP = 2,
    END_OF_GROUP = 3
};

/// One channel among a layer's pixels.
struct DIO_PsdChannel
{
    int id = 0;           ///< 0 red, 1 green, 2 blue, -1 alpha, -2 mask
    std::size_t size = 0; ///< in bytes, with the two that say how it is packed
};

/// A layer, or where a group begins or ends.
struct DIO_PsdRecord
{
    QRect place; ///< of its pixels on the canvas; empty for a layer without pixels
    std::vector<DIO_PsdChannel> channels;
    QByteArray blend;     ///< four letters, "norm" for the usual mode
    double opacity = 1.0; ///< 0 to 1, without that of its groups
    bool visible = true;  ///< without its groups
    bool clipped = false; ///< by the layer below
    DIO_PsdSection section = DIO_PsdSection::NONE;
    QString name;
    DIO_PsdMask mask;                     ///< without its samples, which are a channel
    std::span<const std::uint8_t> pixels; ///< of all channels, in their order
};

/// A key of four letters; shorter at the end of the bytes.
QByteArray DIO_psdKey(DIO_PsdReader& reader);

/// A number of bytes: of 32 bits, in PSB files of 64. One that is longer than 32 bits makes the reader fail.
std::size_t DIO_psdLength(DIO_PsdReader& reader, const DIO_PsdForm& form);

/// Reads the records.
///
/// @param all the block of a file that holds layers and masks, behind its length
/// @return from the bottom up; their pixels refer to the bytes that were read. None for a file without layers
UT_Result<std::vector<DIO_PsdRecord>> DIO_psdRecords(DIO_PsdReader& all, const DIO_PsdForm& form);
