// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// JoinRules: decides whether a shape that lies over or beside a part is another piece of it or a part of its own.
#pragma once

#include "form/choice/Part.h"
#include "form/choice/PartMap.h"

/// The overlap, in relation to the smaller area, from which on two areas no longer lie side by side.
inline constexpr double kAbutting = 0.12;

/// The reason why a shape is a piece of a part's body; empty if it is not.
///
/// @param piece the piece of the body that the shape is compared with
/// @param meeting the shape's overlap and contact with the whole part
QString joins(const ShapeFacts& shape, const ShapeFacts& piece, const Meeting& meeting);

/// The same for a part: the first reason that one of its pieces gives.
///
/// @param facts of all shapes
QString joinsPart(const ShapeFacts& shape, const Part& part, const std::vector<ShapeFacts>& facts,
                  const Meeting& meeting);
