// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The undoable changes of a time line: keys of numbers, and where drawings begin to be shown.
#pragma once

#include "QuarvelSceneCore/attributes/AT_AnimatableAttr.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/editing/MO_EditCommand.h"

/// Adds a key with the number's value at the frame and the interpolation of the key before it.
///
/// @return null when there is a key at exactly this frame
QUARVELSCENECORE_EXPORT MO_EditCommand MO_addKeyCmd(AT_AnimatableAttr& attr, double frame);

/// Removes a key. Removing the last one ends the animation, and its value becomes the local value.
///
/// @return null when there is no key at exactly this frame
QUARVELSCENECORE_EXPORT MO_EditCommand MO_removeKeyCmd(AT_AnimatableAttr& attr, double frame);

/// Moves a key to another frame, replacing the one there. @return null when there is no key at exactly the first frame
QUARVELSCENECORE_EXPORT MO_EditCommand MO_moveKeyCmd(AT_AnimatableAttr& attr, double from, double to);

/// Changes how the value goes from the key to the next one; a Bezier key gets handles that make it smooth.
///
/// @return null when there is no key at exactly this frame or nothing would change
QUARVELSCENECORE_EXPORT MO_EditCommand MO_interpolationCmd(AT_AnimatableAttr& attr, double frame,
                                                           AT_Curve::Interpolation interpolation);

/// Removes the exposure that begins at a frame: the drawing before it is shown longer. @return null when none begins
/// there
QUARVELSCENECORE_EXPORT MO_EditCommand MO_removeExposureCmd(AT_DrawingAttr& attr, int frame);

/// Moves the beginning of an exposure to another frame, replacing the one there. @return null when none begins at the
/// first frame
QUARVELSCENECORE_EXPORT MO_EditCommand MO_moveExposureCmd(AT_DrawingAttr& attr, int from, int to);
