// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The plug-ins that commands work with.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

/// Loads the plug-ins.
///
/// @return an error when one cannot be loaded, or when the one that makes normal maps is not among them: scenes would
/// be rendered without it
UT_Result<void> loadPlugIns();
