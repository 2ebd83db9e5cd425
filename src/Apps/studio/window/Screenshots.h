// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Screenshots: writes pictures of every view and dialog, for people who check how the window looks.
#pragma once

#include <QString>

/// Opens the example in a window and writes pictures of all that the application shows, in English and German, light
/// and dark, in single and double density.
///
/// @param folder made when it does not exist
/// @return the program's exit code: 0, or 1 when something could not be shown or written
int makeScreenshots(const QString& folder);
