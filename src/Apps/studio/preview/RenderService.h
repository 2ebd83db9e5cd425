// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RenderService: keeps the picture of the current frame up to date, on a thread of its own.
//
// A change asks for a quick picture first, in a size that follows the time that the last one took (QuickPace.h). A
// quick picture that was begun is finished and shown, whatever changes meanwhile; then the next one is begun with what
// the scene is by then. So pictures keep coming while a value is dragged, each of them older than the hand by no more
// than two quick pictures. When nothing changes for a moment the full picture follows, which gives way to the next
// change at once.
//
// Frames that were rendered since the last change of the scene are kept in two caches of stated sizes, full pictures
// and quick ones, so that playing them again costs nothing.
#pragma once

#include "QuarvelBaseCore/XUTeller.h"
#include "studio/preview/DrawingCache.h"
#include "studio/preview/FrameCache.h"
#include "studio/preview/QuickPace.h"

#include <QObject>
#include <QSize>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

class MO_Scene;
class SceneSnapshot;
class StudioDocument;

/// Renders the document's current frame in the background. Lives on the window's thread and never blocks it.
class RenderService : public QObject, private XUListener
{
    Q_OBJECT

public:
    /// How long nothing may change before the full picture is rendered.
    static constexpr std::chrono::milliseconds kRest{150};
    /// How much memory the pictures of frames that are not shown take at most, full ones and quick ones.
    static constexpr qsizetype kFullBytes = 384LL << 20;
    static constexpr qsizetype kQuickBytes = 384LL << 20;

    explicit RenderService(StudioDocument& document, QObject* parent = nullptr);
    ~RenderService() override;

    /// The newest picture of the document; null while there is none. It may lag behind what the document is now, as
    /// long as isRendering().
    const RenderedFramePtr& current() const { return _current; }
    /// Whether a newer or a better picture is on its way.
    bool isRendering() const { return _rendering; }
    /// Whether the document's current frame has no picture yet, not even a quick one, and one is on its way.
    bool isFrameAwaited() const;
    /// Why there is no picture; empty when there is one or may be one soon.
    const QString& error() const { return _error; }
    /// How many pictures were begun since the start.
    int renderCount() const { return _renderCount; }
    /// How many pictures were handed out since the start.
    int shownCount() const { return _shownCount; }

    /// The length of the picture's longer side in pixels; 16 to 8192.
    void setLongestSide(int pixels);
    int longestSide() const { return _longestSide; }
    /// The module to look at; an empty name: the scene's output.
    void setNode(const QString& name);
    /// While the scene is played, there are quick pictures alone, small enough for all of its frames to be kept.
    void setPlaying(bool isPlaying);

    /// Gives up what is being rendered; the next change begins again.
    void cancel();
    /// Renders again, whether anything changed or not.
    void refresh();

Q_SIGNALS:
    /// There is another picture, or none any more.
    void frameChanged();
    /// A render began, ended, or failed.
    void stateChanged();
    /// How much of the picture that is being rendered is done, 0 to 1.
    void progressed(double done);

private:
    struct Request
    {
        quint64 epoch = 0;
        quint64 generation = 0;
        quint64 version = 0;
        std::shared_ptr<SceneSnapshot> snapshot;
        int frame = 1;
        QSize size;
        bool hasQuick = false; ///< a quick picture is there already
        bool isQuickOnly = false;
        double mostQuickPixels = 0.0; ///< of a quick picture
        std::chrono::steady_clock::time_point since;
    };
    /// A step of a request that ended, with a picture or an error.
    struct Result
    {
        quint64 epoch = 0;
        quint64 generation = 0;
        quint64 version = 0;
        RenderedFramePtr frame = {};
        QString error = {};
        bool isQuick = false;
        bool isLast = false;
    };

    void told(XUTeller& teller) override;
    void listen();
    void sceneChanged();
    void sceneReplaced();
    void request();
    void send(const RenderedFramePtr& ready);
    void showNothing();
    void show(const RenderedFramePtr& frame, quint64 generation);
    void forgetSnapshot();
    double mostQuickPixels() const;
    void work(const std::stop_token& stop);
    void renderRequest(const Request& request, const std::stop_token& stop);
    std::shared_ptr<RenderedFrame> renderQuick(const Request& request, const QSize& size, bool isAll);
    std::shared_ptr<RenderedFrame> renderFull(const Request& request);
    void renderChannels(const Request& request, const RenderedFrame& full);
    void tellProgress(const Request& request, double done);
    bool rest(const Request& request, const std::stop_token& stop);
    bool isValid(const Request& request) const { return _epoch.load() == request.epoch; }
    bool isWanted(const Request& request) const { return isValid(request) && _generation.load() == request.generation; }
    static Result resultOf(const Request& request);
    void post(Result result);
    void take(const Result& result);
    QSize fullSize() const;

    StudioDocument& _document;
    MO_Scene* _scene = nullptr; // that is listened to
    int _longestSide = 1920;
    QString _node;
    bool _playing = false;
    RenderedFramePtr _current;
    quint64 _currentGeneration = 0;
    bool _rendering = false;
    bool _quickRunning = false; // a quick picture is on its way, and is waited for
    bool _again = false;        // something changed since it was asked for
    int _shownCount = 0;
    QString _error;
    FrameCache _full{kFullBytes};
    FrameCache _quick{kQuickBytes};
    std::shared_ptr<SceneSnapshot> _snapshot; // of the scene as it is; null where it changed
    quint64 _version = 0;                     // of the scene

    std::atomic<quint64> _epoch = 0;      // pictures of an older one are of no use at all
    std::atomic<quint64> _generation = 0; // of the document's state
    std::atomic<int> _renderCount = 0;
    std::mutex _mutex;
    std::condition_variable_any _wake;
    std::unique_ptr<Request> _waiting;                    // under _mutex
    std::vector<std::shared_ptr<SceneSnapshot>> _dropped; // under _mutex; taken apart by the worker
    DrawingCache _drawings;                               // of the worker
    QuickPace _pace;                                      // of the worker
    std::chrono::steady_clock::time_point _told;          // the same
    std::jthread _worker;                                 // last: it ends before the rest goes
};
