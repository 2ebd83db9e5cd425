// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// FewParts: a drawing of thousands of specks is no drawing of thousands of objects. The large parts stay; small ones
// that lie next to each other in the stack become one part, so that what lies above what stays as it is.
#pragma once

#include "form/choice/PartFinder.h"

/// At most so many parts, or one more.
inline constexpr std::size_t kMostParts = 240;
/// So many pictures the boxes around the parts may fill: each takes memory while it gets its form.
inline constexpr double kMostPictures = 16.0;

/// Joins small parts where there are more than kMostParts of them, or where they would fill more than kMostPictures.
/// The largest by what is seen of them, kMostParts / 2 or fewer, and the picture's ground stay by themselves.
FoundParts fewerParts(FoundParts found);
