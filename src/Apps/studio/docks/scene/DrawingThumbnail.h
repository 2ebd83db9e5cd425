// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DrawingThumbnail: a small picture of a vector drawing, for lists.
#pragma once

#include "QuarvelCelCore/CELVEC_Kvd.h"

#include <QPixmap>

/// A drawing in its palette's colours, fitted into a square; what is empty stays transparent.
///
/// @param side  the square's side in device-independent pixels
/// @param ratio device pixels a device-independent one
QPixmap drawingThumbnail(const CELVEC_Kvd& drawing, int side, double ratio);
