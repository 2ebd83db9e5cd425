// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The qualities at which normals are computed. Renders use the numbers; files hold the names.
#pragma once

/// How much of a pixel's neighbourhood its normal is computed from.
enum eNormalQuality
{
    LOW_NORMAL_QUALITY = 0,    ///< the four neighbours in row and column
    MEDIUM_NORMAL_QUALITY = 1, ///< the four diagonal neighbours, too
    HIGH_NORMAL_QUALITY = 2    ///< all eight, and the normals are smoothed afterwards
};
