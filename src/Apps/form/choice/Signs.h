// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Signs: a disc that is most of the drawing and has one letter on it, or something across its middle, such as a bar or
// the hands of a clock. What is painted on balls reaches their outlines, or lies beside their middles, as highlights
// and the features of a face do.
#pragma once

#include "form/choice/PartFinder.h"

/// Gives the signs among the parts a rim and a flat middle.
void findSigns(FoundParts& found, const std::vector<ShapeFacts>& facts);
