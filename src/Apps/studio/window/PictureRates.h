// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How many pictures a second the window shows while a hand moves something in it, for ./dev bench studio.
#pragma once

/// Opens the example in a window with a picture of as many pixels as 1920 x 1080 has, drags a bevel and a light, and
/// plays a keyed value; prints for each how many different pictures were painted in a second, and its goal. Then opens
/// a drawing of 320 layers and prints how long the first picture after a change takes.
///
/// @return the program's exit code: 0, or 1 when the example could not be shown
int printPictureRates();
