// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Where Qt's painter works best. From most threads it passes every large fill to a pool of its own in parts, and waits
// for them: thousands of times in a picture. On a thread of that pool it fills by itself.
#pragma once

#include <functional>

/// Runs work on a thread of the pool, and waits for it. What the work throws is thrown here.
///
/// @param work must not wait for other threads of the pool
void CELVEC_onPainterThread(const std::function<void()>& work);
