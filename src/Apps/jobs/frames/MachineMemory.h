// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How much memory the machine has, for saying "too large" before trying.
#pragma once

/// The machine's memory in bytes.
double machineMemory();
