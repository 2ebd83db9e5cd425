// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Progress on standard error.
#include "ProgressLine.h"

#include "TerminalText.h"

#include "Terminal.h"

#include <algorithm>
#include <cstdio>

ProgressLine::ProgressLine(ProgressStyle style)
    : _lines(style == ProgressStyle::LINES), _rewrites(style == ProgressStyle::AUTOMATIC && isTerminal(stderr))
{}

ProgressLine::~ProgressLine()
{
    clear();
}

void ProgressLine::show(double fraction, const QString& what)
{
    const int percent = std::max(_percent, static_cast<int>(std::clamp(fraction, 0.0, 1.0) * 100.0));
    if (percent == _percent && (_lines || what == _what))
        return;
    if (_lines)
        for (int step = _percent + 1; step <= percent; ++step)
            std::fprintf(stderr, "%d%%\n", step);
    if (_rewrites) {
        std::fprintf(stderr, "\r\033[K%3d%%  ", percent);
        writeText(stderr, what);
        std::fflush(stderr);
        _visible = true;
    }
    _percent = percent;
    _what = what;
}

void ProgressLine::clear()
{
    if (!_visible)
        return;
    std::fputs("\r\033[K", stderr);
    std::fflush(stderr);
    _visible = false;
}
