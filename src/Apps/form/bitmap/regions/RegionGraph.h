// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RegionGraph: what is known of a bitmap's regions and of the seams at which they meet, for the rules that make objects
// of them. Regions can be joined; their numbers stay.
#pragma once

#include "form/bitmap/pixels/ConvexHull.h"
#include "form/bitmap/regions/BitmapRegions.h"
#include "form/bitmap/regions/SeamEnds.h"
#include "form/choice/Colour.h"

#include <map>

/// Lengths are counted in edges of pixels.
struct Region
{
    SeenColour colour;
    double luma = 0.0;     ///< the colour's brightness as cheaply as seams are compared with it, 0 to 1
    double alpha = 1.0;    ///< 0 to 1
    int pixels = 0;        ///< 0 once it has been joined to another
    int corePixels = 0;    ///< those that have its colour
    int clearEdges = 0;    ///< of its outline, against what is not covered
    int frameEdges = 0;    ///< of its outline, along the picture's border
    double deepest = 0.0;  ///< the radius of the largest disc inside, in pixels
    bool detailed = false; ///< a detail of another colour was joined to it, as a pupil to an eye
    ConvexHull hull;
};

/// Where two regions meet.
struct Seam
{
    int edges = 0;
    int inked = 0; ///< those at which a line is drawn, darker than both regions

    bool isInked() const { return 5 * inked > 2 * edges; }
};

/// A point where the seam of two regions ends.
struct SeamEnd
{
    double first = 0.0;  ///< the angle that the first region takes there, in degrees
    double second = 0.0; ///< the second one's
    bool open = false;   ///< it ends at what is not covered, not at a third region
};

/// A region lies inside another when so much of its outline is their seam.
inline constexpr double kInsideShare = 0.85;

class RegionGraph
{
public:
    RegionGraph(const BitmapRegions& regions, const PixelPlane<QRgb>& colours);

    /// Of every number that there ever was.
    const std::vector<Region>& regions() const { return _regions; }
    const Region& region(int number) const { return _regions[static_cast<std::size_t>(number)]; }
    bool isLeft(int number) const { return region(number).pixels > 0; }
    /// All neighbours of a region, with their seams, by number.
    const std::map<int, Seam>& seamsOf(int number) const { return _seams[static_cast<std::size_t>(number)]; }
    Seam seam(int a, int b) const;
    /// The ends of the seam of two regions; none of a closed one.
    std::vector<SeamEnd> seamEnds(int first, int second) const;
    /// From -1 to 1; above 0 where at the ends of their seam the outline of b goes straight on and that of a does not,
    /// as if b lay on top. 0 of a seam without ends.
    double straightness(int a, int b) const;
    /// How much of a hull is not covered by anything, 0 to 1.
    double clearShare(const ConvexHull& hull) const;
    /// The whole outline: seams and what is not covered, without the picture's border.
    int outline(int number) const;
    /// The neighbour with the longest seam; -1 where there is none.
    int mainNeighbour(int number) const;
    /// How much of a region's outline is its seam with another, 0 to 1.
    double seamShare(int number, int other) const;
    /// Its pixels, and those of the regions that lie inside it.
    int filledPixels(int number) const;
    /// The share of its convex hull that it fills, holes that others fill included; 0 to 1.
    double solidity(int number) const;
    int coveredPixels() const { return _covered; }
    /// The length of the picture's border.
    int frameEdges() const { return 2 * (_labels.width() + _labels.height()); }

    /// Makes one region a part of another, of which it takes the colour.
    void join(int into, int part);
    void setDetailed(int number) { _regions[static_cast<std::size_t>(number)].detailed = true; }
    /// The region that a region of the beginning is a part of now.
    int now(int number) const;
    /// Labels of the regions that are left.
    PixelPlane<int> labels() const;

private:
    void countEdges(const PixelPlane<QRgb>& colours);
    void measure();
    void findPoints();
    void meet(int a, int b, bool inked);

    PixelPlane<int> _labels; // of the beginning
    std::vector<Region> _regions;
    std::vector<std::map<int, Seam>> _seams;
    std::vector<int> _joinedTo;
    std::vector<SeamPoint> _points;
    std::vector<std::vector<int>> _pointsOf; // for each region
    int _covered = 0;
};
