// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The three passes that a blur is made of: halve a plane, filter it, double it. Each reads rows from somewhere, works
// on a band of result rows that depends on nothing but its input, and writes them somewhere.
//
// Coordinates: sample k of a halved axis lies on sample 2 k of the axis it was made from, for every integer k, so all
// levels share the picture's origin. A plane holds the samples of its rectangle; outside there are zeros (halve,
// filter) or samples that nobody needs (double).
#pragma once

#include "BlurAlgo/BA_GaussianBlur.h"
#include "BlurAlgo/private/AxisPlan.h"

#include <memory>
#include <new>
#include <span>
#include <vector>

namespace BlurAlgo {

/// Columns or rows lo .. hi - 1.
struct Interval
{
    int lo = 0;
    int hi = 0;

    int size() const { return hi - lo; }
    bool contains(int v) const { return v >= lo && v < hi; }
};

inline Interval columnsOf(const Math::Box2di& box)
{
    return {box.x1, box.x2};
}
inline Interval rowsOf(const Math::Box2di& box)
{
    return {box.y1, box.y2};
}

inline Math::Box2di boxOf(Interval x, Interval y)
{
    return {x.lo, y.lo, x.hi, y.hi};
}

/// Half of v, rounded down or up, for any sign.
inline int floorHalf(int v)
{
    return v >> 1;
}
inline int ceilHalf(int v)
{
    return (v + 1) >> 1;
}

/// The samples that begin and end with whole pairs.
inline Interval alignedToEven(Interval samples)
{
    return {2 * floorHalf(samples.lo), 2 * ceilHalf(samples.hi)};
}

/// The samples of a halved axis that are not zero when those outside of the interval are.
Interval halvedSupport(Interval samples, int reach);
/// The samples of a halved axis from which doubling makes those of the interval.
Interval neededByDoubling(Interval samples, int reach);
/// The samples of an axis that doubling makes not zero when those outside of the interval are.
Interval doubledSupport(Interval samples, int reach);

/// The weights of one step along one axis; a step that leaves the axis alone has none.
struct StepWeights
{
    std::vector<float> weights; ///< from the middle outwards

    bool active() const { return !weights.empty(); }
    int reach() const { return static_cast<int>(weights.size()) - 1; }
};

/// One step along both axes.
struct StepPair
{
    StepWeights x;
    StepWeights y;
};

/// Rows to read. Outside of the rectangle there are zeros.
struct Input
{
    const BA_RowSource& rows;
    Math::Box2di rect;
};

/// Rows to write.
struct Output
{
    Output(BA_RowSink& sink, const Math::Box2di& box) : Output(sink, columnsOf(box), box) {}
    Output(BA_RowSink& sink, Interval columns, const Math::Box2di& part) : rows(sink), asked(columns), rect(part) {}

    BA_RowSink& rows;
    Interval asked;    ///< the columns that the sink's rows have
    Math::Box2di rect; ///< what is worked out: the columns outside become zeros
};

/// Samples in memory that only grows. It begins where vectors and cache lines do.
class SampleMemory
{
public:
    /// Room for so many samples; what it held may be lost.
    float* room(std::size_t samples)
    {
        if (samples > _capacity) {
            _samples.reset();
            _samples.reset(static_cast<float*>(::operator new(samples * sizeof(float), kAlignment)));
            _capacity = samples;
        }
        return _samples.get();
    }

private:
    /// The longest vectors and cache lines that there are.
    static constexpr std::align_val_t kAlignment{128};

    struct Deleter
    {
        void operator()(float* samples) const { ::operator delete(samples, kAlignment); }
    };

    std::unique_ptr<float[], Deleter> _samples;
    std::size_t _capacity = 0;
};

/// Memory of one thread, kept between bands: handed out from the front, all taken back at once.
class RowMemory
{
public:
    /// Samples of a cache line, at whose beginning every row begins.
    static constexpr std::size_t kLine = 16;

    /// Takes everything back and makes room for this many rows of this many samples.
    void reset(std::size_t rows, std::size_t samples);
    /// One row of at least the size that was announced. It holds anything.
    float* take();
    /// One row of zeros.
    float* takeZeros();

private:
    SampleMemory _memory;
    float* _next = nullptr;
    std::size_t _stride = 0;
};

/// Memory for two steps at once.
struct BandMemory
{
    RowMemory outer;
    RowMemory inner;
};

/// Zeros in the rows y of an output.
void clearBand(const Output& out, Interval y, RowMemory& memory);

/// Rows y.lo .. y.hi - 1 of the halved plane.
///
/// @return a box outside of which these rows are zero, as small as is easily found: what is empty in the input is not
/// worked on
Math::Box2di halveBand(const Input& in, const StepPair& step, const Output& out, Interval y, RowMemory& memory);

/// The same for two halvings, the second one along the rows at least: what lies between is not kept but made when it is
/// needed, within the rectangle between.
Math::Box2di halveTwiceBand(const Input& in, const StepPair& first, const Math::Box2di& between, const StepPair& second,
                            const Output& out, Interval y, BandMemory& memory);

/// Rows y.lo .. y.hi - 1 of the plane filtered in place of its samples.
void filterBand(const Input& in, std::span<const float> xWeights, std::span<const float> yWeights, const Output& out,
                Interval y, RowMemory& memory);

/// Rows y.lo .. y.hi - 1 of the doubled plane.
void doubleBand(const Input& in, const StepPair& step, const Output& out, Interval y, RowMemory& memory);

/// The same for two doublings, the first one along the rows at least: what lies between is made when it is needed,
/// within the rectangle between.
void doubleTwiceBand(const Input& in, const StepPair& first, const Math::Box2di& between, const StepPair& second,
                     const Output& out, Interval y, BandMemory& memory);

} // namespace BlurAlgo
