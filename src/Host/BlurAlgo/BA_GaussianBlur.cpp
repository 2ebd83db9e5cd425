// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The way down and up the pyramid: which rectangle each level needs, the planes that hold the levels, and the bands of
// rows that threads work on.
#include "BlurAlgo/BA_GaussianBlur.h"

#include "BlurAlgo/private/AxisPlan.h"
#include "BlurAlgo/private/BlurStages.h"

#include <tbb/enumerable_thread_specific.h>
#include <tbb/parallel_for.h>
#include <tbb/task_arena.h>

#include <algorithm>
#include <cassert>
#include <cmath>
#include <deque>
#include <memory>
#include <mutex>
#include <vector>

using namespace BlurAlgo;

BA_RowSource::~BA_RowSource() = default;
BA_RowSink::~BA_RowSink() = default;

namespace {

constexpr std::ptrdiff_t kLane = 16;
/// Passes over fewer samples than this are not worth a second thread.
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

/// A plane's memory, which only grows.
class PlaneMemory
{
public:
    BA_Plane plane(const Math::Box2di& rect)
    {
        const std::ptrdiff_t stride = (rect.width() + kLane - 1) / kLane * kLane;
        const auto samples = static_cast<std::size_t>(stride) * static_cast<std::size_t>(rect.height());
        if (samples > _capacity) {
            _samples.reset();
            _samples = std::make_unique_for_overwrite<float[]>(samples);
            _capacity = samples;
        }
        return {_samples.get(), stride, rect};
    }

private:
    std::unique_ptr<float[]> _samples;
    std::size_t _capacity = 0;
};

/// One halving in both directions, and what it leads to.
struct Level
{
    StepWeights xHalving;
    StepWeights yHalving;
    StepWeights xDoubling;
    StepWeights yDoubling;
    PlaneMemory halved;
    PlaneMemory blurred;
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
    return boxOf(halvedIf(level.xHalving, columnsOf(box)), halvedIf(level.yHalving, rowsOf(box)));
}

Interval grownBy(int reach, Interval samples)
{
    return {samples.lo - reach, samples.hi + reach};
}

/// Calls work(rows) for bands that together are the rows y; on several threads when there are several and it pays.
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
    tbb::parallel_for(0, bands, [&](int band) {
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
    AxisPlan x;
    AxisPlan y;
    std::deque<Level> levels;
    tbb::enumerable_thread_specific<RowMemory> memory;

    void plan(double sigmaX, double sigmaY);

    Math::Box2di occupied(const Input& in);
    /// Where the result of a picture that occupies the box can be other than zero.
    Math::Box2di reached(const Math::Box2di& picture) const;

    void clear(const Output& out, Interval rows);
    void halve(const Input& in, std::size_t level, const Output& out);
    void filter(const Input& in, const Output& out);
    void twice(const Input& in, std::size_t level, const Output& out);
    void blur(const Input& source, const Output& result);
};

void BA_GaussianBlur::Impl::plan(double sigmaX, double sigmaY)
{
    x = planAxis(sigmaX);
    y = planAxis(sigmaY);
    levels.resize(std::max(x.stages.size(), y.stages.size()));
    for (std::size_t i = 0; i < levels.size(); ++i) {
        const bool halveX = i < x.stages.size();
        const bool halveY = i < y.stages.size();
        Level& level = levels[i];
        level.xHalving.weights = halveX ? x.stages[i].halvingWeights() : std::vector<float>();
        level.xDoubling.weights = halveX ? x.stages[i].doublingWeights() : std::vector<float>();
        level.yHalving.weights = halveY ? y.stages[i].halvingWeights() : std::vector<float>();
        level.yDoubling.weights = halveY ? y.stages[i].doublingWeights() : std::vector<float>();
    }
}

Math::Box2di BA_GaussianBlur::Impl::occupied(const Input& in)
{
    std::mutex lock;
    Math::Box2di box;
    forBands(rowsOf(in.rect), in.rect.width(), [&](Interval rows) {
        const Math::Box2di part = occupiedPart(in, rows, memory.local());
        const std::lock_guard guard(lock);
        box.add(part);
    });
    return box;
}

Math::Box2di BA_GaussianBlur::Impl::reached(const Math::Box2di& picture) const
{
    Math::Box2di coarsest = picture;
    for (const Level& level : levels)
        coarsest = halvedBox(level, coarsest);
    Interval columns = grownBy(x.reach(), columnsOf(coarsest));
    Interval rows = grownBy(y.reach(), rowsOf(coarsest));
    for (std::size_t i = levels.size(); i-- > 0;) {
        columns = doubledIf(levels[i].xDoubling, columns);
        rows = doubledIf(levels[i].yDoubling, rows);
    }
    return boxOf(columns, rows);
}

void BA_GaussianBlur::Impl::clear(const Output& out, Interval rows)
{
    forBands(rows, out.asked.size(), [&](Interval band) { clearBand(out, band, memory.local()); });
}

void BA_GaussianBlur::Impl::halve(const Input& in, std::size_t level, const Output& out)
{
    forBands(rowsOf(out.rect), 2 * in.rect.width(), [&](Interval rows) {
        halveBand(in, levels[level].xHalving, levels[level].yHalving, out, rows, memory.local());
    });
}

void BA_GaussianBlur::Impl::filter(const Input& in, const Output& out)
{
    forBands(rowsOf(out.rect), out.rect.width(),
             [&](Interval rows) { filterBand(in, x.weights, y.weights, out, rows, memory.local()); });
}

void BA_GaussianBlur::Impl::twice(const Input& in, std::size_t level, const Output& out)
{
    forBands(rowsOf(out.rect), out.rect.width(), [&](Interval rows) {
        doubleBand(in, levels[level].xDoubling, levels[level].yDoubling, out, rows, memory.local());
    });
}

void BA_GaussianBlur::Impl::blur(const Input& source, const Output& result)
{
    const std::size_t depth = levels.size();
    if (depth == 0)
        return filter(source, result);

    // On the way down every level holds what halving gives of the source, on the way up what doubling needs.
    std::vector<BA_Plane> halved;
    std::vector<BA_Plane> blurred;
    Math::Box2di support = source.rect;
    Math::Box2di needed = result.rect;
    for (Level& level : levels) {
        support = halvedBox(level, support);
        needed = boxOf(neededIf(level.xDoubling, columnsOf(needed)), neededIf(level.yDoubling, rowsOf(needed)));
        halved.push_back(level.halved.plane(support));
        blurred.push_back(level.blurred.plane(needed));
    }

    // The source and the sink stand in for the planes of the picture's own resolution.
    for (std::size_t i = 0; i < depth; ++i) {
        PlaneSink out(halved[i]);
        if (i == 0)
            halve(source, i, {out, halved[i].rect});
        else
            halve({PlaneSource(halved[i - 1]), halved[i - 1].rect}, i, {out, halved[i].rect});
    }
    PlaneSink coarsest(blurred.back());
    filter({PlaneSource(halved.back()), halved.back().rect}, {coarsest, blurred.back().rect});
    for (std::size_t i = depth; i-- > 0;) {
        const PlaneSource in(blurred[i]);
        if (i == 0) {
            twice({in, blurred[i].rect}, i, result);
        } else {
            PlaneSink out(blurred[i - 1]);
            twice({in, blurred[i].rect}, i, {out, blurred[i - 1].rect});
        }
    }
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

    // What is empty around the picture costs no more than to see that it is.
    const Math::Box2di picture = sourceRect.isEmpty() ? Math::Box2di() : _i->occupied({source, sourceRect});
    const Math::Box2di part = picture.isEmpty() ? picture : resultRect.getIntersection(_i->reached(picture));
    const Output everything(sink, resultRect);
    if (part.isEmpty()) {
        _i->clear(everything, rowsOf(resultRect));
        return;
    }
    _i->clear(everything, {resultRect.y1, part.y1});
    _i->clear(everything, {part.y2, resultRect.y2});
    _i->blur({source, columnsOf(sourceRect), picture}, {sink, columnsOf(resultRect), part});
}

void BA_GaussianBlur::run(const BA_Plane& source, const BA_Plane& result)
{
    PlaneSink sink(result);
    run(PlaneSource(source), source.rect, sink, result.rect);
}
