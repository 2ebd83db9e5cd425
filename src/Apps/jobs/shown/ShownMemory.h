// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How much memory a frame takes while it is rendered and written.
//
// The node holds an input and a result for every object, as large as the object, beside its output and what it works
// on: P (2 S + 2) bytes a pixel, where P is the bytes of a pixel, 8 or 16 in float, and S the shares of the frame that
// the objects cover, added up. What is made of the frame afterwards takes less as soon as there are a few objects.
// Peaks that were measured with 1, 4 and 12 objects of the frame's size: 29, 83 and 209 bytes a pixel in 16 bits, 57,
// 151 and 401 in float; lit, of one object, 65 and 93.
#pragma once

#include "jobs/shown/ShownFrame.h"

#include <span>

/// About how many bytes a frame takes at most, its pictures for files included.
///
/// @param frames     those to be rendered, in any order; of many some are looked at
/// @param parameters what is asked for (ShownModule::render)
double shownFrameBytes(const ShownModule& shown, std::span<const int> frames, const RD_RenderParameters& parameters,
                       const ShownParts& wanted);

/// The same as a law of numbers.
///
/// @param used    what the node is rendered with, margins included
/// @param covered the objects' shares of the frame, added up (coveredShare)
double shownFrameBytes(const RD_RenderParameters& used, const ShownParts& wanted, double covered);

/// The shares of the frame that the inputs of the module's nodes cover, added up, at the frame where they are largest.
double coveredShare(const ShownModule& shown, std::span<const int> frames);
