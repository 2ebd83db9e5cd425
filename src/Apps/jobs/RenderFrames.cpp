// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Workers take the next frame from a common list until it is empty. Each renders within its share of the machine's
// threads, so that many frames at once do not become many times as many threads.
#include "jobs/RenderFrames.h"

#include "QuarvelImageIO/IIO_PictureFile.h"
#include "QuarvelSceneCore/RD_RenderJob.h"
#include "QuarvelSceneCore/RD_SoftRenderer.h"
#include "jobs/FrameOnDisk.h"

#include <QDir>
#include <QFileInfo>
#include <tbb/task_arena.h>

#include <algorithm>
#include <atomic>
#include <mutex>
#include <new>
#include <thread>

namespace {

class Run
{
public:
    Run(MO_Module& module, const RenderFramesSettings& settings, const RenderFramesWatcher& watcher)
        : _module(module), _settings(settings), _watcher(watcher), _done(settings.frames.size(), 0.0)
    {}

    RenderFramesResult run()
    {
        const auto workers = static_cast<unsigned>(std::clamp<std::size_t>(
            _settings.frames.size(), 1, static_cast<std::size_t>(std::max(1, _settings.atOnce))));
        const unsigned present = std::max(1U, std::thread::hardware_concurrency());
        const auto share = static_cast<int>(std::max(1U, present / workers));
        std::vector<std::jthread> others;
        for (unsigned i = 1; i < workers; ++i)
            others.emplace_back([this, share] { work(share); });
        work(share);
        others.clear();
        return _result;
    }

private:
    struct Ended
    {
        FrameEnd end = FrameEnd::WRITTEN;
        QString reason;
        bool stopped = false;
    };

    bool stop() const { return _watcher.stop && _watcher.stop(); }

    void work(int threads)
    {
        tbb::task_arena arena(threads);
        for (std::size_t i = _next++; i < _settings.frames.size(); i = _next++) {
            if (stop()) {
                const std::scoped_lock lock(_mutex);
                _result.stopped = true;
                return;
            }
            Ended ended;
            arena.execute([&] { ended = tryFrame(i); });
            note(i, ended);
        }
    }

    Ended tryFrame(std::size_t index)
    {
        try {
            return frame(index);
        } catch (const std::bad_alloc&) {
            return {FrameEnd::FAILED,
                    QStringLiteral("the memory is not enough; choose a smaller resolution or fewer jobs"), false};
        } catch (const std::exception& error) {
            return {FrameEnd::FAILED, QString::fromUtf8(error.what()), false};
        }
    }

    Ended frame(std::size_t index)
    {
        const int number = _settings.frames[index];
        const QString file = _settings.file.of(number);
        const RD_RenderJob job(_settings.parameters);
        if (_settings.resumeAfter &&
            isFrameOnDisk(file, job.size(), frameMetadata(_settings.picture, number), *_settings.resumeAfter))
            return {FrameEnd::KEPT, {}, false};
        const auto cel = RD_SoftRenderer::render(_module, number, _settings.parameters, [&](double done) {
            show(index, 0.95 * done);
            return !stop();
        });
        if (!cel)
            return failed(cel.error(), cel.error().text == RD_SoftRenderer::stoppedText() && stop());
        const UT_SharedPtr<CEL_PixmapArea> pixmap = (*cel)->pixmap();
        if (const auto written = write(*pixmap, job.canvas(), number, file); !written)
            return failed(written.error(), false);
        return {};
    }

    static Ended failed(const UT_Error& error, bool stopped) { return {FrameEnd::FAILED, error.text, stopped}; }

    UT_Result<void> write(const CEL_PixmapArea& pixmap, const Math::Box2di& window, int number,
                          const QString& file) const
    {
        const auto picture = framePicture(pixmap, window, _settings.picture, number);
        if (!picture)
            return picture.error();
        const QString folder = QFileInfo(file).absolutePath();
        if (!QDir().mkpath(folder))
            return UT_Error{QStringLiteral("the folder %1 cannot be made; choose one where you may write").arg(folder)};
        IIO_WriteOptions how;
        how.exrDepth = _settings.picture.half ? IIO_ExrDepth::HALF : IIO_ExrDepth::FLOAT;
        return IIO_write(file, *picture, how);
    }

    void show(std::size_t index, double done)
    {
        const std::scoped_lock lock(_mutex);
        _sum += std::max(0.0, done - _done[index]);
        _done[index] = std::max(done, _done[index]);
        if (_watcher.progress)
            _watcher.progress(std::min(1.0, _sum / static_cast<double>(_done.size())));
    }

    void note(std::size_t index, const Ended& ended)
    {
        if (!ended.stopped)
            show(index, 1.0);
        const std::scoped_lock lock(_mutex);
        if (ended.stopped) {
            _result.stopped = true;
            return;
        }
        ++(ended.end == FrameEnd::WRITTEN ? _result.written
           : ended.end == FrameEnd::KEPT  ? _result.kept
                                          : _result.failed);
        if (_watcher.ended)
            _watcher.ended(_settings.frames[index], ended.end, ended.reason);
    }

    MO_Module& _module;
    const RenderFramesSettings& _settings;
    const RenderFramesWatcher& _watcher;
    std::atomic<std::size_t> _next = 0;
    std::mutex _mutex;
    std::vector<double> _done;
    double _sum = 0.0;
    RenderFramesResult _result;
};

} // namespace

RenderFramesResult renderFrames(MO_Module& module, const std::vector<MO_Module*>& nodes,
                                const RenderFramesSettings& settings, const RenderFramesWatcher& watcher)
{
    const DepthInBlue elevated(settings.picture.elevation ? nodes : std::vector<MO_Module*>());
    return Run(module, settings, watcher).run();
}
