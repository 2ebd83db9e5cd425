// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How many pixels a picture may have that is read from a file.
#pragma once

#include <cstdint>

/// The most pixels of one picture, at 4 bytes each. It follows from QImageReader::allocationLimit(), which belongs to
/// the process and which programs set to what their memory allows; by default that is 33 million.
std::int64_t DIO_mostPixels();
