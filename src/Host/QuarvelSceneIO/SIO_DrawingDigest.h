// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Computes digests of drawings, which tell whether two drawings are equal, across scenes, folders and machines.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelCelCore/CELVEC_Kvd.h"
#include "QuarvelSceneIO/QuarvelSceneIOExport.h"

/// A digest of all that a drawing shows: its shapes and the palette of their colours.
///
/// @return 64 hexadecimal digits; an error if the drawing exceeds what a file can hold (SIO_Limits.h)
QUARVELSCENEIO_EXPORT UT_Result<QByteArray> SIO_drawingDigest(const CELVEC_Kvd& drawing);
