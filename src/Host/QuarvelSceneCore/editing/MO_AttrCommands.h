// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The undoable changes of an attribute as a whole: its surrogate, its curve, its exposures. (The attribute itself makes
// the commands that set its value.)
#pragma once

#include "QuarvelSceneCore/attributes/AT_AnimatableAttr.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/editing/MO_EditCommand.h"

/// Lets a surrogate drive the attribute; null ends that. @return null when nothing would change, or the attribute
/// cannot be driven
QUARVELSCENECORE_EXPORT MO_EditCommand MO_driveCmd(AT_SimpleAttr& attr,
                                                   const UT_SharedPtr<AT_AttrSurrogate>& surrogate);

/// Gives a number a curve; an empty one ends the animation, and the local value counts. @return null when nothing would
/// change
QUARVELSCENECORE_EXPORT MO_EditCommand MO_curveCmd(AT_AnimatableAttr& attr, const AT_Curve& curve);

/// Gives a number one value at all frames: sets the local value, clamped to the limits, and removes the animation.
///
/// @param value a whole number for an AT_IntAttr
/// @return null when nothing would change, or the value is not finite
QUARVELSCENECORE_EXPORT MO_EditCommand MO_constantCmd(AT_AnimatableAttr& attr, double value);

/// A number and the value that it gets.
struct MO_NumberChange
{
    AT_AnimatableAttr* number = nullptr;
    double value = 0.0;
};

/// Sets several numbers at a frame as one change, as AT_DoubleAttr::setValueCmd() sets one: the key of a number that is
/// animated, the local value of any other. Consecutive commands of the same name for the same numbers merge, even if
/// each of them leaves some of the numbers unchanged. @return null when nothing would change
QUARVELSCENECORE_EXPORT MO_EditCommand MO_numbersCmd(const QString& name, double frame,
                                                     const std::vector<MO_NumberChange>& changes);

/// Replaces the exposures of a drawing attribute. @return null when nothing would change
QUARVELSCENECORE_EXPORT MO_EditCommand MO_exposuresCmd(AT_DrawingAttr& attr, const AT_ExposureSheet& exposures);

/// Shows a drawing from the frame on (its whole part); an empty name shows none. @return null when nothing would change
QUARVELSCENECORE_EXPORT MO_EditCommand MO_exposeCmd(AT_DrawingAttr& attr, double frame, const QString& drawing);
