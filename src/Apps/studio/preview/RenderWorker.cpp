// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The part of RenderService that runs on the worker's thread: the steps from a request to its last picture.
#include "studio/preview/RenderService.h"
#include "studio/preview/SceneSnapshot.h"

#include <QMetaObject>

#include <new>

namespace {

using Clock = std::chrono::steady_clock;

// The error's text for the user.
QString textOf(const UT_Error& error)
{
    if (error.kind == UT_ErrorKind::NO_MEMORY)
        return RenderService::tr("There is not enough memory for this picture; choose a smaller preview.");
    return error.sentence();
}

} // namespace

void RenderService::work(const std::stop_token& stop)
{
    while (!stop.stop_requested()) {
        std::unique_ptr<Request> next;
        std::vector<std::shared_ptr<SceneSnapshot>> dropped;
        {
            std::unique_lock lock(_mutex);
            _wake.wait(lock, stop, [this] { return _waiting != nullptr; });
            if (stop.stop_requested())
                return;
            next = std::move(_waiting);
            dropped.swap(_dropped);
        }
        Result failed = resultOf(*next);
        failed.isQuick = true;
        failed.isLast = true;
        try {
            renderRequest(*next, stop);
        } catch (const std::bad_alloc&) {
            failed.error = textOf(UT_noMemory({}, {}));
            post(failed);
        } catch (const std::exception& error) {
            failed.error = QString::fromUtf8(error.what());
            post(failed);
        }
    }
}

RenderService::Result RenderService::resultOf(const Request& request)
{
    return {.epoch = request.epoch, .generation = request.generation, .version = request.version};
}

void RenderService::renderRequest(const Request& request, const std::stop_token& stop)
{
    const QSize quick = _pace.sizeFor(request.size, request.mostQuickPixels);
    const bool isAll = quick == request.size && !request.hasQuick;
    std::shared_ptr<RenderedFrame> full;
    if (!request.hasQuick) {
        const auto made = renderQuick(request, quick, isAll);
        if (!made)
            return;
        if (isAll)
            full = made;
    }
    // If another frame is wanted already, starting the full picture would delay it.
    if (!isWanted(request) || request.isQuickOnly)
        return;
    if (!full && rest(request, stop))
        full = renderFull(request);
    if (full && isWanted(request) && request.snapshot->hasOtherBlue())
        renderChannels(request, *full);
}

std::shared_ptr<RenderedFrame> RenderService::renderQuick(const Request& request, const QSize& size, bool isAll)
{
    ++_renderCount;
    const Clock::time_point begin = Clock::now();
    const auto goOn = [&](double done) {
        tellProgress(request, done);
        return isValid(request);
    };
    auto made = request.snapshot->render(request.frame, request.size, size, goOn, &_drawings);
    Result result = resultOf(request);
    result.isQuick = true;
    if (!made) {
        result.error = textOf(made.error());
        result.isLast = true;
        post(result);
        return nullptr;
    }
    _pace.took(Clock::now() - begin, QuickPace::divisorOf(request.size, size));
    result.frame = *made;
    result.isLast = isAll && !request.snapshot->hasOtherBlue();
    post(result);
    return *made;
}

std::shared_ptr<RenderedFrame> RenderService::renderFull(const Request& request)
{
    ++_renderCount;
    const auto goOn = [&](double done) {
        tellProgress(request, done);
        return isWanted(request);
    };
    auto made = request.snapshot->render(request.frame, request.size, request.size, goOn, &_drawings);
    if (!isWanted(request))
        return nullptr;
    Result result = resultOf(request);
    if (made)
        result.frame = *made;
    else
        result.error = textOf(made.error());
    result.isLast = !made || !request.snapshot->hasOtherBlue();
    post(result);
    return made ? *made : nullptr;
}

void RenderService::renderChannels(const Request& request, const RenderedFrame& full)
{
    const auto channels =
        request.snapshot->renderChannels(request.frame, request.size, [&](double) { return isWanted(request); });
    if (!isWanted(request))
        return;
    Result result = resultOf(request);
    result.isLast = true;
    if (channels) {
        auto complete = std::make_shared<RenderedFrame>(full);
        complete->channels = *channels;
        result.frame = std::move(complete);
    } else {
        result.error = textOf(channels.error());
    }
    post(result);
}

void RenderService::tellProgress(const Request& request, double done)
{
    // More frequent signals would not be visible.
    constexpr std::chrono::milliseconds kTellEvery{40};
    if (Clock::now() - _told < kTellEvery)
        return;
    _told = Clock::now();
    QMetaObject::invokeMethod(
        this,
        [this, epoch = request.epoch, done] {
            if (_epoch == epoch && _rendering)
                Q_EMIT progressed(done);
        },
        Qt::QueuedConnection);
}

bool RenderService::rest(const Request& request, const std::stop_token& stop)
{
    std::unique_lock lock(_mutex);
    const bool disturbed = _wake.wait_until(lock, stop, request.since + kRest, [&] { return !isWanted(request); });
    return !disturbed && !stop.stop_requested();
}

void RenderService::post(Result result)
{
    QMetaObject::invokeMethod(
        this, [this, result = std::move(result)] { take(result); }, Qt::QueuedConnection);
}
