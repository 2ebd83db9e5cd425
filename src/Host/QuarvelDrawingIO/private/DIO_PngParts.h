// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Whether a PNG file is whole, found out before its library reads it: that one writes to standard error by itself where
// a file ends early or was changed, in words that do not name the file.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

class QIODevice;

/// Reads through the parts of a PNG file, comparing the checksums of those that a picture needs, and goes back to where
/// it began. Files of other kinds pass.
///
/// @param file open, with random access
/// @return an error that says where the file ends or differs from what was written
UT_Result<void> DIO_checkPngParts(QIODevice& file);
