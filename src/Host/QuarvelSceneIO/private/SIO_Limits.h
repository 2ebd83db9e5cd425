// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What a scene's files may hold. The same limits hold for saving, so that every scene that is saved can be loaded.
#pragma once

#include <QtGlobal>

/// The bytes of one file.
inline constexpr qint64 kSIO_maxFileBytes = 64 * 1024 * 1024;
/// The shapes of one drawing.
inline constexpr int kSIO_maxShapes = 1000000;
/// The width and the height of a shape's picture, in pixels.
inline constexpr int kSIO_maxPictureSide = 16384;
/// The bytes that a shape's picture takes in memory.
inline constexpr qint64 kSIO_maxPictureBytes = 256 * 1024 * 1024;
/// The bytes that the pictures of one drawing take in memory.
inline constexpr qint64 kSIO_maxDrawingPictureBytes = 1024 * 1024 * 1024;
