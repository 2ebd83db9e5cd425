// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The job uses a copy of the scene, so people can go on working.
#include "studio/export/LastExport.h"

#include "studio/document/StudioDocument.h"
#include "studio/export/ExportPlan.h"

#include <utility>

LastExport::LastExport(StudioDocument& document, QObject* parent) : QObject(parent), _document(document)
{
    connect(&_document, &StudioDocument::sceneReplaced, this, [this] { _choices.reset(); });
}

void LastExport::noteSize()
{
    _hasOwnSize = _choices && _choices->width == ownWidth(_document.scene());
}

void LastExport::followSize()
{
    if (_choices && std::exchange(_hasOwnSize, false))
        _choices->width = ownWidth(_document.scene());
}

void LastExport::repeat()
{
    if (!_choices || isRunning())
        return;
    auto job = std::make_unique<ExportJob>();
    connect(job.get(), &ExportJob::progressed, this, &LastExport::progressed);
    connect(job.get(), &ExportJob::ended, this, [this] {
        // Deleted later, because this slot is called from its signal.
        ExportJob* const done = _job.release();
        done->deleteLater();
        Q_EMIT runningChanged(false);
        Q_EMIT ended(done->report(), done->isIncomplete());
    });
    if (const auto started = job->start(_document.scene(), *_choices); !started) {
        Q_EMIT runningChanged(false);
        Q_EMIT ended(started.error().sentence(), true);
        return;
    }
    _job = std::move(job);
    Q_EMIT runningChanged(true);
}

void LastExport::stop()
{
    if (_job)
        _job->stop();
}
