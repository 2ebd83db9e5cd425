// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Each covered stretch of a side is judged by its length and by the uncovered angle at its ends.
#include "form/bitmap/pictures/FrameCuts.h"

#include <algorithm>
#include <cmath>

namespace {

// A cut is at least this part of the drawing's extent along the side.
constexpr double kLeastCut = 0.35;
// At its ends, more than this angle is uncovered, in degrees; a drawing that merely touches the border leaves a small
// angle.
constexpr double kSteepest = 50.0;
// Angles are measured in half discs of this radius, as a part of the picture's longer side, and of at least
// kLeastRadius pixels.
constexpr double kRadius = 0.05;
constexpr double kLeastRadius = 3.0;

// A picture as seen from one of its sides: u runs along the side, v away from it.
class SideView
{
public:
    SideView(const PixelPlane<int>& labels, FrameSide side) : _labels(labels), _side(side) {}

    int length() const { return isUpright() ? _labels.height() : _labels.width(); }
    int depth() const { return isUpright() ? _labels.width() : _labels.height(); }
    bool isCovered(int u, int v) const
    {
        const int away = _side == FrameSide::RIGHT || _side == FrameSide::BOTTOM ? depth() - 1 - v : v;
        return (isUpright() ? _labels.at(away, u) : _labels.at(u, away)) >= 0;
    }

private:
    bool isUpright() const { return _side == FrameSide::LEFT || _side == FrameSide::RIGHT; }

    const PixelPlane<int>& _labels;
    FrameSide _side;
};

// The drawing's extent along the side, whether it touches the side or not.
int reachAlong(const SideView& view)
{
    int first = view.length();
    int last = -1;
    for (int u = 0; u < view.length(); ++u)
        for (int v = 0; v < view.depth(); ++v)
            if (view.isCovered(u, v)) {
                first = std::min(first, u);
                last = u;
                break;
            }
    return std::max(0, last - first + 1);
}

// The uncovered angle around a point of the side, 0 to 180 degrees.
double freeAngle(const SideView& view, int point, double radius)
{
    const int reach = static_cast<int>(radius);
    int clear = 0;
    int all = 0;
    for (int u = std::max(0, point - reach); u < std::min(view.length(), point + reach); ++u)
        for (int v = 0; v < std::min(view.depth(), reach); ++v) {
            if (std::hypot(u + 0.5 - point, v + 0.5) > radius)
                continue;
            clear += view.isCovered(u, v) ? 0 : 1;
            ++all;
        }
    return all == 0 ? 0.0 : 180.0 * clear / all;
}

bool goesOnBeyond(const SideView& view, int first, int last, double radius)
{
    // A stretch that ends in the picture's corner shows no outline there, so no angle is measured.
    double least = 180.0;
    if (first > 0)
        least = std::min(least, freeAngle(view, first, radius));
    if (last < view.length())
        least = std::min(least, freeAngle(view, last, radius));
    return least > kSteepest;
}

std::vector<char> cutsAlong(const SideView& view)
{
    const double radius = std::max(kLeastRadius, kRadius * std::max(view.length(), view.depth()));
    const double least = kLeastCut * reachAlong(view);
    std::vector<char> cut(static_cast<std::size_t>(view.length()), 0);
    for (int first = 0; first < view.length();) {
        int last = first;
        while (last < view.length() && view.isCovered(last, 0) == view.isCovered(first, 0))
            ++last;
        if (view.isCovered(first, 0) && last - first >= least && goesOnBeyond(view, first, last, radius))
            std::fill(cut.begin() + first, cut.begin() + last, char(1));
        first = last;
    }
    return cut;
}

} // namespace

FrameCuts::FrameCuts(const PixelPlane<int>& labels)
{
    for (const FrameSide side : kFrameSides)
        _cut[static_cast<std::size_t>(side)] = cutsAlong(SideView(labels, side));
}

void FrameCuts::endAt(FrameSide side)
{
    std::ranges::fill(_cut[static_cast<std::size_t>(side)], char(0));
}

bool FrameCuts::isCutAllAround() const
{
    return std::ranges::all_of(_cut, [](const std::vector<char>& side) {
        return !side.empty() && std::ranges::all_of(side, [](char cut) { return cut != 0; });
    });
}
