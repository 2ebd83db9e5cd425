// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The values of --gloss, which several commands take.
#pragma once

#include "OptionTable.h"
#include "jobs/shown/GlossDrawing.h"

/// Adds a value such as "#9aa=0.8" or "all=0.2" to the settings.
Taken addGloss(GlossSettings& settings, const QString& option, const QString& value);

/// A warning that names the colours of --gloss that no drawing has; empty if there are none.
QString glossWarning(const std::vector<QColor>& missing);
