// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Calling vector code that is compiled once for each instruction set (hwy/foreach_target.h), in the version for the
// chosen set (VL_Targets.h). A kernel is a function in the namespace HWY_NAMESPACE; beside it, once in the file:
//     VL_EXPORT(sumRows);
//
//     void sumRows(const float* in, float* out, int n)
//     {
//         VL_CALL(sumRows)(in, out, n);
//     }
//
// To be included after hwy/highway.h, in the part of the file for HWY_ONCE.
#pragma once

#include "QuarvelVectorLanes/VL_Targets.h"

#if (HWY_TARGETS & (HWY_TARGETS - 1)) == 0

// The compiler makes code for one instruction set only.
#define VL_EXPORT(kernel) static_assert(true)
#define VL_CALL(kernel) HWY_STATIC_DISPATCH(kernel)

#else

/// Collects a kernel's versions for all instruction sets in a table, in the order of hwy::ChosenTarget's index. The
/// first entry is the index for "no choice yet", which never occurs.
#define VL_EXPORT(kernel)                                                                                              \
    static decltype(&HWY_STATIC_DISPATCH(kernel)) const HWY_CONCAT(kernel, OfTargets)[HWY_MAX_DYNAMIC_TARGETS + 2] = { \
        nullptr, HWY_CHOOSE_TARGET_LIST(kernel), HWY_CHOOSE_FALLBACK(kernel)}
/// The kernel's version for the chosen instruction set.
#define VL_CALL(kernel) (*HWY_CONCAT(kernel, OfTargets)[VL_chosenTarget().GetIndex()])

#endif
