// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Whether a frame's file is there already, so that a run that was broken off can go on where it stopped.
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"

#include <QDateTime>

/// When the newest file under a folder was changed; invalid when there is none.
QDateTime newestChange(const QString& folder);

/// Whether the file holds the frame: it is newer than the given time, reads to its end, shows a frame of the given size
/// and has all of the given texts.
bool isFrameOnDisk(const QString& file, const Math::Size2di& size, const IIO_Metadata& texts,
                   const QDateTime& newerThan);
