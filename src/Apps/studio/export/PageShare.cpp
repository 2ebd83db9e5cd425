// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The settings are those of "quarvel render", with the drawing's own width.
#include "studio/export/PageShare.h"

#include "QuarvelSceneCore/graph/MO_SceneCopy.h"
#include "jobs/frames/FrameRange.h"
#include "jobs/frames/RenderMemory.h"
#include "jobs/frames/RenderPage.h"
#include "jobs/limits/JobLimits.h"
#include "jobs/shown/ShownMemory.h"
#include "jobs/targets/Targets.h"
#include "studio/document/StudioDocument.h"
#include "studio/export/ExportPlan.h"
#include "studio/preview/SceneSnapshot.h"

#include <QFileInfo>
#include <QThread>

struct PageShare::Plan
{
    std::unique_ptr<MO_Scene> scene;
    std::unique_ptr<ShownModule> shown;
    RenderPageSettings settings;
    UT_Result<void> result = {};
};

PageShare::PageShare(StudioDocument& document, QObject* parent) : QObject(parent), _document(document) {}

PageShare::~PageShare()
{
    _stop = true;
    if (_thread)
        _thread->wait();
    delete _thread;
}

UT_Result<std::shared_ptr<PageShare::Plan>> PageShare::planOf(const QString& file, const QString& name) const
{
    auto plan = std::make_shared<Plan>();
    auto copy = MO_copyScene(_document.scene());
    if (!copy)
        return copy.error();
    plan->scene = std::move(*copy);
    MO_Module* const module = shownModule(*plan->scene);
    if (module)
        plan->shown = std::make_unique<ShownModule>(*module);
    if (!module || plan->shown->kind() != RenderedKind::NORMALS)
        return UT_Error{tr("A page lights normals, and this scene shows none.")};
    if (const auto good = LitPageFile::check(file); !good)
        return good.error();
    const MO_Scene& scene = *plan->scene;
    RenderPageSettings& settings = plan->settings;
    const auto frames =
        FrameRange::all(scene.firstFrame(), scene.lastFrame()).within(scene.firstFrame(), scene.lastFrame());
    if (!frames)
        return frames.error();
    settings.frames = frames->frames;
    const int width = ownWidth(scene);
    settings.parameters = {RD_RenderParameters::IMAGE_PROCESSING_16BIT, {width, scene.heightInPixels(width)}};
    settings.form = kFormForMost;
    settings.file = file;
    settings.name = name;
    settings.framesPerSecond = scene.frameRate();
    // One frame at a time leaves a processor core for the window.
    const double needed = shownFrameBytes(*plan->shown, settings.frames, settings.parameters, {.drawing = true});
    const auto atOnce = framesAtOnce(1, settings.parameters, needed, jobLimits().memoryForFrames());
    if (!atOnce)
        return atOnce.error();
    settings.atOnce = *atOnce;
    return plan;
}

void PageShare::start(const QString& file, const QString& name)
{
    if (isRunning())
        return;
    const auto plan = planOf(file, name);
    if (!plan) {
        Q_EMIT runningChanged(false);
        Q_EMIT ended(plan.error().sentence(), true);
        return;
    }
    _stop = false;
    _thread = QThread::create([this, plan = *plan] { run(*plan); });
    connect(_thread, &QThread::finished, this, [this, plan = *plan] { finish(*plan); });
    _thread->start();
    Q_EMIT runningChanged(true);
}

void PageShare::run(Plan& plan)
{
    RenderFramesWatcher watcher;
    watcher.stop = [this] { return _stop.load(); };
    watcher.progress = [this](double done) {
        QMetaObject::invokeMethod(
            this, [this, done] { Q_EMIT progressed(done); }, Qt::QueuedConnection);
    };
    plan.result = UT_withinMemory(tr("the page"), tr("close what else is open"),
                                  [&] { return renderPage(*plan.shown, plan.settings, watcher); });
}

void PageShare::finish(const Plan& plan)
{
    _thread->wait();
    std::exchange(_thread, nullptr)->deleteLater();
    Q_EMIT runningChanged(false);
    const QString name = QFileInfo(plan.settings.file).fileName();
    if (plan.result)
        Q_EMIT ended(tr("%1 was written. The page works in any browser and needs no other file.").arg(name), false);
    else if (plan.result.error().kind == UT_ErrorKind::STOPPED)
        Q_EMIT ended(tr("Stopped; nothing was written."), true);
    else
        Q_EMIT ended(tr("The page was not written: %1").arg(plan.result.error().sentence()), true);
}
