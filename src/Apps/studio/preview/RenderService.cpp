// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Two counters tell outdated renders. The generation counts states of the document: a full picture is abandoned if its
// generation is not the newest any more. The epoch changes if older pictures would be wrong (another scene, another
// size): then every render is abandoned. RenderWorker.cpp contains the part that runs on the worker's thread.
#include "studio/preview/RenderService.h"

#include "studio/document/StudioDocument.h"
#include "studio/preview/SceneSnapshot.h"

#include <QMetaObject>

#include <algorithm>
#include <cmath>

RenderService::RenderService(StudioDocument& document, QObject* parent)
    : QObject(parent), _document(document), _worker([this](const std::stop_token& stop) { work(stop); })
{
    listen();
    connect(&document, &StudioDocument::sceneChanged, this, &RenderService::sceneChanged);
    connect(&document, &StudioDocument::sceneReplaced, this, &RenderService::sceneReplaced);
    connect(&document, &StudioDocument::currentFrameChanged, this, &RenderService::request);
}

RenderService::~RenderService()
{
    _scene->removeListener(*this);
    ++_epoch;
    _worker.request_stop();
    _worker.join();
}

void RenderService::listen()
{
    _scene = &_document.scene();
    _scene->addListener(*this);
}

void RenderService::told(XUTeller&)
{
    // Abandons a full picture at once, because the document collects changes before it signals them.
    ++_generation;
    forgetSnapshot();
}

void RenderService::forgetSnapshot()
{
    ++_version;
    if (!_snapshot)
        return;
    const std::scoped_lock lock(_mutex);
    _dropped.push_back(std::move(_snapshot));
    _snapshot.reset();
}

void RenderService::setLongestSide(int pixels)
{
    const int held = std::clamp(pixels, 16, 8192);
    if (held == _longestSide)
        return;
    _longestSide = held;
    refresh();
}

void RenderService::setNode(const QString& name)
{
    if (name == _node)
        return;
    _node = name;
    refresh();
}

void RenderService::setPlaying(bool isPlaying)
{
    if (std::exchange(_playing, isPlaying) && !isPlaying)
        request();
}

void RenderService::cancel()
{
    ++_epoch;
    {
        const std::scoped_lock lock(_mutex);
        _waiting.reset();
    }
    _wake.notify_all();
    _quickRunning = false;
    _again = false;
    if (std::exchange(_rendering, false))
        Q_EMIT stateChanged();
}

bool RenderService::isFrameAwaited() const
{
    return _rendering && (!_current || _current->frame != _document.currentFrame());
}

void RenderService::refresh()
{
    ++_epoch;
    _quickRunning = false;
    forgetSnapshot();
    sceneChanged();
}

void RenderService::sceneChanged()
{
    _full.clear();
    _quick.clear();
    request();
}

void RenderService::sceneReplaced()
{
    _scene->removeListener(*this);
    listen();
    _node.clear();
    _current.reset();
    Q_EMIT frameChanged();
    refresh();
}

QSize RenderService::fullSize() const
{
    const double ratio = _document.scene().frameHeight() / MO_SceneCommon::kFrameWidth;
    const auto side = [](double length) { return std::clamp(static_cast<int>(std::lround(length)), 1, 32767); };
    return ratio <= 1.0 ? QSize(_longestSide, side(_longestSide * ratio))
                        : QSize(side(_longestSide / ratio), _longestSide);
}

double RenderService::mostQuickPixels() const
{
    const MO_Scene& scene = _document.scene();
    const double frames = _playing ? static_cast<double>(scene.lastFrame()) - scene.firstFrame() + 1.0 : 1.0;
    return static_cast<double>(kQuickBytes) / static_cast<double>(RenderedFrame::kBytesPerPixel) / frames;
}

void RenderService::request()
{
    ++_generation;
    _error.clear();
    const int frame = _document.currentFrame();
    if (const RenderedFramePtr full = _full.find(frame)) {
        cancel();
        show(full, _generation);
        Q_EMIT stateChanged();
        return;
    }
    const RenderedFramePtr quick = _quick.find(frame);
    if (quick)
        show(quick, _generation);
    // While the scene is played, no full picture follows.
    _rendering = !quick || !_playing;
    if (!_rendering) {
        Q_EMIT stateChanged();
        return;
    }
    // One quick picture at a time: the worker would not look at a new request before it has finished the running one.
    if (_quickRunning && !quick)
        _again = true;
    else
        send(quick);
    Q_EMIT stateChanged();
}

void RenderService::send(const RenderedFramePtr& ready)
{
    _again = false;
    if (!_snapshot)
        _snapshot = std::make_shared<SceneSnapshot>(_document.scene(), _node);
    if (_snapshot->isEmpty()) {
        showNothing();
        return;
    }
    auto wanted = std::make_unique<Request>(Request{.epoch = _epoch,
                                                    .generation = _generation,
                                                    .version = _version,
                                                    .snapshot = _snapshot,
                                                    .frame = _document.currentFrame(),
                                                    .size = fullSize(),
                                                    .hasQuick = ready != nullptr,
                                                    .isQuickOnly = _playing,
                                                    .mostQuickPixels = mostQuickPixels(),
                                                    .since = std::chrono::steady_clock::now()});
    _quickRunning = !ready;
    {
        const std::scoped_lock lock(_mutex);
        _waiting = std::move(wanted);
    }
    _wake.notify_all();
}

void RenderService::showNothing()
{
    cancel();
    _current.reset();
    Q_EMIT frameChanged();
    Q_EMIT stateChanged();
}

void RenderService::show(const RenderedFramePtr& frame, quint64 generation)
{
    // Ignores a picture that is older than the current one, which may have come from a cache.
    if (frame == _current || generation < _currentGeneration)
        return;
    _currentGeneration = generation;
    _current = frame;
    ++_shownCount;
    Q_EMIT frameChanged();
}

void RenderService::take(const Result& result)
{
    if (result.epoch != _epoch)
        return;
    const bool isNewest = result.generation == _generation;
    if (result.isQuick)
        _quickRunning = false;
    if (!result.isQuick && !isNewest)
        return;
    // A picture of an older state of the scene is shown once, but not cached.
    const bool isOfToday = result.frame && result.version == _version;
    if (isOfToday && result.isLast)
        _full.keep(result.frame);
    else if (isOfToday && result.isQuick)
        _quick.keep(result.frame);
    if (result.frame) {
        show(result.frame, result.generation);
    } else if (isNewest) {
        _error = result.error;
        _current.reset();
        Q_EMIT frameChanged();
    }
    if (isNewest && (result.isLast || (result.isQuick && _playing)))
        _rendering = false;
    if (_again && !_quickRunning)
        request();
    Q_EMIT stateChanged();
}
