// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// FewParts: limits the number of parts, because a drawing of thousands of specks does not have thousands of objects.
// Large parts stay separate; small ones that follow each other in the stack become one part, so that the stacking order
// is unchanged.
#pragma once

#include "form/choice/PartFinder.h"

/// The largest number of parts; joining may leave one more.
inline constexpr std::size_t kMostParts = 240;
/// The largest total area of the boxes around the parts, in multiples of the picture's area: each box takes memory
/// while its part gets its form.
inline constexpr double kMostPictures = 16.0;

/// Joins small parts if there are more than kMostParts parts, or if their boxes would fill more than kMostPictures. The
/// parts with the largest visible areas, at most kMostParts / 2, and the backdrop stay separate.
FoundParts fewerParts(FoundParts found);
