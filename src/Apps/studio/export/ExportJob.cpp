// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Everything is checked before the thread begins, so that what does not fit is said in the dialog.
#include "studio/export/ExportJob.h"

#include "QuarvelImageIO/IIO_PictureFile.h"
#include "QuarvelSceneCore/graph/MO_SceneCopy.h"
#include "jobs/frames/FrameRange.h"
#include "jobs/frames/RenderMemory.h"
#include "jobs/limits/JobLimits.h"
#include "jobs/shown/ShownMemory.h"

#include <QFileInfo>
#include <QThread>

#include <cmath>

namespace {

FramePictureSettings pictureOf(const ExportChoices& choices, RenderedKind source)
{
    FramePictureSettings picture;
    picture.source = source;
    picture.shown = choices.shown;
    picture.layout = choices.layout;
    picture.form.yAxis = choices.yAxis;
    picture.form.pad = choices.pad;
    picture.floatFile = IIO_isFloatFile(choices.file);
    picture.half = choices.half;
    picture.scene = choices.sceneName;
    picture.node = choices.node;
    picture.elevation = needsElevationInBlue(picture);
    return picture;
}

UT_Result<std::vector<int>> framesOf(const MO_Scene& scene, const QString& text)
{
    const int first = scene.firstFrame();
    const int last = scene.lastFrame();
    const auto range =
        text.trimmed().isEmpty() ? UT_Result<FrameRange>(FrameRange::all(first, last)) : FrameRange::parse(text);
    if (!range)
        return range.error();
    const auto list = range->within(first, last);
    if (!list)
        return list.error();
    if (list->frames.empty())
        return UT_Error{
            ExportJob::tr("None of these frames is in the scene, which has the frames %1 to %2.").arg(first).arg(last)};
    return list->frames;
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
    const auto frames = framesOf(scene, choices.frames);
    if (!frames)
        return frames.error();
    _settings.frames = *frames;
    const int height =
        std::max(1, static_cast<int>(std::lround(choices.width * scene.frameHeight() / MO_SceneCommon::kFrameWidth)));
    _settings.parameters = {choices.floatRender ? RD_RenderParameters::IMAGE_PROCESSING_FLOAT
                                                : RD_RenderParameters::IMAGE_PROCESSING_16BIT,
                            {choices.width, height}};
    const auto file = FrameFileName::parse(choices.file);
    if (!file)
        return file.error();
    if (!file->hasNumber() && _settings.frames.size() > 1)
        return UT_Error{
            tr("%1 would be written over by every frame; write %2.")
                .arg(QFileInfo(choices.file).fileName(), QFileInfo(FrameFileName::proposal(choices.file)).fileName())};
    _settings.file = *file;
    _scene = MO_copyScene(scene);
    MO_Module* const module = _scene->findModule(choices.node);
    if (!module)
        return UT_Error{tr("There is no node \"%1\" any more.").arg(choices.node)};
    _shown = std::make_unique<ShownModule>(*module);
    _settings.picture = pictureOf(choices, _shown->kind());
    _settings.picture.floatRender =
        _shown->usedFor(_settings.parameters, partsOf(_settings.picture)).celFormat() == CEL_FORMAT_RGBAFLOAT;
    // One at a time leaves the window a core to answer on.
    const double needed = shownFrameBytes(*_shown, _settings.frames, _settings.parameters, partsOf(_settings.picture));
    const auto atOnce = framesAtOnce(1, _settings.parameters, needed, jobLimits().memory / 2.0);
    if (!atOnce)
        return atOnce.error();
    _settings.atOnce = *atOnce;

    RenderFramesWatcher watcher;
    watcher.stop = [this] { return _stop.load(); };
    watcher.progress = [this](double done) {
        QMetaObject::invokeMethod(
            this, [this, done] { Q_EMIT progressed(done); }, Qt::QueuedConnection);
    };
    watcher.ended = [this](int frame, FrameEnd end, const QString& reason) {
        if (end == FrameEnd::FAILED)
            QMetaObject::invokeMethod(
                this, [this, frame, reason] { _failures << tr("Frame %1: %2").arg(frame).arg(reason); },
                Qt::QueuedConnection);
    };
    _thread = QThread::create([this, watcher] {
        const RenderFramesResult result = renderFrames(*_shown, _settings, watcher);
        QMetaObject::invokeMethod(
            this, [this, result] { finish(result); }, Qt::QueuedConnection);
    });
    _thread->start();
    return {};
}

void ExportJob::finish(const RenderFramesResult& result)
{
    _thread->wait();
    delete std::exchange(_thread, nullptr);
    Q_EMIT ended(result);
}
