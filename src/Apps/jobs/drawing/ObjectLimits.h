// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The limits of the values of objects. Words refuse what lies outside, and the window's fields and handles stop at
// them, so that each accepts what the other wrote. The limits of bevel, elevation and smoothness are wide and exclude
// typing errors only.
#pragma once

#include "ObjectDefinition/ObjectDefinition.h"

#include <algorithm>

/// The least and the most that a value may be, each included.
struct ValueLimits
{
    double least;
    double most;

    /// Whether a number lies within; NaN does not.
    constexpr bool hold(double number) const { return number >= least && number <= most; }
    /// The nearest number within.
    constexpr double clamp(double number) const { return std::clamp(number, least, most); }
};

/// The limits of one object's values (ObjectSettings), in the same units.
struct ObjectLimits
{
    /// It reaches across the picture more than a hundred times.
    static constexpr ValueLimits kBevel{0.0, 100'000.0};
    static constexpr ValueLimits kElevation{-100'000.0, 100'000.0};
    static constexpr ValueLimits kSmoothness{0.01, 128.0};
    static constexpr ValueLimits kLevel{0.0, 1.0};
    static constexpr ValueLimits kTilt{-ObjectDefinition::kMostTilt, ObjectDefinition::kMostTilt};
    static constexpr ValueLimits kRimBevel{0.0, ObjectDefinition::kMostRimBevel};
    static constexpr ValueLimits kRimHeight{0.0, ObjectDefinition::kMostRimHeight};
    static constexpr ValueLimits kRelief{-ObjectDefinition::kMostRelief, ObjectDefinition::kMostRelief};
};
