// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Limits on files of pixels. Sizes are checked before memory is allocated for them.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelDrawingIO/private/DIO_PixelLimit.h"

#include <QByteArray>
#include <QPoint>
#include <QSize>

#include <cstdint>
#include <span>
#include <vector>

inline constexpr int DIO_kMostLayers = 10'000;
inline constexpr int DIO_kMostFrames = 10'000;
/// How many groups may lie in each other.
inline constexpr int DIO_kDeepestGroup = 100;
/// The pixels of all pictures of a file together, as a multiple of DIO_mostPixels().
inline constexpr std::int64_t DIO_kMostPicturesInAll = 2;

/// How far from the picture's upper left corner pixels may lie, each way.
inline constexpr int DIO_kFarthest = 1'000'000;
/// Whether a place that a file names is that close, so that sums of two such places are ints.
inline bool DIO_isClose(const QPoint& place)
{
    const auto isWithin = [](int number) { return number >= -DIO_kFarthest && number <= DIO_kFarthest; };
    return isWithin(place.x()) && isWithin(place.y());
}

/// The name of a layer with those of its groups before it: "head/eye". Of more than a thousand letters the last ones
/// stay, since every layer keeps the names of all groups around it.
///
/// @param groups "head/", or empty
QString DIO_layerName(const QString& groups, const QString& name);

/// What is wrong with a file that ends early or contradicts itself.
UT_Error DIO_damaged();

/// What is wrong with a file of more than DIO_kMostLayers layers, or of groups deeper than DIO_kDeepestGroup.
UT_Error DIO_tooManyLayers();
UT_Error DIO_tooDeepGroups();

/// The bytes of a file of at most a gigabyte.
UT_Result<QByteArray> DIO_readBytes(const QString& path);

/// The same bytes, for reading.
std::span<const std::uint8_t> DIO_bytesOf(const QByteArray& bytes);

/// Counts the pixels of a file's pictures.
class DIO_PixelBudget
{
public:
    /// @return an error when a picture has no pixels, too many, or more than are left
    UT_Result<void> take(std::int64_t width, std::int64_t height);

private:
    const std::int64_t _most = DIO_mostPixels();
    std::int64_t _left = DIO_kMostPicturesInAll * _most;
};

/// Unpacks data in the format of zlib.
///
/// @return an error when they become fewer or more, or are damaged
UT_Result<std::vector<std::uint8_t>> DIO_inflate(std::span<const std::uint8_t> packed, std::size_t size);
