// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The rules judge pairs: first regions inside another one, the smallest first; then neighbours, those of the most
// similar colours first.
#include "form/bitmap/regions/RegionMerging.h"

#include "form/bitmap/regions/InnerRegions.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>

namespace {

// Neighbours may be shades of one body if their seam is more than this share of one's outline.
constexpr double kBeside = 0.2;
// A highlight is lighter than its base by more than this, and smaller than this part of it.
constexpr double kHighlight = 14.0;
constexpr double kLargestHighlight = 0.12;
// A pupil is larger than this part of the white around it, and this share of its outline lies along the white.
constexpr double kLeastPupil = 0.06;
constexpr double kPupilInEye = 0.6;
// A pupil is darker than the white by more than this, and smaller than this multiple of the white that is left.
constexpr double kPupilDarker = 23.0;
constexpr double kLargestPupil = 4.0;
// The share of its hull that an eye fills.
constexpr double kWholeEye = 0.88;
// The ratio of length to width above which a region is a stripe.
constexpr double kStripe = 5.0;
// At least this share of a stripe's outline lies along the body on either side of it.
constexpr double kStripeSide = 0.28;
constexpr double kStripeSides = 0.6; // on both sides together
// The ends of a stripe may extend the hull of a body with a smooth outline by this share.
constexpr double kStripeReach = 0.1;
// If a region hides the middle of another, more than this share of each visible part's outline lies along it.
constexpr double kClinging = 0.3;
// Tolerance, because outlines of pixels never fill their hulls completely.
constexpr double kSlack = 0.03;
// An outline that bends inwards by at least this angle has a notch, in degrees.
constexpr double kNotch = 24.0;
// Colours at a smaller distance are hard to tell apart.
constexpr double kSameColour = 4.0;

// The light and the dark shade of one colour differ by less than this in lightness; those of greys by less.
constexpr double kShades = 39.0;
constexpr double kGreyShades = 25.0;
constexpr double kGrey = 10.0;

bool areShadesOfOneColour(const SeenColour& a, const SeenColour& b)
{
    const bool grey = a.chroma() < kGrey || b.chroma() < kGrey;
    return std::abs(a.lightness - b.lightness) < (grey ? kGreyShades : kShades) && isSameHue(a, b);
}

bool isWhite(const SeenColour& colour)
{
    return colour.lightness > 77.0 && colour.chroma() < kGrey;
}

// Compares length over width, computed for a ribbon of the region's area and depth.
bool isStripe(const Region& region)
{
    return region.pixels > kStripe * 4.0 * region.deepest * region.deepest;
}

class Rules
{
public:
    Rules(RegionGraph& graph, bool hard) : _graph(graph), _inner(graph), _hard(hard) {}

    bool joinInside();
    bool joinBeside();
    bool joinStripes();
    bool joinBehind();
    bool joinEyes();

private:
    const Region& region(int number) const { return _graph.region(number); }
    std::vector<int> smallestFirst() const;
    bool holdsOthers(int number) const;
    bool isPaint(int number, int base);
    bool isPupil(int number, int base) const;
    bool areSiblingsPaint(int number, int base);
    bool isShadeOfOneBody(int a, int b) const;
    bool isStripeAcross(int stripe, int a, int b) const;
    bool hasNoNotch(int a, int b) const;
    bool isOneBodyBehind(int front, int a, int b) const;
    bool reachesOutside(int number) const;
    bool areWhiteAndPupil(int white, int dark) const;

    RegionGraph& _graph;
    InnerRegions _inner;
    bool _hard;
};

std::vector<int> Rules::smallestFirst() const
{
    std::vector<int> order;
    for (int i = 0; i < static_cast<int>(_graph.regions().size()); ++i)
        if (_graph.isLeft(i))
            order.push_back(i);
    std::ranges::stable_sort(order, {}, [this](int i) { return region(i).pixels; });
    return order;
}

bool Rules::holdsOthers(int number) const
{
    return std::ranges::any_of(_graph.seamsOf(number), [&](const auto& neighbour) {
        const int other = neighbour.first;
        return region(other).pixels < region(number).pixels && _graph.seamShare(other, number) > 0.6;
    });
}

// Whether a region inside another is only painted onto it.
bool Rules::isPaint(int number, int base)
{
    const Region& own = region(number);
    const Region& below = region(base);
    if (_graph.seam(number, base).isInked())
        return false;
    if (colourDistance(own.colour, below.colour) < kSameColour)
        return true;
    const bool shade = areShadesOfOneColour(own.colour, below.colour);
    if (!shade && holdsOthers(number))
        return false;
    if (_inner.judge(number, base).kind == Verdict::Kind::MARK)
        return true;
    if (shade)
        return false;
    const double lighter = own.colour.lightness - below.colour.lightness;
    const bool highlight = !own.detailed && lighter > kHighlight && own.pixels < kLargestHighlight * below.pixels &&
                           below.colour.lightness > 25.0 && own.colour.chroma() < below.colour.chroma() + 9.0;
    const bool glint = below.colour.lightness < 31.0 && lighter > 35.0 && own.pixels < 0.25 * below.pixels;
    return isStripe(own) || highlight || isPupil(number, base) || glint;
}

// Whether a region is the only dark one in a white one. A pupil may come so close to the eye's outline that the white
// between them is too thin to be seen, so it need not lie inside completely.
bool Rules::isPupil(int number, int base) const
{
    const Region& own = region(number);
    const Region& below = region(base);
    return isWhite(below.colour) && own.clearEdges == 0 && _inner.siblings(number, base).size() <= 1 &&
           own.colour.lightness < below.colour.lightness - kPupilDarker && own.pixels > kLeastPupil * below.pixels &&
           own.pixels < below.pixels && _graph.seamShare(number, base) > kPupilInEye &&
           !_graph.seam(number, base).isInked();
}

// Regions of one colour inside one base are either all paint or all objects: the rule that holds for most of their
// pixels decides.
bool Rules::areSiblingsPaint(int number, int base)
{
    int paint = 0;
    int objects = 0;
    for (const auto& [other, seam] : _graph.seamsOf(base)) {
        const bool sibling = _graph.seamShare(other, base) >= kInsideShare &&
                             colourDistance(region(other).colour, region(number).colour) < kSameColour;
        if (sibling)
            (isPaint(other, base) ? paint : objects) += region(other).pixels;
    }
    return paint > objects;
}

bool Rules::joinInside()
{
    bool joined = false;
    for (const int number : smallestFirst()) {
        const int base = _graph.mainNeighbour(number);
        if (base < 0 || region(base).pixels < region(number).pixels)
            continue;
        const bool inside = _graph.seamShare(number, base) >= kInsideShare;
        if (inside ? areSiblingsPaint(number, base) : isPupil(number, base)) {
            if (!areShadesOfOneColour(region(number).colour, region(base).colour))
                _graph.setDetailed(base);
            _graph.join(base, number);
            joined = true;
        }
    }
    return joined;
}

// The filled share of hulls: the average over each region's own hull, and the share of the hull around both.
struct Completeness
{
    double apart;
    double together;
};

Completeness completenessOf(const RegionGraph& graph, int a, int b)
{
    const int first = graph.filledPixels(a);
    const int second = graph.filledPixels(b);
    const ConvexHull both = ConvexHull::around(graph.region(a).hull, graph.region(b).hull);
    return {(first * graph.solidity(a) + second * graph.solidity(b)) / (first + second),
            (first + second) / std::max(1.0, both.area())};
}

// How far the common outline of two regions bends inwards at the open ends of their seam, in degrees; std::nullopt if
// the seam has no open end.
std::optional<double> notchOf(const RegionGraph& graph, int a, int b)
{
    double sum = 0.0;
    int count = 0;
    for (const SeamEnd& end : graph.seamEnds(a, b))
        if (end.open) {
            sum += end.first + end.second - 180.0;
            ++count;
        }
    return count == 0 ? std::nullopt : std::optional(sum / count);
}

// Whether the common outline of two regions continues smoothly across their seam, as that of one body in two colours.
bool Rules::hasNoNotch(int a, int b) const
{
    const auto notch = notchOf(_graph, a, b);
    return notch && *notch < kNotch;
}

// The common outline of two bodies has notches where they meet. The light and dark shades of one body have none, and
// together they are more complete than apart.
bool Rules::isShadeOfOneBody(int a, int b) const
{
    const int pixels = region(a).pixels + region(b).pixels;
    const int smaller = std::min(region(a).pixels, region(b).pixels);
    const bool small = smaller < (_hard ? 0.2 : 0.04) * pixels;
    if (const auto notch = notchOf(_graph, a, b); notch && !small)
        return *notch < kNotch;
    const auto [apart, together] = completenessOf(_graph, a, b);
    return together > apart - (small ? 0.15 : kSlack);
}

// Joins a stripe and the two parts of the body that it divides: these have one colour, and the outline of the three
// continues smoothly across the stripe's ends, or they are complete together.
bool Rules::joinStripes()
{
    for (const int stripe : smallestFirst())
        for (const auto& [a, seamA] : _graph.seamsOf(stripe))
            for (const auto& [b, seamB] : _graph.seamsOf(stripe))
                if (a < b && isStripeAcross(stripe, a, b)) {
                    const int base = region(a).pixels >= region(b).pixels ? a : b;
                    _graph.setDetailed(base);
                    _graph.join(base, a == base ? b : a);
                    _graph.join(base, stripe);
                    return true;
                }
    return false;
}

// Joins the visible parts of a body on two sides of a region that hides its middle, such as hair behind a face.
bool Rules::joinBehind()
{
    for (const int front : smallestFirst())
        for (const auto& [a, seamA] : _graph.seamsOf(front))
            for (const auto& [b, seamB] : _graph.seamsOf(front))
                if (a < b && isOneBodyBehind(front, a, b)) {
                    const int base = region(a).pixels >= region(b).pixels ? a : b;
                    _graph.join(base, a == base ? b : a);
                    return true;
                }
    return false;
}

// Whether a region is seen beside what hides it, towards uncovered pixels or the picture's border.
bool Rules::reachesOutside(int number) const
{
    return region(number).clearEdges + region(number).frameEdges > 0;
}

bool Rules::isOneBodyBehind(int front, int a, int b) const
{
    const auto clings = [&](int number) {
        const double share = _graph.seamShare(number, front);
        return reachesOutside(number) && share > kClinging && share < kInsideShare &&
               _graph.straightness(number, front) > 0.0;
    };
    return colourDistance(region(a).colour, region(b).colour) < kSameColour && clings(a) && clings(b) &&
           _graph.clearShare(ConvexHull::around(region(a).hull, region(b).hull)) < kSlack;
}

// Joins pupils that touch the outline of their eye to the white that is left of it.
bool Rules::joinEyes()
{
    for (const int dark : smallestFirst())
        for (const auto& [white, seam] : _graph.seamsOf(dark))
            if (areWhiteAndPupil(white, dark)) {
                _graph.setDetailed(white);
                _graph.join(white, dark);
                return true;
            }
    return false;
}

// Whether a white region and a dark one together are a complete shape inside a larger region.
bool Rules::areWhiteAndPupil(int white, int dark) const
{
    const Region& eye = region(white);
    const Region& pupil = region(dark);
    if (!isWhite(eye.colour) || pupil.colour.lightness > eye.colour.lightness - kPupilDarker ||
        pupil.pixels > kLargestPupil * eye.pixels || reachesOutside(white) || reachesOutside(dark))
        return false;
    const ConvexHull both = ConvexHull::around(eye.hull, pupil.hull);
    if (eye.pixels + pupil.pixels < kWholeEye * both.area())
        return false;
    const int outline = _graph.outline(white) + _graph.outline(dark) - 2 * _graph.seam(white, dark).edges;
    return std::ranges::any_of(_graph.seamsOf(white), [&](const auto& neighbour) {
        const int base = neighbour.first;
        const int edges = neighbour.second.edges + _graph.seam(dark, base).edges;
        return base != dark && region(base).pixels > eye.pixels + pupil.pixels && edges > kInsideShare * outline;
    });
}

bool Rules::isStripeAcross(int stripe, int a, int b) const
{
    const double shareA = _graph.seamShare(stripe, a);
    const double shareB = _graph.seamShare(stripe, b);
    if (shareA < kStripeSide || shareB < kStripeSide || shareA + shareB < kStripeSides ||
        _graph.seam(stripe, a).isInked() || _graph.seam(stripe, b).isInked() ||
        !areShadesOfOneColour(region(a).colour, region(b).colour))
        return false;
    const int own = region(stripe).pixels;
    const auto [less, more] = std::minmax(region(a).pixels, region(b).pixels);
    const ConvexHull body = ConvexHull::around(region(a).hull, region(b).hull);
    const ConvexHull all = ConvexHull::around(body, region(stripe).hull);
    const double reach = all.area() / body.area() - 1.0;
    if (own < less + more && reach < kStripeReach && hasNoNotch(stripe, a) && hasNoNotch(stripe, b) &&
        colourDistance(region(a).colour, region(b).colour) < kSameColour)
        return true;
    const double filled = _graph.filledPixels(a) + _graph.filledPixels(b) + _graph.filledPixels(stripe);
    return own < more && reach < kSlack &&
           filled / all.area() > std::min(_graph.solidity(a), _graph.solidity(b)) - kSlack;
}

bool Rules::joinBeside()
{
    struct Pair
    {
        double difference;
        int a;
        int b;
    };
    std::vector<Pair> pairs;
    for (const int a : smallestFirst())
        for (const auto& [b, seam] : _graph.seamsOf(a)) {
            const double share = std::max(_graph.seamShare(a, b), _graph.seamShare(b, a));
            if (a < b && share > kBeside && !seam.isInked() && areShadesOfOneColour(region(a).colour, region(b).colour))
                pairs.push_back({colourDistance(region(a).colour, region(b).colour), a, b});
        }
    std::ranges::stable_sort(pairs, {}, &Pair::difference);
    for (const Pair& pair : pairs)
        if (isShadeOfOneBody(pair.a, pair.b)) {
            const bool firstIsLarger = region(pair.a).pixels >= region(pair.b).pixels;
            _graph.join(firstIsLarger ? pair.a : pair.b, firstIsLarger ? pair.b : pair.a);
            return true;
        }
    return false;
}

} // namespace

void joinShadesAndMarks(RegionGraph& graph, bool hard)
{
    Rules rules(graph, hard);
    do
        while (rules.joinInside()) {
        }
    while (rules.joinBeside() || rules.joinStripes() || rules.joinBehind() || rules.joinEyes());
}
