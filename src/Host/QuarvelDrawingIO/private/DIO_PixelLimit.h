// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How many pixels a picture may have that is read from a file.
#pragma once

#include <QString>

#include <cstdint>

/// The most pixels of one picture, at 4 bytes each. It follows from QImageReader::allocationLimit(), which belongs to
/// the process and which programs set to what their memory allows; by default that is 33 million.
std::int64_t DIO_mostPixels();

/// Of a picture with more pixels: "5000 x 8000 pixels, more than the 33 million for which there is memory; 4541 x 7266
/// pixels fit".
///
/// @param width, height above 0, together more than DIO_mostPixels()
QString DIO_tooManyPixels(std::int64_t width, std::int64_t height);
