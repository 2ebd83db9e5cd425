// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Frames are handed to the film in order.
#include "jobs/frames/RenderPreview.h"

#include "jobs/frames/FilmFile.h"
#include "jobs/frames/FramesInOrder.h"
#include "jobs/frames/OutputFolder.h"

UT_Result<QString> renderPreview(const ShownModule& shown, const RenderPreviewSettings& settings,
                                 const RenderFramesWatcher& watcher)
{
    using Pixels = std::vector<std::uint8_t>;
    const LitFrames lit(shown, settings.shown, settings.parameters, settings.lighting);
    if (const UT_Result<void> made = makeFolderFor(settings.file); !made)
        return made.error();
    auto film = FilmFile::create(settings.file, QSize(lit.size().first, lit.size().second), settings.framesPerSecond);
    if (!film)
        return film.error();
    const auto made = framesInOrder<Pixels>(
        settings.frames, settings.atOnce, QStringLiteral("a preview"), [&](int frame) { return lit.render(frame); },
        [&](const Pixels& pixels) { return (*film)->add(pixels); }, watcher);
    if (!made)
        return made.error();
    if (const auto finished = (*film)->finish(); !finished)
        return finished.error();
    return (*film)->path();
}
