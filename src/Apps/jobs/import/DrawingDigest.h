// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A digest of the files that drawings were read from, so that a scene that is opened later can tell whether they have
// changed since. The time of a file says too little: version control and copying set it anew.
#pragma once

#include <QString>
#include <QStringList>

/// The SHA-256 of a file's content, as hexadecimal digits; of several files, that of each one's size and content, one
/// after the other.
///
/// @return an empty text if one of them cannot be read
QString drawingDigest(const QStringList& files);
