// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What a person can say about the choice of objects and of their form. Plain values; how they are spelled on a command
// line is the command's affair.
#pragma once

/// What of a drawing becomes an object.
enum class ObjectChoice
{
    AUTO,   ///< two or more layers that the file declares; in any other drawing what its shapes suggest
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
    PILLOW, ///< as AUTO chooses them for round objects
    OFF     ///< no volume
};

/// How a drawing gets its form.
struct FormSettings
{
    ObjectChoice objects = ObjectChoice::AUTO;
    FormShape shape = FormShape::AUTO;
    double volume = 1.0; ///< how strong the form is: 0 none, 1 as chosen, up to kMaxVolume

    static constexpr double kMaxVolume = 2.0;

    friend bool operator==(const FormSettings&, const FormSettings&) = default;
};
