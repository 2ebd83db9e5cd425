// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// OutputFolder: the folders of files that are going to be written.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

/// Makes the folder of a file, with all folders above it, unless it is there.
///
/// @return an error that names the folder if it cannot be made
UT_Result<void> makeFolderFor(const QString& file);
