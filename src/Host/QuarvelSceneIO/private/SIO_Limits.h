// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What a scene's files may hold. The same limits hold for saving, so that every scene that is saved can be loaded.
#pragma once

#include <QString>

/// The bytes of the main file, and of one drawing.
inline constexpr qint64 kSIO_maxFileBytes = 64 * 1024 * 1024;
/// The bytes of one palette.
inline constexpr qint64 kSIO_maxPaletteBytes = 16 * 1024 * 1024;

/// The bytes of a file by its path within the scene's folder.
inline qint64 SIO_maxBytesOf(const QString& relative)
{
    return relative.startsWith(QLatin1String("palettes/")) ? kSIO_maxPaletteBytes : kSIO_maxFileBytes;
}

/// The XML elements and attributes, together, of the main file or of one palette: some 300 MB in memory.
inline constexpr qint64 kSIO_maxParts = 1000000;
/// The same of one drawing, which has more of them by its nature.
inline constexpr qint64 kSIO_maxDrawingParts = 8000000;

/// The XML elements and attributes of a file by its path within the scene's folder.
inline qint64 SIO_maxPartsOf(const QString& relative)
{
    return relative.startsWith(QLatin1String("elements/")) ? kSIO_maxDrawingParts : kSIO_maxParts;
}

/// The shapes of one drawing.
inline constexpr int kSIO_maxShapes = 1000000;
/// The width and the height of a shape's picture, in pixels.
inline constexpr int kSIO_maxPictureSide = 16384;
/// The bytes that a shape's picture takes in memory.
inline constexpr qint64 kSIO_maxPictureBytes = 256 * 1024 * 1024;
/// The bytes that the pictures of one drawing take in memory.
inline constexpr qint64 kSIO_maxDrawingPictureBytes = 1024 * 1024 * 1024;
