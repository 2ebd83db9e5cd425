// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Tells whether two drawings are the same, across scenes, folders and machines.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelCelCore/CELVEC_Kvd.h"
#include "QuarvelSceneIO/QuarvelSceneIOExport.h"

/// A digest of all that a drawing shows: its shapes, and the palette that they take their colours from.
///
/// @return 64 hexadecimal digits; an error when the drawing holds what no file can hold
QUARVELSCENEIO_EXPORT UT_Result<QByteArray> SIO_drawingDigest(const CELVEC_Kvd& drawing);
