// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The way down and up the pyramid: which rectangle each level needs, the planes that hold the levels, and the bands of
// rows that threads work on.
#include "BlurAlgo/BA_GaussianBlur.h"

#include "BlurAlgo/private/AxisPlan.h"
#include "BlurAlgo/private/DoublingStage.h"
#include "BlurAlgo/private/FilterStage.h"
#include "BlurAlgo/private/HalvingStage.h"
#include "QuarvelVectorLanes/VL_ParallelFor.h"

#include <tbb/enumerable_thread_specific.h>
#include <tbb/task_arena.h>

#include <algorithm>
#include <cassert>
#include <cmath>
#include <deque>
#include <limits>
#include <memory>
#include <mutex>
#include <vector>

using namespace BlurAlgo;

BA_RowSource::~BA_RowSource() = default;
BA_RowSink::~BA_RowSink() = default;

namespace {

constexpr std::ptrdiff_t kLane = RowMemory::kLine;
/// Passes over fewer samples than this run on one thread: a second one would not pay.
constexpr std::int64_t kSamplesForThreads = 1 << 15;
constexpr int kSmallestBand = 16;

class PlaneSource final : public BA_RowSource
{
public:
    explicit PlaneSource(const BA_Plane& plane) : _plane(plane) {}
    const float* row(int y, float*) const override { return _plane.data + (y - _plane.rect.y1) * _plane.stride; }

private:
    BA_Plane _plane;
};

class PlaneSink final : public BA_RowSink
{
public:
    explicit PlaneSink(const BA_Plane& plane) : _plane(plane) {}
    float* begin(int y, float*) override { return _plane.data + (y - _plane.rect.y1) * _plane.stride; }
    void end(int, const float*) override {}

private:
    BA_Plane _plane;
};

/// The part of a plane in a box within its rectangle.
BA_Plane cropped(const BA_Plane& plane, const Math::Box2di& box)
{
    if (box.isEmpty())
        return {};
    return {plane.data + (box.y1 - plane.rect.y1) * plane.stride + (box.x1 - plane.rect.x1), plane.stride, box};
}

/// A plane in memory that only grows.
BA_Plane planeIn(SampleMemory& memory, const Math::Box2di& rect)
{
    const std::ptrdiff_t stride = (rect.width() + kLane - 1) / kLane * kLane;
    return {memory.room(static_cast<std::size_t>(stride) * static_cast<std::size_t>(rect.height())), stride, rect};
}

/// One level of the pyramid: how it is made from the level above it, and how the level above is made from it again.
struct Level
{
    StepPair halving;
    StepPair doubling;
    /// Holds the result of the halving on the way down, and is reused as the input of the doubling on the way up.
    SampleMemory memory;
};

Interval halvedIf(const StepWeights& step, Interval samples)
{
    return step.active() ? halvedSupport(samples, step.reach()) : samples;
}

Interval neededIf(const StepWeights& step, Interval samples)
{
    return step.active() ? neededByDoubling(samples, step.reach()) : samples;
}

Interval doubledIf(const StepWeights& step, Interval samples)
{
    return step.active() ? doubledSupport(samples, step.reach()) : samples;
}

Math::Box2di halvedBox(const Level& level, const Math::Box2di& box)
{
    return boxOf(halvedIf(level.halving.x, columnsOf(box)), halvedIf(level.halving.y, rowsOf(box)));
}

Interval grownBy(int reach, Interval samples)
{
    return {samples.lo - reach, samples.hi + reach};
}

/// Splits the rows y into bands and calls work(rows) for each; on several threads where that pays.
template<typename Work>
void forBands(Interval y, int width, const Work& work)
{
    const int threads = tbb::this_task_arena::max_concurrency();
    const int bands =
        std::int64_t{y.size()} * width < kSamplesForThreads ? 1 : std::min(4 * threads, y.size() / kSmallestBand);
    if (threads == 1 || bands <= 1) {
        work(y);
        return;
    }
    VL_parallelForEach(bands, [&](int band) {
        const auto edge = [&](int b) { return y.lo + static_cast<int>(std::int64_t{y.size()} * b / bands); };
        work(Interval{edge(band), edge(band + 1)});
    });
}

[[maybe_unused]] bool withinLimits(const Math::Box2di& box)
{
    constexpr int kLimit = BA_GaussianBlur::kLargestCoordinate;
    return box.x1 >= -kLimit && box.y1 >= -kLimit && box.x2 <= kLimit && box.y2 <= kLimit;
}

} // namespace

struct BA_GaussianBlur::Impl
{
    double plannedX = std::numeric_limits<double>::quiet_NaN();
    double plannedY = std::numeric_limits<double>::quiet_NaN();
    AxisPlan x;
    AxisPlan y;
    std::deque<Level> levels;
    SampleMemory filtered;
    tbb::enumerable_thread_specific<BandMemory> memory;

    void plan(double sigmaX, double sigmaY);
    /// True when the plane between the first two levels, the largest of all, is never stored.
    bool firstTwoAtOnce() const
    {
        return levels.size() > 1 && levels[1].halving.x.active() && levels[1].halving.y.active();
    }

    /// The part of a result that can be non-zero when the coarsest level is zero outside the box.
    Math::Box2di nonZeroPart(const Math::Box2di& coarsest, const Math::Box2di& resultRect) const;
    void clearAround(const Math::Box2di& part, BA_RowSink& sink, const Math::Box2di& resultRect);

    void filter(const Input& in, const Output& out);
    void doubled(const Input& in, std::size_t level, const Output& out);
    void doubledTwice(const Input& in, const Math::Box2di& between, const Output& out);
    BA_Plane halved(const Input& in, std::size_t level);
    void blur(const Input& source, BA_RowSink& sink, const Math::Box2di& resultRect);
};

void BA_GaussianBlur::Impl::plan(double sigmaX, double sigmaY)
{
    // Most frames of a scene are blurred with the same sigmas.
    if (sigmaX == plannedX && sigmaY == plannedY)
        return;
    x = planAxis(sigmaX);
    y = planAxis(sigmaY);
    levels.resize(std::max(x.stages.size(), y.stages.size()));
    for (std::size_t i = 0; i < levels.size(); ++i) {
        const bool halveX = i < x.stages.size();
        const bool halveY = i < y.stages.size();
        Level& level = levels[i];
        level.halving.x.weights = halveX ? x.stages[i].halvingWeights() : std::vector<float>();
        level.doubling.x.weights = halveX ? x.stages[i].doublingWeights() : std::vector<float>();
        level.halving.y.weights = halveY ? y.stages[i].halvingWeights() : std::vector<float>();
        level.doubling.y.weights = halveY ? y.stages[i].doublingWeights() : std::vector<float>();
    }
    plannedX = sigmaX;
    plannedY = sigmaY;
}

Math::Box2di BA_GaussianBlur::Impl::nonZeroPart(const Math::Box2di& coarsest, const Math::Box2di& resultRect) const
{
    if (coarsest.isEmpty())
        return {};
    Interval columns = grownBy(x.reach(), columnsOf(coarsest));
    Interval rows = grownBy(y.reach(), rowsOf(coarsest));
    for (std::size_t i = levels.size(); i-- > 0;) {
        columns = doubledIf(levels[i].doubling.x, columns);
        rows = doubledIf(levels[i].doubling.y, rows);
    }
    return resultRect.getIntersection(boxOf(columns, rows));
}

/// Writes zeros to the rows above and below the part.
void BA_GaussianBlur::Impl::clearAround(const Math::Box2di& part, BA_RowSink& sink, const Math::Box2di& resultRect)
{
    const Output out(sink, resultRect);
    const auto clear = [&](Interval rows) {
        forBands(rows, resultRect.width(), [&](Interval band) { clearBand(out, band, memory.local().outer); });
    };
    const int middle = part.isEmpty() ? resultRect.y2 : part.y1;
    clear({resultRect.y1, middle});
    clear({part.isEmpty() ? middle : part.y2, resultRect.y2});
}

/// Halves the plane once, or twice when the first two levels are made together. Empty margins are cropped.
BA_Plane BA_GaussianBlur::Impl::halved(const Input& in, std::size_t level)
{
    if (in.rect.isEmpty())
        return {};
    const Math::Box2di next = halvedBox(levels[level], in.rect);
    const bool twice = level == 0 && firstTwoAtOnce();
    const BA_Plane plane =
        twice ? planeIn(levels[1].memory, halvedBox(levels[1], next)) : planeIn(levels[level].memory, next);
    PlaneSink sink(plane);
    const Output out(sink, plane.rect);
    const auto halveRows = [&](Interval rows, BandMemory& local) {
        return twice ? halveTwiceBand(in, levels[0].halving, next, levels[1].halving, out, rows, local)
                     : halveBand(in, levels[level].halving, out, rows, local.outer);
    };
    std::mutex lock;
    Math::Box2di box;
    forBands(rowsOf(plane.rect), 2 * in.rect.width(), [&](Interval rows) {
        const Math::Box2di part = halveRows(rows, memory.local());
        const std::lock_guard guard(lock);
        box.add(part);
    });
    return cropped(plane, box);
}

void BA_GaussianBlur::Impl::filter(const Input& in, const Output& out)
{
    forBands(rowsOf(out.rect), out.rect.width(),
             [&](Interval rows) { filterBand(in, x.weights, y.weights, out, rows, memory.local().outer); });
}

void BA_GaussianBlur::Impl::doubled(const Input& in, std::size_t level, const Output& out)
{
    forBands(rowsOf(out.rect), out.rect.width(),
             [&](Interval rows) { doubleBand(in, levels[level].doubling, out, rows, memory.local().outer); });
}

/// The last two doublings at once.
void BA_GaussianBlur::Impl::doubledTwice(const Input& in, const Math::Box2di& between, const Output& out)
{
    forBands(rowsOf(out.rect), out.rect.width(), [&](Interval rows) {
        doubleTwiceBand(in, levels[1].doubling, between, levels[0].doubling, out, rows, memory.local());
    });
}

/// On the way down every level holds the halved source, on the way up the input of the doubling. The source and the
/// sink take the place of the planes of the picture's own resolution.
void BA_GaussianBlur::Impl::blur(const Input& source, BA_RowSink& sink, const Math::Box2di& resultRect)
{
    const std::size_t depth = levels.size();
    if (depth == 0)
        return filter(source, {sink, resultRect});

    const std::size_t last = firstTwoAtOnce() ? 1 : 0;
    BA_Plane coarsest = halved(source, 0);
    for (std::size_t i = last + 1; i < depth; ++i)
        coarsest = halved({PlaneSource(coarsest), coarsest.rect}, i);

    const Math::Box2di part = nonZeroPart(coarsest.rect, resultRect);
    clearAround(part, sink, resultRect);
    if (part.isEmpty())
        return;
    std::vector<Math::Box2di> needed;
    for (const Level& level : levels) {
        const Math::Box2di& box = needed.empty() ? part : needed.back();
        needed.push_back(boxOf(neededIf(level.doubling.x, columnsOf(box)), neededIf(level.doubling.y, rowsOf(box))));
    }
    BA_Plane blurred = planeIn(filtered, needed.back());
    PlaneSink out(blurred);
    filter({PlaneSource(coarsest), coarsest.rect}, {out, blurred.rect});
    for (std::size_t i = depth - 1; i > last; --i) {
        const BA_Plane next = planeIn(levels[i - 1].memory, needed[i - 1]);
        PlaneSink nextOut(next);
        doubled({PlaneSource(blurred), blurred.rect}, i, {nextOut, next.rect});
        blurred = next;
    }
    const Output result(sink, columnsOf(resultRect), part);
    if (last == 1)
        doubledTwice({PlaneSource(blurred), blurred.rect}, needed[0], result);
    else
        doubled({PlaneSource(blurred), blurred.rect}, 0, result);
}

BA_GaussianBlur::BA_GaussianBlur() : BA_GaussianBlur(0.0, 0.0) {}

BA_GaussianBlur::BA_GaussianBlur(double sigmaX, double sigmaY) : _i(std::make_unique<Impl>())
{
    _i->plan(sigmaX, sigmaY);
}

BA_GaussianBlur::BA_GaussianBlur(BA_GaussianBlur&&) noexcept = default;
BA_GaussianBlur& BA_GaussianBlur::operator=(BA_GaussianBlur&&) noexcept = default;
BA_GaussianBlur::~BA_GaussianBlur() = default;

void BA_GaussianBlur::setSigmas(double sigmaX, double sigmaY)
{
    _i->plan(sigmaX, sigmaY);
}

int BA_GaussianBlur::reach(double sigma)
{
    if (!std::isfinite(sigma) || sigma <= 0.0)
        return 0;
    return static_cast<int>(std::ceil(4.0 * std::min(sigma, kLargestSigma)));
}

void BA_GaussianBlur::run(const BA_RowSource& source, const Math::Box2di& sourceRect, BA_RowSink& sink,
                          const Math::Box2di& resultRect)
{
    assert(withinLimits(sourceRect) && withinLimits(resultRect));
    if (resultRect.isEmpty())
        return;

    if (sourceRect.isEmpty())
        _i->clearAround({}, sink, resultRect);
    else
        _i->blur({source, sourceRect}, sink, resultRect);
}

void BA_GaussianBlur::run(const BA_Plane& source, const BA_Plane& result)
{
    PlaneSink sink(result);
    run(PlaneSource(source), source.rect, sink, result.rect);
}
