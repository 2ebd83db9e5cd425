// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The list of the system's calls that the confined process may still make; see Confinement.h.
#pragma once

/// Has the system refuse all other calls of this process with EPERM, for good.
///
/// @return false when the system cannot
bool filterCalls();
