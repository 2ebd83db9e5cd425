// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RegionGraph: the measurements of a bitmap's regions and of the seams at which they meet. The rules that make objects
// of regions use them. Regions can be joined; the numbers of regions never change.
#pragma once

#include "form/bitmap/pixels/ConvexHull.h"
#include "form/bitmap/regions/BitmapRegions.h"
#include "form/bitmap/regions/SeamEnds.h"
#include "form/choice/Colour.h"
#include "form/raster/CellMask.h"

#include <map>

/// A region's measurements. Lengths are counted in edges of pixels.
struct Region
{
    SeenColour colour;
    double luma = 0.0;     ///< the colour's luma, 0 to 1; cheap enough to compute for every pixel of a seam
    double alpha = 1.0;    ///< 0 to 1
    int pixels = 0;        ///< 0 once it has been joined to another
    int corePixels = 0;    ///< the pixels that have its colour
    int clearEdges = 0;    ///< edges of its outline towards uncovered pixels
    int frameEdges = 0;    ///< edges along the picture's border
    double deepest = 0.0;  ///< the radius of the largest disc inside, in pixels
    bool detailed = false; ///< a detail of another colour was joined to it, such as a pupil to an eye
    ConvexHull hull;
};

/// Where two regions meet.
struct Seam
{
    int edges = 0;
    int inked = 0; ///< edges on a line that is darker than both regions

    bool isInked() const { return 5 * inked > 2 * edges; }
};

/// A point where the seam of two regions ends.
struct SeamEnd
{
    double first = 0.0;  ///< the angle that the first region takes there, in degrees
    double second = 0.0; ///< the angle that the second region takes there, in degrees
    bool open = false;   ///< the seam ends at uncovered pixels, not at a third region
};

/// A region lies inside another if at least this share of its outline is their seam.
inline constexpr double kInsideShare = 0.85;

class RegionGraph
{
public:
    RegionGraph(const BitmapRegions& regions, const PixelPlane<QRgb>& colours);

    /// The regions by number, including those that were joined to others.
    const std::vector<Region>& regions() const { return _regions; }
    const Region& region(int number) const { return _regions[static_cast<std::size_t>(number)]; }
    bool isLeft(int number) const { return region(number).pixels > 0; }
    /// The seams of a region, by the neighbour's number.
    const std::map<int, Seam>& seamsOf(int number) const { return _seams[static_cast<std::size_t>(number)]; }
    Seam seam(int a, int b) const;
    /// The ends of the seam of two regions; empty for a closed seam.
    std::vector<SeamEnd> seamEnds(int first, int second) const;
    /// From -1 to 1; above 0 if, at the ends of their seam, the outline of b continues straighter than that of a, as if
    /// b lay on top. 0 for a seam without ends.
    double straightness(int a, int b) const;
    /// The uncovered share of a hull, 0 to 1.
    double clearShare(const ConvexHull& hull) const;
    /// The length of the whole outline: the seams and the edges towards uncovered pixels, without the picture's border.
    int outline(int number) const;
    /// The neighbour with the longest seam; -1 if there is none.
    int mainNeighbour(int number) const;
    /// The share of a region's outline that is its seam with another, 0 to 1.
    double seamShare(int number, int other) const;
    /// The number of the region's pixels and of those of the smaller regions inside it.
    int filledPixels(int number) const;
    /// The share of its convex hull that it fills, 0 to 1; holes that other regions fill count as filled.
    double solidity(int number) const;
    /// The cells of a region and of what it surrounds, without uncovered pixels.
    ///
    /// @param scale cells along the side of a pixel
    CellMask filledMask(int number, int scale) const;
    /// The size of the picture, in pixels.
    QSize size() const { return {_labels.width(), _labels.height()}; }
    int coveredPixels() const { return _covered; }
    /// The length of the picture's border.
    int frameEdges() const { return 2 * (_labels.width() + _labels.height()); }

    /// Joins a region to another, which keeps its colour.
    void join(int into, int part);
    void setDetailed(int number) { _regions[static_cast<std::size_t>(number)].detailed = true; }
    /// The region that an original region is a part of now.
    int now(int number) const;
    /// The labels of the remaining regions.
    PixelPlane<int> labels() const;

private:
    void countEdges(const PixelPlane<QRgb>& colours);
    void measure();
    void findPoints();
    void meet(int a, int b, bool inked);

    PixelPlane<int> _labels; // of the original regions
    std::vector<Region> _regions;
    std::vector<std::map<int, Seam>> _seams;
    std::vector<int> _joinedTo;
    std::vector<SeamPoint> _points;
    std::vector<std::vector<int>> _pointsOf; // for each region
    int _covered = 0;
};
