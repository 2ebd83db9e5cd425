// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The way from shapes to pixels.
#pragma once

#include "QuarvelCelCore/CELVEC_Kvd.h"

/// Paints a drawing's selected art layers through a colour transform into a pixmap, as CELVEC_Kvd::render says.
void CELVEC_rasterise(const CELVEC_Kvd& drawing, GR_GraphicOpsColorTransform& colors, const CELVEC_RenderArgs& args,
                      CEL_PixmapArea& target);
