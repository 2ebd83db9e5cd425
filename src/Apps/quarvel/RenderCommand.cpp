// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// From the words to a run: the plan is made first, and only then is anything rendered or written.
#include "RenderCommand.h"

#include "ExitCodes.h"
#include "OpenScene.h"
#include "RenderOptions.h"
#include "RenderPlan.h"
#include "Report.h"
#include "StopSignal.h"
#include "jobs/frames/HeightRange.h"
#include "jobs/frames/RenderFrames.h"
#include "jobs/frames/RenderPage.h"
#include "jobs/frames/RenderPreview.h"

#include <QFileInfo>

#include <algorithm>

namespace {

RenderFramesResult run(const RenderPlan& plan, const RenderFramesSettings& settings, const RenderOptions& options,
                       Report& report)
{
    RenderProgress progress(options.quiet ? RenderProgressStyle::NONE : options.progress,
                            static_cast<int>(settings.frames.size()), report.results());
    RenderFramesWatcher watcher;
    watcher.stop = &StopSignal::came;
    watcher.progress = [&](double done) { progress.show(done); };
    watcher.ended = [&](int frame, FrameEnd end, const QString& reason) {
        progress.frameEnded(frame, reason);
        if (end != FrameEnd::FAILED)
            return;
        progress.clear();
        report.error(UT_Error{reason}.at(QStringLiteral("frame %1").arg(frame)));
    };
    return renderFrames(*plan.shown, settings, watcher);
}

void tellSummary(const RenderFramesResult& result, const RenderOptions& options, const QString& output, Report& report)
{
    // Always in this form, so that a scheduler can read it by a regular expression.
    report.result({{QStringLiteral("scene"), options.scene},
                   {QStringLiteral("output"), output},
                   {QStringLiteral("written"), result.written},
                   {QStringLiteral("kept"), result.kept},
                   {QStringLiteral("failed"), result.failed}},
                  QStringLiteral("%1 -> %2: %3 written, %4 complete already, %5 failed\n")
                      .arg(options.scene, output, QString::number(result.written), QString::number(result.kept),
                           QString::number(result.failed)));
}

// Does nothing where no output is wanted.
int renderFiles(const RenderPlan& plan, const RenderFramesSettings& settings, const RenderOptions& options,
                const QString& output, Report& report)
{
    if (output.isEmpty())
        return 0;
    const RenderFramesResult result = run(plan, settings, options, report);
    tellSummary(result, options, output, report);
    if (result.stopped)
        return StopSignal::exitCode();
    return result.failed > 0 ? kFailed : 0;
}

RenderFramesWatcher stoppable()
{
    RenderFramesWatcher watcher;
    watcher.stop = &StopSignal::came;
    return watcher;
}

int exitCodeOf(const UT_Error& error, Report& report)
{
    if (error.kind == UT_ErrorKind::STOPPED)
        return StopSignal::exitCode();
    report.error(error);
    return kFailed;
}

int renderSurface(const RenderPlan& plan, RenderFramesSettings settings, const RenderOptions& options,
                  const QString& output, Report& report)
{
    if (settings.content == FrameContent::HEIGHT && plan.findsHeights) {
        const auto range = heightRangeOf(*plan.shown, settings, stoppable());
        if (!range)
            return exitCodeOf(range.error(), report);
        settings.heights = *range;
        report.remark(QStringLiteral("%1: white is %2 pixels in all frames; --height-range says so to other runs\n")
                          .arg(output, QString::number(range->white)));
    }
    return renderFiles(plan, settings, options, output, report);
}

int renderFilm(const RenderPlan& plan, const RenderOptions& options, Report& report)
{
    if (options.preview.isEmpty())
        return 0;
    RenderPreviewSettings settings{.frames = plan.settings.frames,
                                   .parameters = plan.settings.parameters,
                                   .shown = plan.settings.picture.shown,
                                   .file = options.preview,
                                   .framesPerSecond = plan.framesPerSecond,
                                   .atOnce = plan.settings.atOnce,
                                   .lighting = {}};
    if (options.light)
        settings.lighting = lightingOf(*options.light);
    const auto made = renderPreview(*plan.shown, settings, stoppable());
    if (!made)
        return exitCodeOf(made.error(), report);
    if (*made != options.preview)
        report.warning(options.preview,
                       QStringLiteral("ffmpeg is not installed, so the preview is an animated PNG: %1").arg(*made));
    report.result({{QStringLiteral("scene"), options.scene}, {QStringLiteral("preview"), *made}},
                  QStringLiteral("%1 -> %2\n").arg(options.scene, *made));
    return 0;
}

int renderHtml(const RenderPlan& plan, const RenderOptions& options, Report& report)
{
    if (options.page.isEmpty())
        return 0;
    RenderPageSettings settings{.frames = plan.settings.frames,
                                .parameters = plan.settings.parameters,
                                .form = options.form.resolved(kFormForMost),
                                .file = options.page,
                                .name = QFileInfo(plan.settings.picture.scene).completeBaseName(),
                                .framesPerSecond = plan.framesPerSecond,
                                .atOnce = plan.settings.atOnce,
                                .lighting = {}};
    if (options.light)
        settings.lighting = lightingOf(*options.light);
    if (const auto made = renderPage(*plan.shown, settings, stoppable()); !made)
        return exitCodeOf(made.error(), report);
    report.result({{QStringLiteral("scene"), options.scene}, {QStringLiteral("html"), options.page}},
                  QStringLiteral("%1 -> %2\n").arg(options.scene, options.page));
    return 0;
}

int renderAll(const RenderPlan& plan, const RenderOptions& options, Report& report)
{
    if (plan.settings.frames.empty()) {
        report.remark(QStringLiteral("%1: this shard has no frames\n").arg(options.scene));
        return 0;
    }
    int exitCode = renderFiles(plan, plan.settings, options, options.output, report);
    if (exitCode == 0 && !options.output.isEmpty() && isIntegerMap(plan.settings.picture))
        report.remark(fitsLine(plan.settings.picture.form, options.form.target) + QLatin1Char('\n'));
    if (!StopSignal::came())
        exitCode = std::max(exitCode, renderFiles(plan, plan.lit, options, options.lit, report));
    if (!StopSignal::came())
        exitCode = std::max(exitCode, renderFiles(plan, plan.drawing, options, options.drawing, report));
    for (const auto& [output, settings] : plan.surfaces)
        if (!StopSignal::came())
            exitCode = std::max(exitCode, renderSurface(plan, settings, options, output, report));
    if (!StopSignal::came())
        exitCode = std::max(exitCode, renderFilm(plan, options, report));
    if (!StopSignal::came())
        exitCode = std::max(exitCode, renderHtml(plan, options, report));
    if (!StopSignal::came())
        return exitCode;
    report.error(QStringLiteral("stopped; --resume goes on from here"));
    return StopSignal::exitCode();
}

// What the results share standard output with must be for the same reader.
UT_Result<void> checkProgress(const RenderOptions& options, const Report& report)
{
    const bool onResults =
        options.progress == RenderProgressStyle::PERCENT || options.progress == RenderProgressStyle::OPENJD;
    if (report.isJson() && onResults)
        return UT_Error{QStringLiteral("--json and this --progress both want standard output; take --progress json, "
                                       "which is on standard error")};
    return {};
}

} // namespace

int runRenderCommand(const QStringList& words, Report& report)
{
    const UT_Result<RenderOptions> options = parseRenderOptions(words);
    if (!options) {
        report.error(options.error());
        return kWrongUsage;
    }
    if (options->help) {
        report.help(renderHelp());
        return 0;
    }
    if (options->quiet)
        report.beQuiet();
    if (const UT_Result<void> fits = checkProgress(*options, report); !fits) {
        report.error(fits.error());
        return kWrongUsage;
    }
    const UT_Result<SIO_LoadedScene> scene = openScene(options->scene, report);
    if (!scene && scene.error().kind == UT_ErrorKind::STOPPED) {
        report.error(QStringLiteral("stopped; nothing is rendered yet"));
        return StopSignal::exitCode();
    }
    if (!scene) {
        report.error(scene.error(), options->scene);
        return kFailed;
    }
    const UT_Result<RenderPlan> plan = renderPlan(*scene->scene, *options, report);
    if (!plan) {
        report.error(plan.error());
        return kWrongUsage;
    }
    return renderAll(*plan, *options, report);
}
