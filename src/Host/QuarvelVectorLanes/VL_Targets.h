// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// VL_Targets: chooses, for this process, one of the instruction sets that vector code is compiled for. Highway's
// headers write the vector code; its library, which would make the same choice, is not used, so that a host's site has
// nothing more to install.
#pragma once

#include "QuarvelVectorLanes/QuarvelVectorLanesExport.h"

#include <cstdint>

#include <hwy/targets.h>

/// The instruction sets that the processor and the system support, as Highway's bits (HWY_AVX2 and so on). The baseline
/// (HWY_SCALAR or HWY_EMU128) is always supported and not among them.
QUARVELVECTORLANES_EXPORT std::int64_t VL_supportedTargets();

/// The choice for all vector code of the process: the best supported set. Safe from any thread.
QUARVELVECTORLANES_EXPORT const hwy::ChosenTarget& VL_chosenTarget();

/// For tests: restricts vector code to the best of these targets; 0 goes back to all supported ones. No vector code may
/// run meanwhile.
QUARVELVECTORLANES_EXPORT void VL_chooseAmong(std::int64_t targets);
