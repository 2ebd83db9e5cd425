// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How much of the picture each object is seen in, and in which colours, for listings. Choosing finds this for the
// objects that it makes of shapes; a drawing's own layers are taken as they are, and measured here.
#pragma once

#include "form/ChosenObjects.h"

#include <map>

/// Finds the shares and colours of objects that have neither, on the grid on which objects are chosen.
void measureShares(ChosenObjects& chosen);

/// Names an object's colours: those of the few paints with the most cells.
///
/// @param cells of each paint, an index into the palette, the cells that show it
void nameColours(const std::map<int, int>& cells, const DIO_Drawing& drawing, ChosenObject& object);
