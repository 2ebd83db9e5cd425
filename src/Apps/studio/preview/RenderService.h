// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RenderService: keeps the picture of the current frame up to date, on a thread of its own.
//
// After a change, the service first renders a quick picture, in a size that follows from the time of the last one
// (QuickPace.h). It always finishes and shows a quick picture that it has begun, whatever changes meanwhile, and then
// begins the next one with the scene's new state. So pictures keep coming while a value is dragged, and lag behind the
// mouse by at most two quick pictures. If nothing changes for a moment, the full picture follows; the next change
// abandons it at once.
//
// Two caches of limited size keep the full and the quick pictures of frames that were rendered since the last change of
// the scene, so that playing these frames again costs nothing.
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

/// Renders the document's current frame in the background. Must be used on the window's thread and never blocks it.
class RenderService : public QObject, private XUListener
{
    Q_OBJECT

public:
    /// How long the document must stay unchanged before the full picture is rendered.
    static constexpr std::chrono::milliseconds kRest{150};
    /// The most memory for each of the two caches, of full and of quick pictures.
    static constexpr qsizetype kFullBytes = 384LL << 20;
    static constexpr qsizetype kQuickBytes = 384LL << 20;

    explicit RenderService(StudioDocument& document, QObject* parent = nullptr);
    ~RenderService() override;

    /// The newest picture of the document; null while there is none. It may be older than the document's state as long
    /// as isRendering().
    const RenderedFramePtr& current() const { return _current; }
    /// Whether a newer or a better picture will follow.
    bool isRendering() const { return _rendering; }
    /// Whether the document's current frame has no picture yet, not even a quick one, and one will follow.
    bool isFrameAwaited() const;
    /// The reason why there is no picture; empty if there is one or one may follow.
    const QString& error() const { return _error; }
    /// The number of renders begun so far.
    int renderCount() const { return _renderCount; }
    /// The number of pictures shown so far.
    int shownCount() const { return _shownCount; }

    /// The length of the picture's longer side in pixels; 16 to 8192.
    void setLongestSide(int pixels);
    int longestSide() const { return _longestSide; }
    /// The module to show; with an empty name, the scene's output.
    void setNode(const QString& name);
    /// While the scene is played, only quick pictures are rendered, small enough for all frames to fit into the cache.
    void setPlaying(bool isPlaying);

    /// Abandons the current render; the next change begins a new one.
    void cancel();
    /// Renders again, even if nothing has changed.
    void refresh();

Q_SIGNALS:
    /// The current picture has changed, or there is none any more.
    void frameChanged();
    /// A render began, ended, or failed.
    void stateChanged();
    /// The finished part of the current render, 0 to 1.
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
        bool hasQuick = false; ///< a quick picture exists already
        bool isQuickOnly = false;
        double mostQuickPixels = 0.0; ///< of a quick picture
        std::chrono::steady_clock::time_point since;
    };
    /// The result of a step of a request: a picture or an error.
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
    MO_Scene* _scene = nullptr; // the one that is listened to
    int _longestSide = 1920;
    QString _node;
    bool _playing = false;
    RenderedFramePtr _current;
    quint64 _currentGeneration = 0;
    bool _rendering = false;
    bool _quickRunning = false; // a quick picture is being rendered
    bool _again = false;        // something has changed since it was requested
    int _shownCount = 0;
    QString _error;
    FrameCache _full{kFullBytes};
    FrameCache _quick{kQuickBytes};
    std::shared_ptr<SceneSnapshot> _snapshot; // of the scene's current state; null after a change
    quint64 _version = 0;                     // of the scene

    std::atomic<quint64> _epoch = 0;      // pictures of an older epoch are useless
    std::atomic<quint64> _generation = 0; // of the document's state
    std::atomic<int> _renderCount = 0;
    std::mutex _mutex;
    std::condition_variable_any _wake;
    std::unique_ptr<Request> _waiting;                    // protected by _mutex
    std::vector<std::shared_ptr<SceneSnapshot>> _dropped; // protected by _mutex; destroyed by the worker
    DrawingCache _drawings;                               // of the worker
    QuickPace _pace;                                      // of the worker
    std::chrono::steady_clock::time_point _told;          // of the worker
    std::jthread _worker; // last, so that it ends before the other members are destroyed
};
