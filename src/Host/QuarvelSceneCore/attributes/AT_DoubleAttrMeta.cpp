// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Metadata of numbers.
#include "QuarvelSceneCore/attributes/AT_DoubleAttrMeta.h"

#include <cassert>

AT_DoubleAttrMeta::AT_DoubleAttrMeta(const QString& key, const QString& label, const QString& stepName, double lower,
                                     double upper, double sliderLower, double sliderUpper, double step)
    : AT_AttrMeta(key, label), _stepName(stepName), _container{lower, upper, sliderLower, sliderUpper, step}
{
    assert(lower <= upper && sliderLower <= sliderUpper && step > 0.0);
}

AT_DoubleAttrMeta::~AT_DoubleAttrMeta() = default;
