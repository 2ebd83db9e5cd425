// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Peak memory of the whole work, without the input and output pictures. Each case runs in a child process of its own,
// whose largest resident size is read before and after the work. To be called before the process has started threads.
#pragma once

#include <string>
#include <vector>

/// The result of one case.
struct MemoryFigure
{
    static constexpr double kGoal = 24.0;

    std::string name;
    double ours = 0.0; ///< bytes per pixel of the object's box
    double peer = 0.0; ///< the same for the OpenCV program
};

/// The names of all cases: both sizes and formats, every bevel, high quality.
std::vector<std::string> memoryCaseNames();

/// Measures one of them.
MemoryFigure measureMemoryCase(const std::string& name);
