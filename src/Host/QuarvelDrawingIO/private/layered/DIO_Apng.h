// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Animated PNG files: https://www.w3.org/TR/png-3/. Each frame is put into a PNG file of its own, which Qt reads.
// The code here composes the frames: their places, what is cleared between them, and how they are blended.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QImage>

#include <functional>
#include <span>

/// Takes a picture as it is shown, and for how long.
using DIO_TakeFrame = std::function<UT_Result<void>(const QImage& picture, int milliseconds)>;

/// Whether bytes begin like a PNG file with an animation in it.
bool DIO_isApng(std::span<const std::uint8_t> bytes);

/// Reads all frames.
///
/// @param bytes for which DIO_isApng()
UT_Result<void> DIO_readApng(std::span<const std::uint8_t> bytes, const DIO_TakeFrame& take);
