// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// New keys of curves, and smooth ones.
#pragma once

#include "QuarvelSceneCore/attributes/AT_Curve.h"

/// Gives a curve a value at a frame. A key that is there keeps its handles. A new one divides a Bezier segment in two
/// that have its form, and elsewhere has the interpolation of the key before it.
void AT_putValue(AT_Curve& curve, double frame, double value);

/// Gives a key and the next one handles that reach a third of the way to each other and are horizontal, so that the
/// value leaves and reaches them smoothly. The key is put into the curve, also where there is no next one.
void AT_ease(AT_Curve& curve, const AT_Curve::Key& key);
