// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Sheet: recognises the rectangle that a drawing is painted on although it does not fill the picture: the paper behind
// a drawing, or a thing that is flat by nature, such as a card, a flag, a sign or a page.
#pragma once

#include "form/choice/Ink.h"

#include <optional>

enum class Sheet
{
    PAPER, ///< white, without an outline: the drawing's background
    BOARD  ///< a flat thing with a rim
};

/// What the first shape of a drawing is, if the others are painted on it.
///
/// @param facts the drawing's shapes in the order of painting, of which the first one with cells is judged
std::optional<Sheet> sheetBeneath(const std::vector<ShapeFacts>& facts, const Ink& ink);
