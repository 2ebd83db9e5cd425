// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RD_renderShown: renders a module where only a part of its picture is looked at.
//
// A margin around the frame decides how high the objects in the frame are, but is not shown itself. A module may leave
// out the pixels there (MO_SoftContext::shownRect) once it needs them no more.
#pragma once

#include "QuarvelBaseCore/Math_Box2di.h"
#include "QuarvelSceneCore/rendering/RD_SoftRenderer.h"

/// Renders as RD_SoftRenderer::render does, but the picture may lack pixels outside a rectangle.
///
/// @param shown the pixels inside have the values that they have in the whole picture
QUARVELSCENECORE_EXPORT UT_Result<CA_CelRef>
RD_renderShown(MO_Module& module, double frame, const RD_RenderParameters& parameters, const Math::Box2di& shown,
               const RD_SoftRenderer::Progress& progress = {}, RD_KeptInputs* kept = nullptr);
