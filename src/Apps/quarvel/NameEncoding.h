// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Names of files that are no text. On Linux a name is any bytes; the libraries that open files here take names that are
// UTF-8 only. Files with other names are named and left alone, instead of being taken for missing.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QString>

#include <span>

/// Checks the words of a command line as the system gave them.
///
/// @return an error that shows the first word that is not UTF-8, and says what to do
UT_Result<void> checkNamesAreText(std::span<char* const> words);

/// How many entries of a folder, not of those below it, have names that are not UTF-8.
int namesThatAreNoText(const QString& folder);
