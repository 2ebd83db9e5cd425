// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Frames are handed to the page in order.
#include "jobs/frames/RenderPage.h"

#include "jobs/frames/FramesInOrder.h"
#include "jobs/frames/OutputFolder.h"
#include "jobs/page/LitPageFrames.h"
#include "jobs/shown/LitFrames.h"
#include "jobs/shown/SceneLighting.h"

UT_Result<void> renderPage(const ShownModule& shown, const RenderPageSettings& settings,
                           const RenderFramesWatcher& watcher)
{
    RD_RenderParameters parameters = settings.parameters;
    if (settings.frames.size() > 1)
        parameters.resolution = previewSize(parameters.resolution);
    const auto make = [&](int number) -> UT_Result<LitPageFrame> {
        const auto frame = shown.render(number, parameters, {.drawing = true});
        if (!frame)
            return frame.error();
        UT_Result<LitPageFrame> made = litPageFrame(*frame, settings.form, false);
        if (!made)
            return made;
        made->number = number;
        made->lighting = settings.lighting ? *settings.lighting : sceneLighting(shown.module(), number);
        return made;
    };
    if (UT_Result<void> made = makeFolderFor(settings.file); !made)
        return made;
    LitPageFile page(
        settings.file,
        {.name = settings.name, .yAxis = settings.form.yAxis, .framesPerSecond = settings.framesPerSecond});
    if (UT_Result<void> opened = page.open(); !opened)
        return opened;
    if (UT_Result<void> made = framesInOrder<LitPageFrame>(
            settings.frames, settings.atOnce, QStringLiteral("a page"), make,
            [&](const LitPageFrame& frame) { return page.add(frame); }, watcher);
        !made)
        return made;
    return page.finish();
}
