// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Lets objects that end on the picture's border go on beyond it. Artists cut busts and landscapes off there, and a body
// that ends there would be rounded towards a border that is none of its own. What is added lies outside of the picture,
// where only the bevel of a picture that is rendered with a margin meets it.
#pragma once

#include "form/ChosenObjects.h"

/// Continues the layers of a drawing beyond the picture's border where it cuts them, by half of its longer side. Layers
/// that go on by themselves stay as they are, and so do tiles and backdrops.
void continueBeyondFrame(ChosenObjects& chosen);
