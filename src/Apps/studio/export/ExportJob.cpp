// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Writes one kind of picture after the other. After start(), only the worker thread changes the plan, and nothing but
// the heights in it. It passes every result through the event loop of the object's thread, which alone uses the members
// for results.
#include "studio/export/ExportJob.h"

#include "jobs/frames/HeightRange.h"

#include <QFileInfo>
#include <QThread>

namespace {

// The names of files without their folder; if there are many, only the first and the last.
QString namesOf(const QStringList& files)
{
    constexpr qsizetype kMost = 6;
    QStringList names;
    for (const QString& file : files)
        names << QFileInfo(file).fileName();
    return names.size() <= kMost ? names.join(QStringLiteral(", "))
                                 : names.first() + QStringLiteral(" ... ") + names.last();
}

} // namespace

ExportJob::ExportJob(QObject* parent) : QObject(parent) {}

ExportJob::~ExportJob()
{
    stop();
    if (_thread)
        _thread->wait();
    delete _thread;
}

UT_Result<void> ExportJob::start(const MO_Scene& scene, const ExportChoices& choices)
{
    UT_Result<ExportPlan> plan = ExportPlan::of(scene, choices);
    if (!plan)
        return plan.error();
    _plan = std::move(*plan);
    _thread = QThread::create([this] { run(); });
    _thread->start();
    return {};
}

int ExportJob::pictureCount() const
{
    std::size_t count = 0;
    for (const RenderFramesSettings& run : _plan.runs)
        count += run.frames.size();
    return static_cast<int>(count);
}

void ExportJob::run()
{
    bool stopped = false;
    int failed = 0;
    for (std::size_t i = 0; i < _plan.runs.size() && !stopped; ++i) {
        const RenderFramesResult result = runOne(i);
        stopped = result.stopped;
        failed += result.failed;
    }
    QMetaObject::invokeMethod(
        this,
        [this, stopped, failed] {
            _stopped = stopped;
            _failed = failed;
            finish();
        },
        Qt::QueuedConnection);
}

RenderFramesResult ExportJob::runOne(std::size_t run)
{
    const RenderFramesSettings& settings = _plan.runs[run];
    const bool isMeasured =
        settings.content == FrameContent::HEIGHT && !settings.picture.floatFile && settings.heights.white == 0.0;
    if (isMeasured)
        if (const UT_Result<void> measured = measure(run); !measured) {
            const bool stopped = measured.error().kind == UT_ErrorKind::STOPPED;
            if (!stopped)
                tellFailure(measured.error().sentence());
            return {.failed = stopped ? 0 : static_cast<int>(settings.frames.size()), .stopped = stopped};
        }
    RenderFramesWatcher watcher = watcherOf(run);
    if (isMeasured)
        watcher.progress = [this, run](double done) { tellProgress(run, 0.5 + 0.5 * done); };
    return renderFrames(*_plan.shown, settings, watcher);
}

UT_Result<void> ExportJob::measure(std::size_t run)
{
    RenderFramesWatcher watcher;
    watcher.stop = [this] { return _stop.load(); };
    watcher.progress = [this, run](double done) { tellProgress(run, 0.5 * done); };
    const auto range = UT_withinMemory(tr("the heights"), tr("choose a smaller width"),
                                       [&] { return heightRangeOf(*_plan.shown, _plan.runs[run], watcher); });
    if (!range)
        return range.error();
    _plan.runs[run].heights = *range;
    return {};
}

void ExportJob::tellProgress(std::size_t run, double done)
{
    const double share = (static_cast<double>(run) + done) / static_cast<double>(_plan.runs.size());
    QMetaObject::invokeMethod(
        this, [this, share] { Q_EMIT progressed(share); }, Qt::QueuedConnection);
}

void ExportJob::tellFailure(const QString& reason)
{
    QMetaObject::invokeMethod(
        this, [this, reason] { _failures << reason; }, Qt::QueuedConnection);
}

RenderFramesWatcher ExportJob::watcherOf(std::size_t run)
{
    RenderFramesWatcher watcher;
    watcher.stop = [this] { return _stop.load(); };
    watcher.progress = [this, run](double done) { tellProgress(run, done); };
    watcher.ended = [this, file = _plan.runs[run].file](int frame, FrameEnd end, const QString& reason) {
        QMetaObject::invokeMethod(
            this,
            [this, file = file.of(frame), frame, end, reason] {
                if (end == FrameEnd::FAILED)
                    _failures << tr("Frame %1: %2").arg(frame).arg(reason);
                else
                    _written << file;
            },
            Qt::QueuedConnection);
    };
    return watcher;
}

QString ExportJob::report() const
{
    QString text = _written.size() == 1 ? tr("1 picture written.")
                                        : tr("%n pictures written.", nullptr, static_cast<int>(_written.size()));
    if (_stopped)
        text = _written.isEmpty() ? tr("Stopped; nothing was written.")
                                  : tr("Stopped; these files are complete: %1").arg(namesOf(_written));
    if (_failed > 0)
        text += QLatin1Char(' ') +
                (_failed == 1 ? tr("1 picture failed.") : tr("%n pictures failed.", nullptr, _failed)) +
                QLatin1Char('\n') + _failures.value(0);
    return text;
}

void ExportJob::finish()
{
    _thread->wait();
    delete std::exchange(_thread, nullptr);
    Q_EMIT ended();
}
