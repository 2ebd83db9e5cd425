// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Playback: lets the document's current frame run, 24 frames a second, again and again. Time decides which frame is
// shown: when showing one takes long, those in between are skipped.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>

class StudioDocument;

/// Plays a document. Lives on the window's thread.
class Playback : public QObject
{
    Q_OBJECT

public:
    static constexpr int kFramesPerSecond = 24;

    explicit Playback(StudioDocument& document, QObject* parent = nullptr);

    bool isPlaying() const { return _timer.isActive(); }
    /// Begins at the current frame; at the first one when the current one is the last. Nothing happens in a scene of a
    /// single frame.
    void start();
    void stop();

    /// How long a frame waits at most for the one before it to be seen.
    static constexpr std::chrono::milliseconds kLongestWait{500};
    /// Says whether the picture of the current frame is still on its way; the next frame waits for it then,
    /// kLongestWait at most. Never, unless set.
    void setIsBusy(std::function<bool()> isBusy) { _isBusy = std::move(isBusy); }

    /// The frame to show after a time, having begun at a frame; the scene's range is repeated.
    static int frameAfter(qint64 milliseconds, int begin, int first, int last);

Q_SIGNALS:
    void playingChanged(bool isPlaying);

private:
    void step();

    StudioDocument& _document;
    QTimer _timer;
    QElapsedTimer _clock;
    QElapsedTimer _sinceStep;
    int _begin = 1;
    bool _stepping = false;
    std::function<bool()> _isBusy;
};
