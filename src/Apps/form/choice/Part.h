// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Part: an object while the drawing is being analysed: the shapes of its body, the area that they cover, and the shapes
// that it wears.
#pragma once

#include "form/ChosenObjects.h"
#include "form/choice/ShapeFacts.h"

#include <vector>

/// The decision about a shape.
struct Verdict
{
    enum class Kind
    {
        OBJECT, ///< the body of a new object
        MERGED, ///< another piece of an object's body
        MARK,   ///< not an object: it takes the form of the part that it lies on
        INK     ///< a mark along borders: it takes the form of the part that it lies on or beside
    };

    Kind kind = Kind::MARK;
    QString reason;
    ObjectRole role = ObjectRole::BODY;
    int part = -1; ///< with MERGED: the part whose body it belongs to
};

/// A shape that an object wears: the drawing shows it within the object's outline.
struct WornShape
{
    int shape = 0;
    bool whole = true;  ///< the object's layer gets the whole shape; else only the part inside the body's outline
    double reach = 0.0; ///< if not whole: how far outside that outline it is still shown, in cells
};

struct Part
{
    std::vector<int> body; ///< its shapes in the order of painting
    std::vector<WornShape> worn;
    CellMask region;     ///< the cells that the body covers, visible or hidden
    double border = 0.0; ///< how far its ink reaches outside its outline, in cells
    ObjectRole role = ObjectRole::BODY;
    QString reason;
    bool isBackdrop = false;  ///< the picture's background; shapes on it are judged as if it were not there
    bool ink = false;         ///< made of lines only
    bool translucent = false; ///< parts beneath it are visible through it
};
