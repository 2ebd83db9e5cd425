// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Peak memory of the whole work, above the pictures that go in and come out. Each case runs in a child process of its
// own, whose largest resident size is read before and after the work. Call it before the process has started threads.
#pragma once

#include <string>
#include <vector>

/// What one case took.
struct MemoryFigure
{
    static constexpr double kGoal = 24.0;

    std::string name;
    double ours = 0.0; ///< bytes per pixel of the object's box
    double peer = 0.0; ///< the same of the OpenCV program
};

/// The names of all cases: both sizes and formats, every bevel, high quality.
std::vector<std::string> memoryCaseNames();

/// Measures one of them.
MemoryFigure measureMemoryCase(const std::string& name);
