// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What to do about a file that a command cannot read and another program or command can, and which option helps where
// something else is refused: the window shows the same errors and has no options.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QString>

/// The command that makes something of a drawing, an atlas, an animation or a scene; empty for any other name.
QString commandFor(const QString& path);

/// The same error with the option that helps, such as " with --frames".
UT_Error withAdvice(UT_Error error, const QString& more);

/// Whether a path may name a drawing; the file itself is judged by who reads it.
///
/// @return an error for folders and for files of other kinds, which says how to go on
UT_Result<void> checkIsDrawing(const QString& path);

/// Whether a path may name a file that a scene is made of.
UT_Result<void> checkIsImportable(const QString& path);

/// Whether a path may name a scene; who opens it says what is wrong with a folder, and that there is none.
///
/// @return an error for files, which says how a scene is made of them
UT_Result<void> checkIsScene(const QString& path);
