// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The timer ticks a little faster than the frames change, so that none is missed by rounding.
#include "studio/docks/timeline/Playback.h"

#include "studio/document/StudioDocument.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

int tickOf(double rate)
{
    return std::max(1, static_cast<int>(1000.0 / rate / 3.0));
}

} // namespace

Playback::Playback(StudioDocument& document, QObject* parent) : QObject(parent), _document(document)
{
    _timer.setTimerType(Qt::PreciseTimer);
    connect(&_timer, &QTimer::timeout, this, &Playback::step);
    connect(&_document, &StudioDocument::sceneReplaced, this, [this] {
        stop();
        setLoop({});
    });
    // Somebody else went to another frame: go on from there.
    connect(&_document, &StudioDocument::currentFrameChanged, this, [this] {
        if (!_stepping)
            beginHere();
    });
}

void Playback::beginHere()
{
    _begin = _document.currentFrame();
    _rate = _document.scene().frameRate();
    _timer.setInterval(tickOf(_rate));
    _clock.start();
}

Playback::Range Playback::range() const
{
    const Range all{_document.scene().firstFrame(), _document.scene().lastFrame()};
    if (!_loop || _loop->second < all.first || _loop->first > all.second)
        return all;
    return {std::max(_loop->first, all.first), std::min(_loop->second, all.second)};
}

void Playback::setLoop(const std::optional<Range>& loop)
{
    if (loop == _loop)
        return;
    _loop = loop;
    beginHere();
    Q_EMIT loopChanged();
}

void Playback::start()
{
    const auto [first, last] = range();
    if (isPlaying() || first == last)
        return;
    const int frame = _document.currentFrame();
    if (frame < first || frame >= last)
        _document.setCurrentFrame(first);
    beginHere();
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

int Playback::frameAfter(qint64 milliseconds, double rate, int begin, const Range& range)
{
    const auto [first, last] = range;
    const qint64 frames = qint64{last} - first + 1;
    const qint64 passed = std::max<qint64>(0, qint64{begin} - first) +
                          static_cast<qint64>(std::floor(static_cast<double>(milliseconds) * rate / 1000.0));
    return static_cast<int>(first + passed % frames);
}

void Playback::step()
{
    const auto oneFrame = static_cast<qint64>(1000.0 / _rate);
    if (_isBusy && _isBusy() && !_sinceStep.hasExpired(kLongestWait.count())) {
        _waited = _sinceStep.hasExpired(oneFrame);
        return;
    }
    if (_rate != _document.scene().frameRate())
        beginHere();
    int frame = frameAfter(_clock.elapsed(), _rate, _begin, range());
    if (std::exchange(_waited, false)) {
        // Time begins anew, with the frame that is due by now.
        frame = frameAfter(oneFrame + 1, _rate, _document.currentFrame(), range());
        _begin = frame;
        _clock.start();
    }
    if (frame == _document.currentFrame())
        return;
    _stepping = true;
    _document.setCurrentFrame(frame);
    _stepping = false;
    _sinceStep.start();
}
