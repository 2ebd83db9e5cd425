// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A number counts the states of the document. The worker looks at it from time to time and gives up when its own is not
// the newest any more.
#include "studio/preview/RenderService.h"

#include "studio/document/StudioDocument.h"
#include "studio/preview/SceneSnapshot.h"

#include <QMetaObject>

#include <algorithm>
#include <cmath>
#include <new>

namespace {

constexpr int kSmallestQuick = 48;
constexpr qsizetype kKeptBytes = 768LL << 20;

QSize quickSize(const QSize& full)
{
    const auto quarter = [](int side) { return std::max(1, side / RenderService::kQuickDivisor); };
    return {quarter(full.width()), quarter(full.height())};
}

// For the person at the window.
QString textOf(const UT_Error& error)
{
    if (error.kind == UT_ErrorKind::NO_MEMORY)
        return RenderService::tr("The memory is not enough for this picture; choose a smaller preview.");
    return error.sentence();
}

} // namespace

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
    ++_generation;
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
    // What is under way is out of date at once; the document gathers changes before it tells that there were some.
    ++_generation;
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

void RenderService::cancel()
{
    ++_generation;
    {
        const std::scoped_lock lock(_mutex);
        _waiting.reset();
    }
    _wake.notify_all();
    if (std::exchange(_rendering, false))
        Q_EMIT stateChanged();
}

bool RenderService::isFrameAwaited() const
{
    return _rendering && (!_current || _current->frame != _document.currentFrame());
}

void RenderService::refresh()
{
    sceneChanged();
}

void RenderService::sceneChanged()
{
    _snapshot.reset();
    _kept.clear();
    request();
}

void RenderService::sceneReplaced()
{
    _scene->removeListener(*this);
    listen();
    _node.clear();
    _current.reset();
    Q_EMIT frameChanged();
    sceneChanged();
}

QSize RenderService::fullSize() const
{
    const double ratio = _document.scene().frameHeight() / MO_SceneCommon::kFrameWidth;
    const auto side = [](double length) { return std::clamp(static_cast<int>(std::lround(length)), 1, 32767); };
    return ratio <= 1.0 ? QSize(_longestSide, side(_longestSide * ratio))
                        : QSize(side(_longestSide / ratio), _longestSide);
}

void RenderService::request()
{
    const quint64 generation = ++_generation;
    _error.clear();
    if (RenderedFramePtr ready = kept(_document.currentFrame())) {
        cancel();
        _current = std::move(ready);
        Q_EMIT frameChanged();
        Q_EMIT stateChanged();
        return;
    }
    if (!_snapshot)
        _snapshot = std::make_shared<SceneSnapshot>(_document.scene(), _node);
    if (_snapshot->isEmpty()) {
        cancel();
        _current.reset();
        Q_EMIT frameChanged();
        Q_EMIT stateChanged();
        return;
    }
    auto wanted = std::make_unique<Request>(Request{.generation = generation,
                                                    .snapshot = _snapshot,
                                                    .frame = _document.currentFrame(),
                                                    .size = fullSize(),
                                                    .since = std::chrono::steady_clock::now()});
    {
        const std::scoped_lock lock(_mutex);
        _waiting = std::move(wanted);
    }
    _wake.notify_all();
    _rendering = true;
    Q_EMIT stateChanged();
}

void RenderService::work(const std::stop_token& stop)
{
    while (!stop.stop_requested()) {
        std::unique_ptr<Request> next;
        {
            std::unique_lock lock(_mutex);
            _wake.wait(lock, stop, [this] { return _waiting != nullptr; });
            if (stop.stop_requested())
                return;
            next = std::move(_waiting);
        }
        try {
            renderRequest(*next, stop);
        } catch (const std::bad_alloc&) {
            post({next->generation, nullptr, textOf(UT_noMemory({}, {})), true});
        } catch (const std::exception& error) {
            post({next->generation, nullptr, QString::fromUtf8(error.what()), true});
        }
    }
}

void RenderService::renderRequest(const Request& request, const std::stop_token& stop)
{
    using Clock = std::chrono::steady_clock;
    const auto goOn = [this, &request, told = Clock::time_point()](double done) mutable {
        if (!isWanted(request.generation))
            return false;
        // Oftener nobody can see it.
        constexpr std::chrono::milliseconds kTellEvery{40};
        if (Clock::now() - told < kTellEvery)
            return true;
        told = Clock::now();
        QMetaObject::invokeMethod(
            this,
            [this, generation = request.generation, done] {
                if (isWanted(generation))
                    Q_EMIT progressed(done);
            },
            Qt::QueuedConnection);
        return true;
    };
    const auto render = [&](const QSize& size, bool isLast) {
        ++_renderCount;
        auto made = request.snapshot->render(request.frame, request.size, size, goOn);
        if (!isWanted(request.generation))
            return std::shared_ptr<RenderedFrame>();
        if (!made) {
            post({request.generation, nullptr, textOf(made.error()), true});
            return std::shared_ptr<RenderedFrame>();
        }
        post({request.generation, *made, {}, isLast});
        return *made;
    };
    const QSize quick = quickSize(request.size);
    if (std::min(quick.width(), quick.height()) >= kSmallestQuick && !render(quick, false))
        return;
    if (!rest(request, stop))
        return;
    const bool more = request.snapshot->hasOtherBlue();
    const auto full = render(request.size, !more);
    if (!full || !more)
        return;
    const auto channels = request.snapshot->renderChannels(request.frame, request.size, goOn);
    if (!channels || !isWanted(request.generation))
        return;
    auto complete = std::make_shared<RenderedFrame>(*full);
    complete->channels = *channels;
    post({request.generation, std::move(complete), {}, true});
}

bool RenderService::rest(const Request& request, const std::stop_token& stop)
{
    std::unique_lock lock(_mutex);
    const bool disturbed =
        _wake.wait_until(lock, stop, request.since + kRest, [&] { return !isWanted(request.generation); });
    return !disturbed && !stop.stop_requested();
}

void RenderService::post(Result result)
{
    QMetaObject::invokeMethod(
        this, [this, result = std::move(result)] { take(result); }, Qt::QueuedConnection);
}

void RenderService::take(const Result& result)
{
    if (!isWanted(result.generation))
        return;
    if (result.frame) {
        _current = result.frame;
        if (result.isLast)
            keep(result.frame);
    } else {
        _current.reset();
        _error = result.error;
    }
    if (result.isLast)
        _rendering = false;
    Q_EMIT frameChanged();
    Q_EMIT stateChanged();
}

void RenderService::keep(const RenderedFramePtr& frame)
{
    _kept.push_front(frame);
    qsizetype bytes = 0;
    for (auto it = _kept.begin(); it != _kept.end();) {
        bytes += (*it)->bytes();
        it = bytes > kKeptBytes && it != _kept.begin() ? _kept.erase(it) : std::next(it);
    }
}

RenderedFramePtr RenderService::kept(int frame) const
{
    const auto found = std::ranges::find(_kept, frame, [](const RenderedFramePtr& one) { return one->frame; });
    return found == _kept.end() ? nullptr : *found;
}
