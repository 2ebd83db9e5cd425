// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The timer ticks a little faster than the frames change, so that none is missed by rounding.
#include "studio/docks/timeline/Playback.h"

#include "studio/document/StudioDocument.h"

namespace {

constexpr int kTick = 1000 / Playback::kFramesPerSecond / 3;

} // namespace

Playback::Playback(StudioDocument& document, QObject* parent) : QObject(parent), _document(document)
{
    _timer.setTimerType(Qt::PreciseTimer);
    _timer.setInterval(kTick);
    connect(&_timer, &QTimer::timeout, this, &Playback::step);
    connect(&_document, &StudioDocument::sceneReplaced, this, &Playback::stop);
    // Somebody else went to another frame: go on from there.
    connect(&_document, &StudioDocument::currentFrameChanged, this, [this](int frame) {
        if (_stepping)
            return;
        _begin = frame;
        _clock.start();
    });
}

void Playback::start()
{
    const MO_Scene& scene = _document.scene();
    if (isPlaying() || scene.firstFrame() == scene.lastFrame())
        return;
    if (_document.currentFrame() == scene.lastFrame())
        _document.setCurrentFrame(scene.firstFrame());
    _begin = _document.currentFrame();
    _clock.start();
    _sinceStep.start();
    _timer.start();
    Q_EMIT playingChanged(true);
}

void Playback::stop()
{
    if (!isPlaying())
        return;
    _timer.stop();
    Q_EMIT playingChanged(false);
}

int Playback::frameAfter(qint64 milliseconds, int begin, int first, int last)
{
    const qint64 frames = qint64{last} - first + 1;
    const qint64 passed = qint64{begin} - first + milliseconds * kFramesPerSecond / 1000;
    return static_cast<int>(first + passed % frames);
}

void Playback::step()
{
    if (_isBusy && _isBusy() && !_sinceStep.hasExpired(kLongestWait.count()))
        return;
    const MO_Scene& scene = _document.scene();
    const int frame = frameAfter(_clock.elapsed(), _begin, scene.firstFrame(), scene.lastFrame());
    if (frame == _document.currentFrame())
        return;
    _stepping = true;
    _document.setCurrentFrame(frame);
    _stepping = false;
    _sinceStep.start();
}
