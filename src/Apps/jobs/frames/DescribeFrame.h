// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A frame's file in words: its size, and what it says about itself.
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"

#include <optional>

/// A picture that was rendered of a scene; nothing for any other picture or file, for which others are responsible.
///
/// @return an error when the file is a picture whose format holds no drawing, and cannot be read
UT_Result<std::optional<IIO_Picture>> readFrame(const QString& path);

/// The lines of a frame: size and channels, then each of its texts, among them the digest of what it was made of.
QString describeFrame(const IIO_Picture& frame);
