// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The results: collected from Google Benchmark repetition by repetition, written as a table and as JSON.
#pragma once

#include "Measuring.h"
#include "PeakMemory.h"
#include "PeerAgreement.h"

#include <map>
#include <ostream>
#include <vector>

/// Collects the time of each repetition of each case, and reports the current group on the error stream.
class TimeCollector final : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;

    /// The seconds of a case's repetitions; empty when it has not run.
    std::vector<double> times(const std::string& name) const;

private:
    std::map<std::string, std::vector<double>> _times;
};

/// A figure with what was measured.
struct Measured
{
    Figure figure;
    double numerator = 0.0;   ///< median seconds
    double denominator = 0.0; ///< median seconds; 0 when the figure has none
    double spread = 0.0;      ///< the larger of both sides' interquartile ranges, as a share of the median

    double ratio() const { return numerator / denominator; }
    bool hasRatio() const { return denominator > 0.0; }
    bool hasGoal() const { return hasRatio() && figure.goal == figure.goal; }
    bool isMet() const { return figure.atLeast ? ratio() >= figure.goal : ratio() <= figure.goal; }
};

/// All results of a run of the benchmarks.
struct Findings
{
    std::vector<Measured> measured;
    std::vector<MemoryFigure> memory;
    std::vector<Agreement> agreements;

    /// Adds the figures whose cases have run.
    void add(const std::vector<Figure>& figures, const TimeCollector& times);
};

/// All figures, then a summary of the goals with the worst of each kind.
void writeTable(const Findings& findings, std::ostream& out);

/// The same for programs: times in seconds, memory in bytes per pixel of the object's box.
void writeJson(const Findings& findings, std::ostream& out);
