// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Math::Size2di: a width and a height in pixels.
#pragma once

namespace Math {

/// A size in pixels.
struct Size2di
{
    int width = 0;
    int height = 0;

    friend constexpr bool operator==(const Size2di&, const Size2di&) = default;
    constexpr bool isEmpty() const { return width <= 0 || height <= 0; }
};

} // namespace Math
