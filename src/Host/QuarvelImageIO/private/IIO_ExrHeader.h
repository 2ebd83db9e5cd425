// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A first look at an OpenEXR file. The library believes a file's header and makes room for what it promises: a text of
// two gigabytes, a table of two thousand million lines. A file of a hundred bytes can promise all that. So the header
// is walked here first, with nothing but its own bytes in memory, and what the file cannot hold is refused.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QIODevice>

/// Compares what the header of an OpenEXR file promises with the size of the file.
///
/// @param device the file, open and seekable; its position is the file's begin before and after
/// @return an error, without path, when the file is none of one flat part, when an attribute reaches beyond its end, or
/// when it is too small for the lines or tiles, or for the pixels at the best that its compression can do
UT_Result<void> IIO_checkExrHeader(QIODevice& device);
