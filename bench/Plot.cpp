// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Points are found by the names of their figures; the horizontal axis is logarithmic, the vertical one linear.
#include "Plot.h"

#include "BenchScene.h"
#include "Groups.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

struct Point
{
    double x;
    double y;
    std::string label; ///< below the axis
};

struct Line
{
    std::string name;
    const char* colour;
    bool isPeer;
    std::vector<Point> points;
};

struct Plot
{
    std::string title;
    std::string across;
    std::vector<Line> lines;
};

constexpr double kWidth = 340.0;
constexpr double kHeight = 240.0;
constexpr double kLeft = 50.0;
constexpr double kTop = 34.0;
constexpr double kBelow = 130.0;

const Measured* find(const Findings& findings, const std::string& name)
{
    const auto found = std::ranges::find(findings.measured, name, [](const Measured& m) { return m.figure.name; });
    return found == findings.measured.end() ? nullptr : &*found;
}

/// Adds both sides of one figure as multiples of a copy, which another figure compares with.
void addPoints(const Findings& findings, const std::string& name, const std::string& peer, const Measured* copy,
               Point point, Line& ours, Line& theirs)
{
    const Measured* const both = find(findings, name + " : " + peer);
    if (!both || !copy)
        return;
    point.y = both->numerator / copy->denominator;
    ours.points.push_back(point);
    point.y = both->denominator / copy->denominator;
    theirs.points.push_back(point);
}

Plot blurPlot(const Findings& findings)
{
    Plot plot{"blur of one plane, 4K", "standard deviation, pixels", {}};
    Line ours{"ours", "#2266bb", false, {}};
    Line theirs{"OpenCV's spline pyramid", "#2266bb", true, {}};
    const Measured* const copy = find(findings, "blur/4K/sigma6.6 : copy of the plane");
    for (const char* const sigma : {"3.3", "6.6", "13.3", "33", "66", "133", "266"})
        addPoints(findings, std::string("blur/4K/sigma") + sigma, "OpenCV pyramid", copy,
                  {std::stod(sigma), 0.0, sigma}, ours, theirs);
    plot.lines = {ours, theirs};
    return plot;
}

struct QualityColour
{
    const char* name;
    const char* colour;
};
constexpr QualityColour kColours[] = {{"low", "#2a9d3a"}, {"medium", "#c58a00"}, {"high", "#c0392b"}};

Plot bevelPlot(const Findings& findings)
{
    Plot plot{"whole work, 4K, 16-bit", "bevel", {}};
    for (const auto& [quality, colour] : kColours) {
        Line ours{std::string("ours, ") + quality, colour, false, {}};
        Line theirs{std::string("OpenCV, ") + quality, colour, true, {}};
        for (const int bevel : kBevels) {
            const std::string text = std::to_string(bevel);
            const std::string name = std::string("whole/4K/int16/") + quality + "/bevel" + text;
            addPoints(findings, name, "OpenCV program", find(findings, name + " : copy of the frame"),
                      {static_cast<double>(bevel), 0.0, text}, ours, theirs);
        }
        plot.lines.push_back(ours);
        plot.lines.push_back(theirs);
    }
    return plot;
}

Plot sizePlot(const Findings& findings)
{
    Plot plot{"whole work, bevel 20, 16-bit", "frame", {}};
    for (const auto& [quality, colour] : kColours) {
        Line ours{std::string("ours, ") + quality, colour, false, {}};
        Line theirs{std::string("OpenCV, ") + quality, colour, true, {}};
        for (const FrameSize& frame : {FrameSize{"720p", 1280, 720}, kFrameSizes[0], kFrameSizes[1]}) {
            const std::string name = std::string("whole/") + frame.name + "/int16/" + quality + "/bevel20";
            addPoints(findings, name, "OpenCV program", find(findings, name + " : copy of the frame"),
                      {static_cast<double>(frame.width), 0.0, frame.name}, ours, theirs);
        }
        plot.lines.push_back(ours);
        plot.lines.push_back(theirs);
    }
    return plot;
}

/// Maps values to positions in the picture.
class Axes
{
public:
    Axes(const Plot& plot, double left) : _left(left)
    {
        for (const Line& line : plot.lines)
            for (const Point& point : line.points) {
                _lowest = std::min(_lowest, std::log(point.x));
                _highest = std::max(_highest, std::log(point.x));
                _top = std::max(_top, point.y);
            }
        _step = std::pow(10.0, std::floor(std::log10(_top)));
        if (_top / _step < 4.0)
            _step /= 2.0;
        _top = std::ceil(_top / _step) * _step;
    }

    double x(double value) const { return _left + (std::log(value) - _lowest) / (_highest - _lowest) * kWidth; }
    double y(double value) const { return kTop + kHeight - value / _top * kHeight; }
    double left() const { return _left; }
    double top() const { return _top; }
    double step() const { return _step; }
    bool isEmpty() const { return !(_highest > _lowest); }

private:
    double _left;
    double _lowest = 1e9;
    double _highest = -1e9;
    double _top = 1e-3;
    double _step = 1.0;
};

void writeText(double x, double y, const char* anchor, const std::string& text, std::ostream& out)
{
    out << "<text x='" << x << "' y='" << y << "' text-anchor='" << anchor << "'>" << text << "</text>\n";
}

void writeFrame(const Plot& plot, const Axes& axes, std::ostream& out)
{
    writeText(axes.left(), kTop - 12.0, "start", plot.title, out);
    for (double value = 0.0; value <= axes.top() * 1.001; value += axes.step()) {
        out << "<line class='grid' x1='" << axes.left() << "' x2='" << axes.left() + kWidth << "' y1='" << axes.y(value)
            << "' y2='" << axes.y(value) << "'/>\n";
        char text[32];
        std::snprintf(text, sizeof text, "%g", value);
        writeText(axes.left() - 6.0, axes.y(value) + 4.0, "end", text, out);
    }
    for (const Point& point : plot.lines.front().points)
        writeText(axes.x(point.x), kTop + kHeight + 16.0, "middle", point.label, out);
    writeText(axes.left() + kWidth / 2.0, kTop + kHeight + 34.0, "middle", plot.across, out);
}

void writeLine(const Line& line, const Axes& axes, std::ostream& out)
{
    out << "<polyline fill='none' stroke='" << line.colour << "' stroke-width='2'"
        << (line.isPeer ? " stroke-dasharray='5 4'" : "") << " points='";
    for (const Point& point : line.points)
        out << axes.x(point.x) << ',' << axes.y(point.y) << ' ';
    out << "'/>\n";
}

void writeLegend(const Plot& plot, const Axes& axes, std::ostream& out)
{
    double y = kTop + kHeight + 56.0;
    double x = axes.left();
    for (const Line& line : plot.lines) {
        out << "<line x1='" << x << "' x2='" << x + 26.0 << "' y1='" << y - 4.0 << "' y2='" << y - 4.0 << "' stroke='"
            << line.colour << "' stroke-width='2'" << (line.isPeer ? " stroke-dasharray='5 4'" : "") << "/>\n";
        writeText(x + 32.0, y, "start", line.name, out);
        x += line.isPeer ? -kWidth / 2.0 : kWidth / 2.0;
        y += line.isPeer ? 18.0 : 0.0;
    }
}

} // namespace

void writePlots(const Findings& findings, std::ostream& out)
{
    const Plot plots[] = {blurPlot(findings), bevelPlot(findings), sizePlot(findings)};
    const double width = 3.0 * (kLeft + kWidth) + kLeft;
    const double height = kTop + kHeight + kBelow;
    out << "<svg xmlns='http://www.w3.org/2000/svg' width='" << width << "' height='" << height
        << "' font-family='sans-serif' font-size='12'>\n<style>.grid{stroke:#ddd}</style>\n"
        << "<rect width='100%' height='100%' fill='white'/>\n";
    double left = kLeft;
    for (const Plot& plot : plots) {
        const Axes axes(plot, left);
        left += kLeft + kWidth;
        if (axes.isEmpty())
            continue;
        writeFrame(plot, axes, out);
        for (const Line& line : plot.lines)
            writeLine(line, axes, out);
        writeLegend(plot, axes, out);
    }
    writeText(kLeft, height - 8.0, "start", "times as multiples of copying the plane or the frame; dashed: OpenCV",
              out);
    out << "</svg>\n";
}
