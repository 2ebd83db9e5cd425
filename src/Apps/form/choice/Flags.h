// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Flags: boards that are wider than high and have several colours along their border. What lies on one is print, such
// as a coat of arms. On other boards, such as pictures of a landscape and tiles, it may be a thing.
#pragma once

#include "form/choice/FoundParts.h"

/// Whether a rectangle has the shape of a flag.
bool hasFlagShape(const QSize& box);

/// Joins what lies on a flag to its board, if the drawing is a flag.
FoundParts printedFlag(FoundParts found, const std::vector<ShapeFacts>& facts);
