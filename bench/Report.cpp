// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Medians, their spread, and the two forms in which they are written. All names are plain ASCII without quotes.
#include "Report.h"

#include <algorithm>
#include <cstdio>
#include <iostream>

namespace {

double quantile(std::vector<double> values, double share)
{
    std::ranges::sort(values);
    const double place = share * static_cast<double>(values.size() - 1);
    const auto below = static_cast<std::size_t>(place);
    const std::size_t above = std::min(below + 1, values.size() - 1);
    return values[below] + (place - static_cast<double>(below)) * (values[above] - values[below]);
}

double spreadOf(const std::vector<double>& times)
{
    return (quantile(times, 0.75) - quantile(times, 0.25)) / quantile(times, 0.5);
}

template<typename... Values>
std::string format(const char* pattern, Values... values)
{
    char text[512];
    std::snprintf(text, sizeof text, pattern, values...);
    return text;
}

std::string goalText(const Measured& m)
{
    return m.hasGoal() ? format("%s %.2f", m.figure.atLeast ? ">=" : "<=", m.figure.goal) : "";
}

const char* verdict(bool hasGoal, bool isMet)
{
    return !hasGoal ? "" : isMet ? "met" : "missed";
}

void writeRow(const Measured& m, std::ostream& out)
{
    out << format("%-58s %9.3f ", m.figure.name.c_str(), m.numerator * 1e3);
    if (m.hasRatio())
        out << format("%9.3f %7.2f ", m.denominator * 1e3, m.ratio());
    else
        out << format("%9s %7s ", "", "");
    out << format("%8s %-6s %6.0f %%\n", goalText(m).c_str(), verdict(m.hasGoal(), m.hasGoal() && m.isMet()),
                  m.spread * 100.0);
}

struct Summary
{
    const Measured* worst = nullptr;
    int met = 0;
    int count = 0;
};

std::map<std::string, Summary> summarise(const std::vector<Measured>& measured)
{
    std::map<std::string, Summary> summaries;
    for (const Measured& m : measured) {
        if (!m.hasGoal())
            continue;
        Summary& summary = summaries[m.figure.kind];
        ++summary.count;
        summary.met += m.isMet() ? 1 : 0;
        const bool isWorse = !summary.worst || (m.ratio() > summary.worst->ratio()) != m.figure.atLeast;
        if (isWorse)
            summary.worst = &m;
    }
    return summaries;
}

void writeGoals(const Findings& findings, std::ostream& out)
{
    out << format("\n%-50s %8s %7s %-10s\n", "goal", "", "worst", "met");
    for (const auto& [kind, summary] : summarise(findings.measured))
        out << format("%-50s %8s %7.2f %d of %d\n", kind.c_str(), goalText(*summary.worst).c_str(),
                      summary.worst->ratio(), summary.met, summary.count);
    if (findings.memory.empty())
        return;
    double worst = 0.0;
    for (const MemoryFigure& m : findings.memory)
        worst = std::max(worst, m.ours);
    const auto met =
        std::ranges::count_if(findings.memory, [](const auto& m) { return m.ours <= MemoryFigure::kGoal; });
    out << format("%-50s %8s %7.2f %d of %d\n", "peak memory, bytes per pixel of the box", "<= 24.00", worst,
                  static_cast<int>(met), static_cast<int>(findings.memory.size()));
}

void writeJsonRow(const Measured& m, std::ostream& out)
{
    out << format("{\"figure\": \"%s\", \"seconds\": %.9g, \"spread\": %.4g", m.figure.name.c_str(), m.numerator,
                  m.spread);
    if (m.hasRatio())
        out << format(", \"otherSeconds\": %.9g, \"ratio\": %.6g", m.denominator, m.ratio());
    if (m.hasGoal())
        out << format(", \"goal\": %.6g, \"goalIsLowerBound\": %s, \"met\": %s", m.figure.goal,
                      m.figure.atLeast ? "true" : "false", m.isMet() ? "true" : "false");
    out << '}';
}

// A failed measurement is NaN, which JSON writes as null.
std::string jsonNumber(double value)
{
    return value == value ? format("%.6g", value) : "null";
}

template<typename Rows, typename Write>
void writeJsonList(const char* name, const Rows& rows, const Write& writeOne, std::ostream& out)
{
    out << "  \"" << name << "\": [";
    const char* separator = "\n    ";
    for (const auto& row : rows) {
        out << separator;
        writeOne(row);
        separator = ",\n    ";
    }
    out << "\n  ]";
}

} // namespace

bool TimeCollector::ReportContext(const Context&)
{
    return true;
}

void TimeCollector::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs)
        if (run.run_type == Run::RT_Iteration && !run.error_occurred)
            _times[run.run_name.function_name].push_back(run.GetAdjustedRealTime() /
                                                         benchmark::GetTimeUnitMultiplier(run.time_unit));
}

std::vector<double> TimeCollector::times(const std::string& name) const
{
    const auto found = _times.find(name);
    return found == _times.end() ? std::vector<double>() : found->second;
}

void Findings::add(const std::vector<Figure>& figures, const TimeCollector& times)
{
    for (const Figure& figure : figures) {
        const std::vector<double> ours = times.times(figure.numerator);
        const std::vector<double> others = times.times(figure.denominator);
        if (ours.empty())
            continue;
        Measured m{figure, quantile(ours, 0.5), 0.0, spreadOf(ours)};
        if (others.empty()) {
            m.figure.name = figure.numerator;
        } else {
            m.denominator = quantile(others, 0.5);
            m.spread = std::max(m.spread, spreadOf(others));
        }
        measured.push_back(m);
    }
}

void writeTable(const Findings& findings, std::ostream& out)
{
    out << format("%-58s %9s %9s %7s %8s %-6s %8s\n", "figure", "ms", "other ms", "ratio", "goal", "", "spread");
    for (const Measured& m : findings.measured)
        writeRow(m, out);
    if (!findings.memory.empty())
        out << format("\n%-58s %9s %9s\n", "peak memory, bytes per pixel of the object's box", "ours", "OpenCV");
    for (const MemoryFigure& m : findings.memory)
        out << format("%-58s %9.1f %9.1f %16s %-6s\n", m.name.c_str(), m.ours, m.peer, "<= 24",
                      verdict(true, m.ours <= MemoryFigure::kGoal));
    if (!findings.agreements.empty())
        out << format("\n%-58s %9s %9s\n", "difference of both sides' pictures, parts of full scale", "mean", "99.9 %");
    for (const Agreement& a : findings.agreements)
        out << format("%-58s %9.6f %9.6f\n", a.name.c_str(), a.mean, a.ofMost);
    writeGoals(findings, out);
}

void writeJson(const Findings& findings, std::ostream& out)
{
    out << "{\n";
    writeJsonList(
        "figures", findings.measured, [&](const Measured& m) { writeJsonRow(m, out); }, out);
    out << ",\n";
    writeJsonList(
        "peakMemory", findings.memory,
        [&](const MemoryFigure& m) {
            out << format("{\"figure\": \"%s\", \"ours\": %s, \"opencv\": %s, \"goal\": %.6g, \"met\": %s}",
                          m.name.c_str(), jsonNumber(m.ours).c_str(), jsonNumber(m.peer).c_str(), MemoryFigure::kGoal,
                          m.ours <= MemoryFigure::kGoal ? "true" : "false");
        },
        out);
    out << ",\n";
    writeJsonList(
        "agreement", findings.agreements,
        [&](const Agreement& a) {
            out << format("{\"figure\": \"%s\", \"mean\": %.6g, \"of999\": %.6g}", a.name.c_str(), a.mean, a.ofMost);
        },
        out);
    out << "\n}\n";
}
