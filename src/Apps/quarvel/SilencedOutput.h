// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SilencedOutput: sends standard output away for as long as it lives, whoever writes to it, plug-ins included.
#pragma once

/// Standard output goes nowhere while this object lives, and where it went before afterwards. One at a time.
class SilencedOutput
{
public:
    /// @param silence false: nothing is done
    explicit SilencedOutput(bool silence);
    ~SilencedOutput();
    SilencedOutput(const SilencedOutput&) = delete;
    SilencedOutput& operator=(const SilencedOutput&) = delete;

private:
    int _saved = -1;
};
