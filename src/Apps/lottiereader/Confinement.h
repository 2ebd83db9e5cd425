// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the process gives up before it touches an untrusted file: endless memory and time, opening files, connecting to
// anything, leaving a core behind.
#pragma once

/// Limits this process for good. To be called once the file's bytes are in memory: nothing can be opened any more.
///
/// @return false when the system refuses
bool confine();
