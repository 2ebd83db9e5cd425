// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Part: an object while it is being found: which shapes make its body, what they cover, and which shapes it wears.
#pragma once

#include "form/ChosenObjects.h"
#include "form/choice/ShapeFacts.h"

#include <vector>

/// What a shape turned out to be.
struct Verdict
{
    enum class Kind
    {
        OBJECT, ///< the body of a new object
        MERGED, ///< another piece of an object's body
        MARK,   ///< no object: it takes the form of what it lies on
        INK     ///< a mark that is drawn along borders: it takes the form of what it lies on or beside
    };

    Kind kind = Kind::MARK;
    QString reason;
    ObjectRole role = ObjectRole::BODY;
    int part = -1; ///< with MERGED: whose body
};

/// A shape that an object wears: the drawing shows it within the object's outline.
struct WornShape
{
    int shape = 0;
    bool whole = true;  ///< all of it goes into the object's layer; else what lies within the body's outline
    double reach = 0.0; ///< if not whole: how far beyond that outline, in cells
};

struct Part
{
    std::vector<int> body; ///< shapes in the order of painting
    std::vector<WornShape> worn;
    CellMask region;     ///< what the body covers, hidden or not
    double border = 0.0; ///< how far the ink that it wears goes beyond its outline, in cells
    ObjectRole role = ObjectRole::BODY;
    QString reason;
    bool isBackdrop = false;  ///< the picture's ground: what lies on it lies on nothing
    bool ink = false;         ///< made of lines alone
    bool translucent = false; ///< what lies beneath is seen through it
};
