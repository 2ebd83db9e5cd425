// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Comparison of two pictures, with a message that names the first difference. Meant for EXPECT_EQ(differences(...),
// "").
#pragma once

#include "reference/Image.h"

#include <string>

namespace reference {

/// Empty when both have the same canvas, size, allocated rectangle and pixels; otherwise what differs first, how many
/// pixels differ, and both values at the first of them.
std::string differences(const RefImage16& expected, const RefImage16& actual);

/// The same, with channels equal when they have the same value, are both NaN, or are at most `tolerance` apart.
std::string differences(const RefImageFloat& expected, const RefImageFloat& actual, double tolerance);

/// The same for depths (the declared range is compared exactly).
std::string differences(const RefDepth& expected, const RefDepth& actual, double tolerance);

} // namespace reference
