// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the format of a file cannot keep of what is written to it. A run says so once.
#pragma once

#include "Report.h"

/// Warns if the file's format holds 8 bits a channel, in which slopes have steps.
void warnOfEightBits(const QString& file, Report& report);

/// Warns that a file cannot say what it was made of, so that --resume does not find it.
///
/// @param again what the run does therefore: "renders all frames again"
void warnOfNoDigest(const QString& file, const QString& again, Report& report);
