// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Describes a frame's file in words: its size and its metadata.
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"

#include <QJsonObject>

#include <optional>

/// Reads a picture that was rendered from a scene; std::nullopt for any other picture or file.
///
/// @return an error if the file has a format that never holds drawings and cannot be read
UT_Result<std::optional<IIO_Picture>> readFrame(const QString& path);

/// The description of a frame, in lines: size and channels, then each entry of its metadata, including its digest
/// (FrameDigest.h).
QString describeFrame(const IIO_Picture& frame);

/// The same for scripts: width, height, channels and texts.
QJsonObject frameFields(const IIO_Picture& frame);
