// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Whether a frame's file is there already, so that a run that was broken off can go on where it stopped.
#pragma once

#include <QByteArray>
#include <QString>

/// Whether the file holds the frame: it says this digest (FrameDigest.h), which nobody is asked about but the file
/// itself, and can be read to its end.
bool isFrameOnDisk(const QString& file, const QByteArray& digest);
