// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Lets objects that end on the picture's border go on beyond it. Artists cut busts and landscapes off
// there, and a body that ends there would be rounded towards a border that is none of its own. What is added lies
// outside of the picture, so nobody sees it but the bevel.
#pragma once

#include "form/ChosenObjects.h"

/// Continues the layers of a drawing beyond the picture's border where it cuts them. Tiles and backdrops stay as they
/// are.
///
/// For pictures that are rendered with a margin which is cropped afterwards, and show nothing beyond the frame.
void continueBeyondFrame(ChosenObjects& chosen);
