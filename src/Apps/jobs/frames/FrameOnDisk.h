// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Tells whether a frame's file exists already, so that an interrupted run can continue where it stopped.
#pragma once

#include <QByteArray>
#include <QString>

/// Whether the file holds the frame: its metadata contain this digest (FrameDigest.h), and it can be read to its end.
bool isFrameOnDisk(const QString& file, const QByteArray& digest);
