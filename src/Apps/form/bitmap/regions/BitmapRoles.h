// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// BitmapRoles: which of a bitmap's regions rise, which sink and which stay flat, with the reason in words.
#pragma once

#include "form/ChosenObjects.h"
#include "form/bitmap/regions/StackingOrder.h"

struct BitmapRole
{
    ObjectRole role = ObjectRole::BODY;
    QString reason;
};

/// A region that is flat inside a rim: a board or a sign.
struct FlatRegion
{
    int number = kNoLabel;
    QString reason;
    std::vector<int> fields = {}; ///< the regions that are flat with it: what a ring and its bar leave bare
};

/// The role of each region in stacking.bottomUp, in its order.
///
/// @param flat the region that is flat inside a rim, if there is one
/// @param opaque the picture is opaque up to its borders and continues outside them
std::vector<BitmapRole> bitmapRolesOf(const RegionGraph& graph, const StackingOrder& stacking, const FlatRegion& flat,
                                      bool painted, bool opaque);
