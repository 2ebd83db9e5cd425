// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Unpacking of files that are packed with gzip, such as .svgz drawings.
#pragma once

#include <QByteArray>

#include <optional>

/// Whether bytes begin as a packed file does.
bool DIO_isGzip(const QByteArray& bytes);

/// The unpacked bytes, nothing when the file is damaged. Of a file that holds more than a limit, one byte more than the
/// limit is unpacked.
std::optional<QByteArray> DIO_gunzip(const QByteArray& bytes, qint64 limit);
