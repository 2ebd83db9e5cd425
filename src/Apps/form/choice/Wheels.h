// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Wheels: light discs in a dark ring that stand side by side at the bottom of a drawing, or that have a hub. By itself
// such a disc could be a ball or an eye; several that carry something else, or one with a hub that does, are wheels,
// which are flat inside their rims.
#pragma once

#include "form/choice/PartFinder.h"

/// Gives the wheels among the parts a rim and a flat middle.
void findWheels(FoundParts& found, const std::vector<ShapeFacts>& facts);
