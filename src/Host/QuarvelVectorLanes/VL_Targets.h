// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// VL_Targets: which of the instruction sets, for each of which vector code is compiled once, it runs with in this
// process. Highway's headers write vector code; its library, which would make the same choice, is not needed, so that a
// host's site has nothing more to install.
#pragma once

#include "QuarvelVectorLanes/QuarvelVectorLanesExport.h"

#include <cstdint>

#include <hwy/targets.h>

/// The instruction sets that the processor and the system support, as Highway's bits (HWY_AVX2 and so on). The plainest
/// one (HWY_SCALAR or HWY_EMU128) is not among them: it is always there.
QUARVELVECTORLANES_EXPORT std::int64_t VL_supportedTargets();

/// The choice for all vector code of the process: the best of those supported. Safe from any thread.
QUARVELVECTORLANES_EXPORT const hwy::ChosenTarget& VL_chosenTarget();

/// For tests: has all vector code run with the best of some targets, or again of those supported when there are none.
/// No vector code may run meanwhile.
QUARVELVECTORLANES_EXPORT void VL_chooseAmong(std::int64_t targets);
