// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Estimates how much memory a frame takes while it is rendered and written.
//
// The node holds the pixels of one object at a time, an input and a result of its size, and its output and a working
// pixmap: P (2 S + 2) bytes per pixel, where P is the size of a pixel (8 bytes, 16 in float) and S the largest share of
// the frame that an object covers. Measured peaks with 1, 4 and 12 objects of the frame's size: 26, 35 and 34 bytes per
// pixel in 16 bits, 51, 66 and 67 in float; lit 54, 62 and 63, and 78, 94 and 94.
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
/// @param held the share of the frame whose inputs are held at once (heldShare)
double shownFrameBytes(const RD_RenderParameters& used, const ShownParts& wanted, double held);

/// The largest size with a picture's proportions that fits: memory grows with the number of pixels.
///
/// @param resolution the size of a picture that does not fit
/// @param needed     the bytes that it takes
/// @param budget     the bytes that there are, at least 1
/// @return each side is at least 1
std::pair<int, int> sizeThatFits(const std::pair<int, int>& resolution, double needed, double budget);

/// The error for a picture that needs more bytes than it may take; it names the size that fits.
///
/// @param what "a frame", "a picture"
UT_Error tooLarge(const QString& what, const std::pair<int, int>& resolution, double needed, double budget);

/// The share of the frame whose inputs a node holds as pixels at the same time, at the examined frame where it is
/// largest: the inputs of the largest object, because drawings are painted when their object is built, and all inputs
/// that several drawings were composed into before.
double heldShare(const ShownModule& shown, std::span<const int> frames);
