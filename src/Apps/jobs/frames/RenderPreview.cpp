// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Frames are rendered in batches of as many as run at once, and handed to the film in order.
#include "jobs/frames/RenderPreview.h"

#include "jobs/frames/FilmFile.h"
#include "jobs/limits/JobLimits.h"

#include <QDir>
#include <QFileInfo>
#include <tbb/task_arena.h>

#include <algorithm>
#include <new>
#include <thread>

namespace {

using Frame = UT_Result<std::vector<std::uint8_t>>;

Frame tryFrame(const LitFrames& frames, int frame)
{
    return UT_withinMemory(QStringLiteral("a preview of frame %1").arg(frame), QStringLiteral("choose fewer jobs"),
                           [&] { return frames.render(frame); });
}

std::vector<Frame> batch(const LitFrames& frames, std::span<const int> numbers)
{
    std::vector<Frame> made(numbers.size(), Frame(std::vector<std::uint8_t>()));
    const int share = std::max(1, jobLimits().threads / static_cast<int>(numbers.size()));
    const auto work = [&](std::size_t i) {
        tbb::task_arena arena(share);
        arena.execute([&] { made[i] = tryFrame(frames, numbers[i]); });
    };
    std::vector<std::jthread> others;
    for (std::size_t i = 1; i < numbers.size(); ++i)
        others.emplace_back(work, i);
    work(0);
    others.clear();
    return made;
}

} // namespace

UT_Result<QString> renderPreview(const ShownModule& shown, const RenderPreviewSettings& settings,
                                 const RenderFramesWatcher& watcher)
{
    const LitFrames lit(shown, settings.shown, settings.parameters, settings.lighting);
    QDir().mkpath(QFileInfo(settings.file).absolutePath());
    auto film = FilmFile::create(settings.file, QSize(lit.size().first, lit.size().second), settings.framesPerSecond);
    if (!film)
        return film.error();
    const std::span<const int> all(settings.frames);
    const auto step = static_cast<std::size_t>(std::max(1, settings.atOnce));
    for (std::size_t first = 0; first < all.size(); first += step) {
        const std::size_t count = std::min(step, all.size() - first);
        for (const Frame& frame : batch(lit, all.subspan(first, count))) {
            if (!frame)
                return frame.error();
            if (const auto added = (*film)->add(*frame); !added)
                return added.error();
        }
        if (watcher.stop && watcher.stop())
            return UT_stopped();
        if (watcher.progress)
            watcher.progress(static_cast<double>(first + count) / static_cast<double>(all.size()));
    }
    if (const auto finished = (*film)->finish(); !finished)
        return finished.error();
    return (*film)->path();
}
