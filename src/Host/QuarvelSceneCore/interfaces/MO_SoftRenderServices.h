// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_SoftRenderServices: common steps of making pictures.
#pragma once

#include "QuarvelSceneCore/interfaces/MO_SoftContext.h"

/// Helpers for soft rendering.
class QUARVELSCENECORE_EXPORT MO_SoftRenderServices
{
public:
    /// A cel whose pixmap has the render's size, canvas and main format and no pixels.
    static CA_CelRef createBlankCel(const MO_SoftContext& context);
    /// Delivers such a cel as the picture of an output port.
    static void setBlankCel(const MO_SoftContext& context, int port);
};
