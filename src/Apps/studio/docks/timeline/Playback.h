// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Playback: lets the document's current frame run at the scene's frame rate, again and again: through all frames, or
// through a part of them that a person is working on. Time decides which frame is shown: when the window is slow, those
// in between are skipped. Where pictures are not there yet, each frame waits for its own: so after the first time round
// all of them are kept, and are played at the frame rate.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>
#include <optional>
#include <utility>

class StudioDocument;

/// Plays a document. Lives on the window's thread.
class Playback : public QObject
{
    Q_OBJECT

public:
    using Range = std::pair<int, int>; ///< the first and the last frame, both included

    explicit Playback(StudioDocument& document, QObject* parent = nullptr);

    bool isPlaying() const { return _timer.isActive(); }
    /// Begins at the current frame; at the first one when the current one is the last or is not played. Nothing happens
    /// when there is a single frame to play.
    void start();
    void stop();

    /// Plays a part of the scene's frames; nothing for all of them. It lasts until another scene is open.
    void setLoop(const std::optional<Range>& loop);
    const std::optional<Range>& loop() const { return _loop; }
    /// The frames that are played: the loop as far as the scene has its frames, or all.
    Range range() const;

    /// How long a frame waits at most for the one before it to be seen.
    static constexpr std::chrono::milliseconds kLongestWait{500};
    /// Says whether the picture of the current frame is still on its way; the next frame waits for it then,
    /// kLongestWait at most. Never, unless set.
    void setIsBusy(std::function<bool()> isBusy) { _isBusy = std::move(isBusy); }

    /// The frame to show after a time, having begun at a frame; the range is repeated.
    ///
    /// @param rate frames a second
    static int frameAfter(qint64 milliseconds, double rate, int begin, const Range& range);

Q_SIGNALS:
    void playingChanged(bool isPlaying);
    void loopChanged();

private:
    void step();
    void beginHere();

    StudioDocument& _document;
    QTimer _timer;
    QElapsedTimer _clock;
    QElapsedTimer _sinceStep;
    std::optional<Range> _loop;
    double _rate = 0.0; // that the clock runs at
    int _begin = 1;
    bool _stepping = false;
    bool _waited = false; // for the picture of the current frame
    std::function<bool()> _isBusy;
};
