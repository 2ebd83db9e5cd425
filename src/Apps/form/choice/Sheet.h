// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Sheet: recognises the rectangle that a drawing is painted on although it does not fill the picture: the paper behind
// a drawing, or a thing that is flat by nature, such as a card, a flag, a sign or a page.
#pragma once

#include "form/choice/Ink.h"

#include <optional>

struct Sheet
{
    enum class Kind
    {
        PAPER, ///< white, sharp-cornered, without an outline: the drawing's background
        BOARD  ///< a flat thing with a rim
    };

    Kind kind;
    int shape; ///< its index
};

/// The sheet that the other shapes are painted on, if there is one. It is the first shape that is neither a
/// line nor a translucent shadow.
///
/// @param facts the drawing's shapes in the order of painting
std::optional<Sheet> sheetBeneath(const std::vector<ShapeFacts>& facts, const Ink& ink);
