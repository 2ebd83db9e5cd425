// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ExitCodes: what the program exits with. 0 says that everything was done; a run that a signal stopped exits with
// StopSignal::exitCode(), 130 or 143.
#pragma once

/// Something was not done; messages say what.
constexpr int kFailed = 1;
/// The command line was wrong, and nothing was changed.
constexpr int kWrongUsage = 2;
