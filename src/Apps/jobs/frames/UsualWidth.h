// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The size of a scene's pictures, which it does not have of its own.
#pragma once

/// How wide they are where nobody chose a size, in pixels.
inline constexpr int kUsualWidth = 1920;
