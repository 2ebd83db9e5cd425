// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Estimates how much memory a frame takes while it is rendered and written.
//
// The node holds its output and the pixels of one object at a time: its inputs, two planes of floats, and a result of
// its size where the object has several inputs; of one input, the result comes in bands. What lies in the frame's
// margin counts for objects alone: output and pictures have the frame's size. Measured peaks with 1, 4 and 12 objects
// of the frame's size and one input each: 19, 23 and 23 bytes per pixel in 16 bits, 37, 39 and 40 in float; lit 51
// and 66.
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

/// What a node holds at the same time beside its output, as shares of the frame's pixels.
struct HeldShares
{
    double inputs = 0.0;
    double planes = 0.0;  ///< of what objects the planes are made
    double results = 0.0; ///< of what objects the whole result is held
};

/// The same, computed from numbers alone.
///
/// @param used the parameters with which the node is rendered; margins make no difference
double shownFrameBytes(const RD_RenderParameters& used, const ShownParts& wanted, const HeldShares& held);

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

/// What the node holds at a frame for its dearest object: the inputs of that object, because drawings are painted when
/// their object is built, and all inputs that several drawings were composed into before. Of several nodes, that of the
/// one that holds most.
///
/// @param parameters the size of the frame, and the margins with which it is rendered
HeldShares heldShares(const ShownModule& shown, int frame, const RD_RenderParameters& parameters);
