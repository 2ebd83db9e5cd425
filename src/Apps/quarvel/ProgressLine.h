// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ProgressLine: shows on standard error how much of a run is done.
#pragma once

#include "NormalMapOptions.h"

/// Shows progress: a line that is rewritten, or a line for every percent, or nothing.
class ProgressLine
{
public:
    /// AUTOMATIC shows a rewritten line where standard error is a terminal, and nothing elsewhere; NONE nothing.
    explicit ProgressLine(ProgressStyle style);
    /// Removes a rewritten line.
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    /// @param fraction how much of the run is done, 0 to 1; it never goes back
    /// @param what     what is being done now
    void show(double fraction, const QString& what);

    /// Makes room for a message on standard error.
    void clear();

private:
    bool _lines;
    bool _rewrites;
    bool _visible = false;
    int _percent = -1;
    QString _what;
};
