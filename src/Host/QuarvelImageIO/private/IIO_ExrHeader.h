// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Checks an OpenEXR file before the library reads it. The library trusts a file's header and allocates memory for what
// it promises: a text of two gigabytes, a table of two thousand million lines. A file of a hundred bytes can promise
// all that. So this check reads the header first, with only its own bytes in memory, and refuses promises that the file
// cannot hold.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QIODevice>

/// Compares what the header of an OpenEXR file promises with the size of the file.
///
/// @param device the file, open and seekable; its position is the beginning of the file before and after
/// @return an error, without path, if the file does not have exactly one flat part, if an attribute reaches past the
/// file's end, or if the file is too small for its lines, tiles or pixels, even at the highest ratio of its compression
UT_Result<void> IIO_checkExrHeader(QIODevice& device);
