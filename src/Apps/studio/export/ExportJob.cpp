// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Writes one kind of picture after the other. The worker thread passes every result through the event loop of the
// object's thread, so only that thread uses the object's members.
#include "studio/export/ExportJob.h"

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
        const RenderFramesResult result = renderFrames(*_plan.shown, _plan.runs[i], watcherOf(i));
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

RenderFramesWatcher ExportJob::watcherOf(std::size_t run)
{
    const double runs = static_cast<double>(_plan.runs.size());
    RenderFramesWatcher watcher;
    watcher.stop = [this] { return _stop.load(); };
    watcher.progress = [this, run, runs](double done) {
        const double share = (static_cast<double>(run) + done) / runs;
        QMetaObject::invokeMethod(
            this, [this, share] { Q_EMIT progressed(share); }, Qt::QueuedConnection);
    };
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
    QString text = tr("%n picture(s) written.", nullptr, static_cast<int>(_written.size()));
    if (_stopped)
        text = _written.isEmpty() ? tr("Stopped; nothing was written.")
                                  : tr("Stopped; these files are complete: %1").arg(namesOf(_written));
    if (_failed > 0)
        text +=
            QLatin1Char(' ') + tr("%n picture(s) failed.", nullptr, _failed) + QLatin1Char('\n') + _failures.value(0);
    return text;
}

void ExportJob::finish()
{
    _thread->wait();
    delete std::exchange(_thread, nullptr);
    Q_EMIT ended();
}
