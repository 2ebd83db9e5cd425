// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The system calls that the confined process may still make; see Confinement.h.
#pragma once

/// Makes the system refuse all other calls of this process with EPERM, permanently.
///
/// @return false when the system does not support it
bool filterCalls();
