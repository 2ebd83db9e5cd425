// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Whether the peer does the same work: comparing the times of programs that make different pictures would be
// meaningless.
#pragma once

#include <string>
#include <vector>

/// How far the peer's normal map is from the node's, in shares of a channel's full scale, over the covered pixels of
/// red and green.
struct Agreement
{
    std::string name;
    double mean = 0.0;
    double ofMost = 0.0; ///< 99.9 of 100 pixels differ by no more than this
};

/// Compares the 16-bit pictures of one size, every quality and bevel.
std::vector<Agreement> comparePictures();
