// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_CompositeType: in which order a module puts its input pictures together.
#pragma once

/// The orders of composition.
struct MO_CompositeType
{
    enum CompositeOrder
    {
        LAST_PORT_FIRST = 0, ///< the last port's picture is painted first: the first port ends on top
        PORT_ORDER = 1       ///< the first port's picture is painted first: the last port ends on top
    };
};
