// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ResultStream: standard output for the program's results alone. Libraries and plug-ins print there, too; scripts that
// read results, and pictures that are written there, would be spoilt by that.
#pragma once

#include <cstdio>

/// While it lives, what others write to standard output goes nowhere; file() writes to where it went before. One at a
/// time.
class ResultStream
{
public:
    ResultStream();
    ~ResultStream();
    ResultStream(const ResultStream&) = delete;
    ResultStream& operator=(const ResultStream&) = delete;

    /// Belongs to this object. Where the system has no descriptors left, it is standard output itself.
    std::FILE* file() const { return _file; }

private:
    std::FILE* _file = stdout;
};
