// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Display density: lengths in the sources are written for a display of 96 dots per inch and scaled to the one in use.
#pragma once

#include "QuarvelBaseCore/QuarvelBaseCoreExport.h"

#include <QSize>

/// The display's density as a multiple of 96 dots per inch; 1.0 until the application sets it.
QUARVELBASECORE_EXPORT double UT_DPI_factor();
/// To be set once by the application, before it builds widgets. Values that are not positive count as 1.0.
QUARVELBASECORE_EXPORT void UT_DPI_setFactor(double factor);

/// A length in pixels of the display in use, rounded to the nearest.
QUARVELBASECORE_EXPORT int UT_DPI_scale(int length);
QUARVELBASECORE_EXPORT QSize UT_DPI_scale(QSize size);
