// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The steps of the command that turns a drawing into a normal map: the example drawing, 3840 pixels wide, in the form
// that the command chooses for it, with the functions that the command itself calls. Memory is kept from one repetition
// to the next here, so that steps take less time than in a run of the program, which bench/whole_command.py measures.
//
// The node rasterises its inputs while it renders; to separate the two, the drawings measure how long their rasterising
// takes. The node rasterises one input after the other, so these times add up on any number of threads.
#include "Groups.h"

#include "QuarvelImageIO/IIO_PictureFile.h"
#include "QuarvelNormalMap/NM_MapForm.h"
#include "QuarvelNormalMap/NM_NormalPicture.h"
#include "jobs/ResultStream.h"
#include "jobs/drawing/NormalMapJob.h"
#include "jobs/drawing/ReadDrawing.h"
#include "jobs/targets/Targets.h"

#include <QTemporaryDir>

#include <cstdlib>
#include <iostream>
#include <optional>

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// A drawing that adds the time of its rasterising to a sum.
class TimedDrawing final : public CELVEC_Kvd
{
public:
    TimedDrawing(const CELVEC_Kvd& drawing, std::shared_ptr<double> seconds)
        : CELVEC_Kvd(drawing), _seconds(std::move(seconds))
    {}

    UT_SharedPtr<CELVEC_Kvd> shareForRendering() const override { return UT_makeShared<TimedDrawing>(*this, _seconds); }

    void render(const CELVEC_RenderArgs& args, CEL_PixmapArea& target) const override
    {
        const Clock::time_point start = Clock::now();
        CELVEC_Kvd::render(args, target);
        *_seconds += secondsSince(start);
    }

    void addCoverage(const CELVEC_RenderArgs& args, CEL_CoverageStep step, CEL_CoveragePlane& coverage) const override
    {
        const Clock::time_point start = Clock::now();
        CELVEC_Kvd::addCoverage(args, step, coverage);
        *_seconds += secondsSince(start);
    }

    std::unique_ptr<CELVEC_AlphaPlane> sharedAlpha(const CELVEC_RenderArgs& args,
                                                   const CELVEC_Kvd& white) const override
    {
        const Clock::time_point start = Clock::now();
        auto alpha = CELVEC_Kvd::sharedAlpha(args, white);
        *_seconds += secondsSince(start);
        return alpha;
    }

private:
    std::shared_ptr<double> _seconds;
};

template<typename Result>
Result&& expected(Result&& result)
{
    if (!result) {
        std::cerr << "bench_vallorin: " << qPrintable(result.error().text) << '\n';
        std::exit(1);
    }
    return std::forward<Result>(result);
}

/// One run of the command's steps. Each step can be repeated alone once those before it were done.
class CommandRun
{
public:
    CommandRun()
    {
        _settings.size = QSize(3840, 3840);
        runAll();
    }

    /// Seconds that the last render spent on rasterising.
    double rasterising() const { return *_rasterising; }

    void read()
    {
        _drawing = std::move(expected(readDrawing(QStringLiteral(BENCH_DRAWING), _settings.form))->drawing);
        for (LayeredDrawing::Layer& layer : _drawing.layers)
            layer.drawing = UT_makeShared<TimedDrawing>(*layer.drawing, _rasterising);
    }

    void render()
    {
        // The node prints a line to standard output, which is for the table.
        const ResultStream othersAreSilent;
        *_rasterising = 0.0;
        _pictures = std::move(*expected(renderNormalMap(_drawing, _settings, {})));
    }

    void makePicture()
    {
        _picture.emplace(std::move(*expected(NM_toPicture(*_pictures.picture, _pictures.window, {}))));
        NM_finishMap(*_picture, kFormForMost);
    }

    void encode() { expected(IIO_write(_folder.filePath(QStringLiteral("map.png")), *_picture)); }

    void runAll()
    {
        read();
        render();
        makePicture();
        encode();
    }

private:
    NormalMapSettings _settings;
    std::shared_ptr<double> _rasterising = std::make_shared<double>(0.0);
    LayeredDrawing _drawing;
    ShownFrame _pictures;
    std::optional<IIO_Picture> _picture;
    QTemporaryDir _folder;
};

using LazyRun = Lazy<CommandRun>;

// Renders, and reports as the time what the function computes from the whole time and the time of rasterising.
std::function<void(benchmark::State&)> partOfRender(const LazyRun& run, int threads, double (*part)(double, double))
{
    return [=](benchmark::State& state) {
        tbb::task_arena arena(threads);
        for ([[maybe_unused]] auto _ : state)
            arena.execute([&] {
                const Clock::time_point start = Clock::now();
                run->render();
                state.SetIterationTime(part(secondsSince(start), run->rasterising()));
            });
    };
}

std::function<void(benchmark::State&)> step(const LazyRun& run, int threads, void (CommandRun::*work)())
{
    return [=](benchmark::State& state) {
        CommandRun& command = *run;
        timeEach(
            state, threads, [] {}, [&] { (command.*work)(); });
    };
}

void addCases(const LazyRun& run, const std::string& prefix, int threads, Group& group)
{
    const std::vector<Case> cases = {
        {prefix + "rasterise", partOfRender(run, threads, [](double, double rasterising) { return rasterising; })},
        {prefix + "node", partOfRender(run, threads, [](double all, double rasterising) { return all - rasterising; })},
        {prefix + "frame", step(run, threads, &CommandRun::render)},
        {prefix + "picture", step(run, threads, &CommandRun::makePicture)},
        {prefix + "encode", step(run, threads, &CommandRun::encode)},
        {prefix + "whole", step(run, threads, &CommandRun::runAll)}};
    group.cases.insert(group.cases.end(), cases.begin(), cases.end());
    for (const char* part : {"rasterise", "node", "picture"})
        group.figures.push_back(
            {prefix + part + " : whole", prefix + part, prefix + "whole", Figure::kNoGoal, false, {}});
    group.figures.push_back(
        {prefix + "encode : whole", prefix + "encode", prefix + "whole", 0.25, false, "encoding : all steps"});
}

// Both numbers of threads are in one group, so that they run interleaved.
Group commandGroup()
{
    const LazyRun run([] { return std::make_shared<CommandRun>(); });
    Group group;
    addCases(run, "steps/4K/one-thread/", 1, group);
    addCases(run, "steps/4K/two-threads/", 2, group);
    group.figures.push_back({"steps/4K/frame, one thread : two threads", "steps/4K/one-thread/frame",
                             "steps/4K/two-threads/frame", 1.6, true, "whole frame of a drawing, one thread : two"});
    return group;
}

} // namespace

GroupMakers commandGroups()
{
    return {commandGroup};
}
