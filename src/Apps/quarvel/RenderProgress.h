// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RenderProgress: tells how far a render of many frames is, on standard error or, where a scheduler reads it there, on
// standard output.
#pragma once

#include <QString>

#include <chrono>
#include <cstdio>

/// How a render tells how far it is.
enum class RenderProgressStyle
{
    AUTOMATIC, ///< BAR where standard error is a terminal, NONE elsewhere
    BAR,       ///< a bar with the time left, rewritten in place
    LINES,     ///< one line a percent
    JSON,      ///< one object a frame: {"done":2,"frame":7,"total":48}, with "error" when the frame failed
    NONE,
    PERCENT, ///< "12%" and a line break, on standard output
    OPENJD   ///< the lines of the Open Job Description on standard output: openjd_progress, openjd_status, openjd_fail
};

/// Shows progress. For one thread at a time.
class RenderProgress
{
public:
    /// @param total   how many frames are rendered
    /// @param results what stands for standard output
    RenderProgress(RenderProgressStyle style, int total, std::FILE* results);
    /// Removes the bar.
    ~RenderProgress();
    RenderProgress(const RenderProgress&) = delete;
    RenderProgress& operator=(const RenderProgress&) = delete;

    /// @param fraction how much of the run is done, 0 to 1; it never goes back
    void show(double fraction);
    /// A frame ended.
    ///
    /// @param error why it failed; empty when it did not
    void frameEnded(int frame, const QString& error);
    /// Makes room for a message on standard error.
    void clear();

private:
    using Clock = std::chrono::steady_clock;

    QString timeLeft(double fraction) const;
    void drawBar(double fraction);
    void printPercents(int percent) const;
    void printFrame(int frame, const QString& error) const;

    RenderProgressStyle _style;
    int _total;
    std::FILE* _results;
    int _done = 0;
    int _percent = -1;
    bool _visible = false;
    Clock::time_point _begin = Clock::now();
    Clock::time_point _drawn;
};
