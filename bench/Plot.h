// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The results as plots: how the time grows with the blur, with the bevel and with the frame, beside the peers.
#pragma once

#include "Report.h"

/// Writes an SVG picture of three plots: the blur of one plane against its standard deviation, the whole work against
/// the bevel, and against the size of the frame. Times are shown as multiples of a copy of the data. Points that were
/// not measured are missing.
void writePlots(const Findings& findings, std::ostream& out);
