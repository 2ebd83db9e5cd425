// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// AT_DoubleAttrMeta: the metadata of an attribute that is a number: its limits, the range of its slider, its step.
#pragma once

#include "QuarvelSceneCore/attributes/AT_AttrMeta.h"

/// The five numbers of a numeric attribute.
struct AT_DoubleAttrMetaContainer
{
    /// The step of an attribute that does not choose one.
    static constexpr double kDefaultValueStep = 0.1;

    /// The limits, both included, that every value is clamped to.
    double lower;
    double upper;
    /// The range that a slider offers; a value may lie outside it.
    double sliderLower;
    double sliderUpper;
    /// By how much one step of a spin box or wheel changes the value.
    double step;
};

/// The metadata of a numeric attribute.
class QUARVELSCENECORE_EXPORT AT_DoubleAttrMeta : public AT_AttrMeta
{
public:
    /// @param stepName the name under which an application may keep a step that its user prefers
    /// @param lower,upper the limits of the value; lower <= upper
    /// @param sliderLower,sliderUpper the range of a slider; sliderLower <= sliderUpper
    AT_DoubleAttrMeta(const QString& key, const QString& label, const QString& stepName, double lower, double upper,
                      double sliderLower, double sliderUpper,
                      double step = AT_DoubleAttrMetaContainer::kDefaultValueStep);
    ~AT_DoubleAttrMeta() override;

    const QString& stepName() const { return _stepName; }
    const AT_DoubleAttrMetaContainer& container() const { return _container; }

private:
    QString _stepName;
    AT_DoubleAttrMetaContainer _container;
};
