// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The settings for the choice of objects and of their form. These are plain values; the commands define how they are
// spelled on the command line.
#pragma once

/// Which parts of a drawing become objects.
enum class ObjectChoice
{
    AUTO,   ///< the file's layers if it declares at least two or gives one values; else the parts found in its shapes
    LAYERS, ///< the layers that the file declares; the whole drawing where it declares none
    GROUPS, ///< the top-level groups
    SHAPES, ///< every painted area
    ONE     ///< the whole drawing
};

/// Where an object's bevel, elevation and smoothness come from.
enum class FormShape
{
    AUTO,   ///< chosen from the object's own extent
    RIM,    ///< a narrow rim of the same width on every object
    PILLOW, ///< the form that AUTO chooses for round objects, on every object
    OFF     ///< no volume
};

/// How a drawing gets its form.
struct FormSettings
{
    ObjectChoice objects = ObjectChoice::AUTO;
    FormShape shape = FormShape::AUTO;
    bool listed = false; ///< shares and colours are found for a drawing's own layers, too (ObjectShares.h)
    /// Width over height of the picture that the drawing is fitted into; 0 for the drawing's own (PageFrame.h).
    double aspect = 0.0;
    double volume = 1.0; ///< factor on the elevation, 0 (flat) to kMaxVolume

    static constexpr double kMaxVolume = 2.0;

    friend bool operator==(const FormSettings&, const FormSettings&) = default;
};
