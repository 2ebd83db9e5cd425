// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How often the outlines of areas cross, which decides how long it takes to combine them.
#pragma once

#include <QPainterPath>

/// At how many places lines of two paths cross each other, or lines of the same path; lines that only touch do not
/// count. Curves are taken as the lines between their control points.
///
/// @param most counting ends there; above it, the result is most + 1
int DIO_crossings(const QPainterPath& a, const QPainterPath& b, int most);
