// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The limits of a scene's files. Saving respects the same limits as loading, so that every saved scene can be loaded,
// unless the program that loads it bounds pictures more closely (QImageReader::setAllocationLimit).
#pragma once

#include <QString>

/// The largest size of the main file, and of one drawing, in bytes.
inline constexpr qint64 kSIO_maxFileBytes = 64 * 1024 * 1024;
/// The largest size of one palette, in bytes.
inline constexpr qint64 kSIO_maxPaletteBytes = 16 * 1024 * 1024;

/// The largest size in bytes of a file, by its path within the scene's folder.
inline qint64 SIO_maxBytesOf(const QString& relative)
{
    return relative.startsWith(QLatin1String("palettes/")) ? kSIO_maxPaletteBytes : kSIO_maxFileBytes;
}

/// The largest number of XML elements and attributes together in the main file or in one palette: about 300 MB in
/// memory.
inline constexpr qint64 kSIO_maxParts = 1000000;
/// The same for one drawing, which usually has more of them.
inline constexpr qint64 kSIO_maxDrawingParts = 8000000;

/// The largest number of XML elements and attributes in a file, by its path within the scene's folder.
inline qint64 SIO_maxPartsOf(const QString& relative)
{
    return relative.startsWith(QLatin1String("elements/")) ? kSIO_maxDrawingParts : kSIO_maxParts;
}

/// The largest number of shapes in one drawing.
inline constexpr int kSIO_maxShapes = 1000000;
/// The largest width and height of a shape's picture, in pixels.
inline constexpr int kSIO_maxPictureSide = 16384;
/// The most memory for a shape's picture, in bytes.
inline constexpr qint64 kSIO_maxPictureBytes = 256 * 1024 * 1024;
/// The most memory for all pictures of one drawing, in bytes.
inline constexpr qint64 kSIO_maxDrawingPictureBytes = 1024 * 1024 * 1024;
