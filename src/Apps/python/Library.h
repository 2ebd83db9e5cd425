// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What has to be there before anything is rendered: Qt's application object, the plug-ins, the limits of the job.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

/// Makes it all ready, once, on the thread that first asks.
///
/// @return an error when the plug-ins cannot be loaded
UT_Result<void> startLibrary();

/// Waits for the threads that loops ran on. Nothing may be rendered afterwards.
void endLibrary();
