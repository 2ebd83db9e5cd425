// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Pixels of Aseprite files in the three modes that there are.
#pragma once

#include "QuarvelDrawingIO/private/layered/DIO_ByteReader.h"
#include "QuarvelDrawingIO/private/layered/DIO_FileLimits.h"

#include <QImage>

/// How the pixels of a file are stored.
struct DIO_AsepriteMode
{
    int depth = 32; ///< bits a pixel: 32 colours with alpha, 16 grey with alpha, 8 indices
    int transparentIndex = 0;
    std::vector<QRgb> palette;

    std::size_t pixelBytes() const { return static_cast<std::size_t>(depth) / 8; }
};

/// A picture of stored pixels.
///
/// @param bytes width x height pixels
/// @param isBackground no index is transparent there
QImage DIO_asepriteImage(std::span<const std::uint8_t> bytes, const QSize& size, const DIO_AsepriteMode& mode,
                         bool isBackground);

/// Tiles of one size, all in one picture, one below the other.
struct DIO_AsepriteTiles
{
    QSize tile;
    int count = 0;
    QImage all;
};

/// How the number of a tile is stored.
struct DIO_AsepriteTileBits
{
    std::uint32_t number = 0;
    std::uint32_t mirroredX = 0;
    std::uint32_t mirroredY = 0;
    std::uint32_t transposed = 0;
};

/// The picture of a map of tiles.
///
/// @param map four bytes a tile, row by row
/// @param size in tiles
QImage DIO_asepriteTileMap(std::span<const std::uint8_t> map, const QSize& size, const DIO_AsepriteTileBits& bits,
                           const DIO_AsepriteTiles& tiles);
