// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What to do about a file that a command cannot read and another program or command can.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QString>

/// Whether a path may name a drawing; the file itself is judged by who reads it.
///
/// @return an error for folders and for files of other kinds, which says how to go on
UT_Result<void> checkIsDrawing(const QString& path);

/// Whether a path may name a file that a scene is made of.
UT_Result<void> checkIsImportable(const QString& path);
