// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Estimates how much memory a frame takes while it is rendered and written.
//
// The node holds an input and a result of the object's size for every object, and its output and a working pixmap: P (2
// S + 2) bytes per pixel, where P is the size of a pixel (8 bytes, 16 in float) and S the sum of the shares of the
// frame that the objects cover. The later steps take less as soon as there are a few objects. Measured peaks with 1, 4
// and 12 objects of the frame's size: 29, 83 and 209 bytes per pixel in 16 bits, 57, 151 and 401 in float; lit, with
// one object, 65 and 93.
#pragma once

#include "jobs/shown/ShownFrame.h"

#include <span>
#include <utility>

/// Estimates the most memory that any of the frames takes, in bytes, including its pictures for files.
///
/// @param frames the frames to render, in any order; of many frames only some are examined
/// @param parameters the parameters for ShownModule::render()
double shownFrameBytes(const ShownModule& shown, std::span<const int> frames, const RD_RenderParameters& parameters,
                       const ShownParts& wanted);

/// The same, computed from numbers alone.
///
/// @param used the parameters with which the node is rendered, including margins
/// @param covered the sum of the objects' shares of the frame (coveredShare)
double shownFrameBytes(const RD_RenderParameters& used, const ShownParts& wanted, double covered);

/// The largest size with a picture's proportions that fits: memory grows with the number of pixels.
///
/// @param resolution the size of a picture that does not fit
/// @param needed     the bytes that it takes
/// @param budget     the bytes that there are, at least 1
/// @return each side is at least 1
std::pair<int, int> sizeThatFits(const std::pair<int, int>& resolution, double needed, double budget);

/// The sum of the shares of the frame that the inputs of the module's nodes cover, at the examined frame where it is
/// largest.
double coveredShare(const ShownModule& shown, std::span<const int> frames);
