// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Which samples depend on which in a step.
#include "BlurAlgo/private/Intervals.h"

namespace BlurAlgo {

Interval halvedSupport(Interval samples, int reach)
{
    return {ceilHalf(samples.lo - reach), floorHalf(samples.hi - 1 + reach) + 1};
}

Interval neededByDoubling(Interval samples, int reach)
{
    return halvedSupport(alignedToEven(samples), reach);
}

Interval doubledSupport(Interval samples, int reach)
{
    return {2 * samples.lo - reach, 2 * (samples.hi - 1) + reach + 1};
}

} // namespace BlurAlgo
