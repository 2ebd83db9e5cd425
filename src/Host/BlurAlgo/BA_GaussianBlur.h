// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// BA_GaussianBlur: a Gaussian blur of one plane of floats. The caller supplies the source's rows and takes the
// result's.
//
// What lies outside the source counts as zero. For every standard deviation, each value is within 1/16384 of full scale
// of the exact Gaussian, and each difference of neighbouring values is within 1/1000 of the steepest true one in the
// picture. A source without negative values gives a result without negative values. Where the filter sees nothing but
// full scale, the result is exactly full scale. The cost per sample hardly depends on the standard deviation.
//
// The result depends on the picture alone. Empty margins in the source's rectangle, the result's rectangle, the number
// of threads and the machine do not change a bit of it, and a picture mirrored about a line of pixels gives the
// mirrored result. A picture moved by a few pixels may give slightly different values, because it meets the coarse
// grids of a long blur at other places; they stay within the bounds above.
//
// Sources for the method: P. J. Burt, "Fast filter transforms for image processing", 1981, for Gaussians by halving and
// doubling; the correction of the coarsest filter and the choice of all others are worked out in private/AxisPlan.cpp.
#pragma once

#include "BlurAlgo/BlurAlgoExport.h"
#include "QuarvelBaseCore/Math_Box2di.h"

#include <cstddef>
#include <memory>

/// Where the rows of a plane come from. Any number of threads read different rows at a time.
class BLURALGO_EXPORT BA_RowSource
{
public:
    virtual ~BA_RowSource();

    /// The samples of row y, from the source rectangle's left to its right.
    ///
    /// @param buffer room for one row; the source may use it or leave it
    /// @return the buffer, or the source's own row, which must stay unchanged until the blur is done
    virtual const float* row(int y, float* buffer) const = 0;
};

/// Where the rows of a result go. Any number of threads write different rows at a time, each row once. Several rows may
/// be begun before the first of them is ended.
class BLURALGO_EXPORT BA_RowSink
{
public:
    virtual ~BA_RowSink();

    /// Where row y is to be written: the sink's own row or the buffer, which has room for one.
    virtual float* begin(int y, float* buffer) = 0;

    /// Row y has been written to where begin() said.
    virtual void end(int y, const float* row) = 0;

    /// Whether rows are read again so soon that they had better stay in the cache. By default not: rows of large
    /// results are written past it. The values are the same.
    virtual bool isReadSoon() const { return false; }
};

/// A plane of floats in memory, rows of one rectangle.
struct BA_Plane
{
    float* data = nullptr;     ///< the sample at the rectangle's upper left
    std::ptrdiff_t stride = 0; ///< samples from a row to the next
    Math::Box2di rect;
};

/// Blurs planes with one pair of standard deviations, and keeps the memory it needs from one call to the next: at most
/// about two and a half bytes per pixel of the largest result so far, and a few dozen rows for every thread.
///
/// One object serves one call at a time; the call itself uses the threads of the TBB arena it is made in.
class BLURALGO_EXPORT BA_GaussianBlur
{
public:
    /// Coordinates of rectangles must stay within plus and minus this.
    static constexpr int kLargestCoordinate = 1 << 28;
    /// Larger standard deviations are clamped to this.
    static constexpr double kLargestSigma = 1e6;

    BA_GaussianBlur();
    /// @param sigmaX, sigmaY standard deviations in pixels; a value that is not positive and finite counts as 0, which
    /// leaves the axis unchanged; values above kLargestSigma are clamped
    BA_GaussianBlur(double sigmaX, double sigmaY);
    BA_GaussianBlur(BA_GaussianBlur&&) noexcept;
    BA_GaussianBlur& operator=(BA_GaussianBlur&&) noexcept;
    ~BA_GaussianBlur();

    /// Changes the standard deviations; the memory stays allocated.
    void setSigmas(double sigmaX, double sigmaY);

    /// By how many pixels the blur extends a picture on either side of an axis: ceil(4 sigma), or 0 where sigma counts
    /// as 0.
    static int reach(double sigma);

    /// Blurs the rows of source, which has the rectangle sourceRect, and writes every row of resultRect to sink.
    void run(const BA_RowSource& source, const Math::Box2di& sourceRect, BA_RowSink& sink,
             const Math::Box2di& resultRect);

    /// The same between planes in memory, which must not overlap.
    void run(const BA_Plane& source, const BA_Plane& result);

private:
    struct Impl;
    std::unique_ptr<Impl> _i;
};
