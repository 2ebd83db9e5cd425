// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LargestBevel: the largest bevel of the object table, which a node is asked for at every input.
#pragma once

#include "parameters/LatestValue.h"

/// The largest bevel of the table that was parsed last. Any number of threads may ask at once.
class LargestBevel
{
public:
    /// The largest positive finite bevel of a table given as text; 0 when there is none.
    double of(const QString& table) const;

private:
    LatestValue<double> _latest;
};
