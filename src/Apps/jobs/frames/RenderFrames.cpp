// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Frames with the same picture form a shot, which is rendered once. Workers take the next shot from a common list until
// it is empty.
#include "jobs/frames/RenderFrames.h"

#include "QuarvelImageIO/IIO_PictureFile.h"
#include "QuarvelSceneCore/rendering/RD_SoftRenderer.h"
#include "QuarvelVectorLanes/VL_ParallelFor.h"
#include "jobs/frames/FrameDigest.h"
#include "jobs/frames/FrameOnDisk.h"
#include "jobs/frames/OutputFolder.h"
#include "jobs/frames/SurfaceFrames.h"
#include "jobs/limits/JobWorkers.h"
#include "jobs/shown/LitSurface.h"
#include "jobs/shown/SceneLighting.h"
#include "jobs/shown/SurfacePictures.h"

#include <algorithm>
#include <atomic>
#include <map>
#include <mutex>
#include <optional>

namespace {

/// The frames with one picture, as indices into the frames of the settings.
using Shot = std::vector<std::size_t>;

std::vector<QByteArray> digestsOf(const MO_Module& module, const RenderFramesSettings& settings)
{
    FrameDigests digests(module, settings);
    std::vector<QByteArray> all;
    all.reserve(settings.frames.size());
    for (const int frame : settings.frames)
        all.push_back(digests.of(frame));
    return all;
}

/// The shots in the order of their first frames. A frame without a digest is a shot of its own.
std::vector<Shot> shotsOf(const std::vector<QByteArray>& digests)
{
    std::vector<Shot> shots;
    std::map<QByteArray, std::size_t> known;
    for (std::size_t i = 0; i < digests.size(); ++i) {
        const auto [place, isNew] = known.emplace(digests[i], shots.size());
        if (isNew || digests[i].isEmpty())
            shots.push_back({i});
        else
            shots[place->second].push_back(i);
    }
    return shots;
}

class Run
{
public:
    Run(const ShownModule& shown, const RenderFramesSettings& settings, const RenderFramesWatcher& watcher)
        : _shown(shown)
        , _settings(settings)
        , _watcher(watcher)
        , _surfaces(shown, settings)
        , _digests(digestsOf(shown.module(), settings))
        , _shots(shotsOf(_digests))
        , _done(settings.frames.size(), 0.0)
    {}

    RenderFramesResult run()
    {
        onWorkers(workersFor(_shots.size(), _settings.atOnce), [this](tbb::task_arena& share) {
            for (std::size_t i = _next++; i < _shots.size() && workOn(_shots[i], share); i = _next++)
                continue;
        });
        return _result;
    }

private:
    struct Ended
    {
        FrameEnd end = FrameEnd::WRITTEN;
        QString reason;
        bool stopped = false;
    };

    // The files of other frames will not fit on a full disk either.
    bool stop() const { return _diskIsFull || (_watcher.stop && _watcher.stop()); }

    // @return false if the run must stop
    bool workOn(const Shot& shot, tbb::task_arena& arena)
    {
        std::optional<IIO_Picture> picture;
        for (const std::size_t index : shot) {
            if (stop()) {
                noteStop();
                return false;
            }
            note(index, VL_executeIn(arena, [&] { return tryFrame(index, picture); }));
        }
        return true;
    }

    Ended tryFrame(std::size_t index, std::optional<IIO_Picture>& picture)
    {
        try {
            const UT_Result<FrameEnd> ended = UT_withinMemory(
                QStringLiteral("the frame"), QStringLiteral("choose a smaller resolution or fewer jobs"),
                [&] { return frame(index, picture); });
            if (ended)
                return {*ended, {}, false};
            const UT_ErrorKind kind = ended.error().kind;
            // One message is enough for all frames that meet a full disk.
            const bool isKnown = kind == UT_ErrorKind::DISK_FULL && _diskIsFull.exchange(true);
            return {FrameEnd::FAILED, ended.error().sentence(), kind == UT_ErrorKind::STOPPED || isKnown};
        } catch (const std::exception& error) {
            return {FrameEnd::FAILED, QString::fromUtf8(error.what()), false};
        }
    }

    // @param picture the picture of the shot; the first frame that needs it renders it
    UT_Result<FrameEnd> frame(std::size_t index, std::optional<IIO_Picture>& picture)
    {
        const int number = _settings.frames[index];
        const QString file = _settings.file.of(number);
        if (_settings.resume && isFrameOnDisk(file, _digests[index]))
            return FrameEnd::KEPT;
        if (!picture) {
            auto rendered = render(index);
            if (!rendered)
                return rendered.error();
            picture = std::move(*rendered);
        }
        picture->metadata() = metadataOf(number);
        if (!_digests[index].isEmpty())
            picture->metadata().set(kFrameDigestKey, QLatin1String(_digests[index]));
        if (const auto written = write(*picture, file); !written)
            return written.error();
        return FrameEnd::WRITTEN;
    }

    UT_Result<IIO_Picture> render(std::size_t index)
    {
        const int number = _settings.frames[index];
        const auto goOn = [&](double done) {
            show(index, 0.95 * done);
            return !stop();
        };
        if (_settings.content == FrameContent::DRAWING)
            return drawingPicture(number, goOn);
        if (SurfaceFrames::makes(_settings.content))
            return _surfaces.render(number, goOn);
        const auto frame = _shown.render(number, _settings.parameters, partsOf(_settings), goOn);
        if (!frame)
            return frame.error();
        if (_settings.content == FrameContent::LIT)
            return litPicture(*frame, number);
        return framePicture(*frame->picture, frame->drawing.get(), frame->window, _settings.picture, number,
                            &frame->objects);
    }

    UT_Result<IIO_Picture> litPicture(const ShownFrame& frame, int number) const
    {
        const auto surface = litSurface(frame);
        if (!surface)
            return surface.error();
        UT_Result<IIO_Picture> picture =
            NM_litPicture(*surface, _settings.lighting ? *_settings.lighting : sceneLighting(_shown.module(), number));
        if (picture && _settings.picture.form.bits == 8)
            NM_ditherTo8Bits(*picture);
        return picture;
    }

    UT_Result<IIO_Picture> drawingPicture(int number, const RD_SoftRenderer::Progress& goOn) const
    {
        const auto drawing = _shown.renderDrawing(number, _settings.parameters, goOn);
        if (!drawing)
            return drawing.error();
        return framePicture(**drawing, nullptr, RD_RenderJob(_settings.parameters).frame(), _settings.picture, number);
    }

    IIO_Metadata metadataOf(int number) const
    {
        if (SurfaceFrames::makes(_settings.content))
            return _surfaces.metadata(number);
        IIO_Metadata metadata = frameMetadata(_settings.picture, number);
        if (_settings.content != FrameContent::LIT)
            return metadata;
        metadata.set(QStringLiteral("Layout"), QStringLiteral("lit"));
        metadata.set(QStringLiteral("Light"), _settings.lightNote);
        return metadata;
    }

    UT_Result<void> write(const IIO_Picture& picture, const QString& file) const
    {
        if (UT_Result<void> made = makeFolderFor(file); !made)
            return made;
        IIO_WriteOptions how;
        how.pngBits = _settings.picture.form.bits;
        how.exrDepth = _settings.picture.half ? IIO_ExrDepth::HALF : IIO_ExrDepth::FLOAT;
        return IIO_write(file, picture, how);
    }

    void show(std::size_t index, double done)
    {
        const std::scoped_lock lock(_mutex);
        _sum += std::max(0.0, done - _done[index]);
        _done[index] = std::max(done, _done[index]);
        if (_watcher.progress)
            _watcher.progress(std::min(1.0, _sum / static_cast<double>(_done.size())));
    }

    // A full disk counts as a failure of the frame that met it.
    void noteStop()
    {
        const std::scoped_lock lock(_mutex);
        _result.stopped = _result.stopped || !_diskIsFull;
    }

    void note(std::size_t index, const Ended& ended)
    {
        if (ended.stopped) {
            noteStop();
            return;
        }
        show(index, 1.0);
        const std::scoped_lock lock(_mutex);
        ++(ended.end == FrameEnd::WRITTEN ? _result.written
           : ended.end == FrameEnd::KEPT  ? _result.kept
                                          : _result.failed);
        if (_watcher.ended)
            _watcher.ended(_settings.frames[index], ended.end, ended.reason);
    }

    const ShownModule& _shown;
    const RenderFramesSettings& _settings;
    const RenderFramesWatcher& _watcher;
    const SurfaceFrames _surfaces;
    const std::vector<QByteArray> _digests; ///< by the frame's index in the settings
    const std::vector<Shot> _shots;
    std::atomic<std::size_t> _next = 0;
    std::atomic<bool> _diskIsFull = false;
    std::mutex _mutex;
    std::vector<double> _done;
    double _sum = 0.0;
    RenderFramesResult _result;
};

} // namespace

ShownParts partsOf(const RenderFramesSettings& run)
{
    switch (run.content) {
    case FrameContent::PICTURE:
        return partsOf(run.picture);
    case FrameContent::LIT:
    case FrameContent::DRAWING:
    case FrameContent::GLOSS:
        return {.drawing = true};
    case FrameContent::HEIGHT:
    case FrameContent::OCCLUSION:
    case FrameContent::NUMBERS:
        break;
    }
    return surfaceParts();
}

RenderFramesResult renderFrames(const ShownModule& shown, const RenderFramesSettings& settings,
                                const RenderFramesWatcher& watcher)
{
    return Run(shown, settings, watcher).run();
}
