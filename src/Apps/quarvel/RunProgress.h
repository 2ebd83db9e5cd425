// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RunProgress: how far a run over several drawings is, of which some are worked on at once. A run of many says how many
// are done and how long the rest will take.
#pragma once

#include "ProgressLine.h"

#include <chrono>
#include <mutex>
#include <vector>

/// Shows the progress of a run. Any thread may use it.
class RunProgress
{
public:
    /// @param line shows it; nobody else uses the line meanwhile
    RunProgress(ProgressLine& line, std::size_t drawings);

    /// @param index of the drawing
    /// @param done  how much of it is done, 0 to 1
    void show(std::size_t index, double done, const QString& drawing);
    /// Makes room for a message.
    void clear();

    /// "12 of 480, 3 min 05 s left: hero.svg".
    ///
    /// @param seconds since the run began; nothing is said of the time left in the first few
    static QString text(int done, std::size_t all, double fraction, double seconds, const QString& drawing);

private:
    std::mutex _mutex;
    ProgressLine& _line;
    std::vector<double> _done;
    double _sum = 0.0;
    int _finished = 0;
    std::chrono::steady_clock::time_point _start = std::chrono::steady_clock::now();
};
