// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RenderService: keeps the picture of the current frame up to date, on a thread of its own.
//
// Whenever the scene, the frame or what is looked at changes, the render that runs is told to stop and a new one begins
// with a copy of the scene: first in a quarter of the size, and when nothing changes for a moment in full. What is
// handed out always belongs to the newest state; what comes too late is dropped. Frames that were rendered since the
// last change of the scene are kept for a while, so that playing them again costs nothing.
#pragma once

#include "QuarvelBaseCore/XUTeller.h"
#include "studio/preview/RenderedFrame.h"

#include <QObject>
#include <QSize>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <list>
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
    /// A quick picture's sides are this much shorter.
    static constexpr int kQuickDivisor = 4;

    explicit RenderService(StudioDocument& document, QObject* parent = nullptr);
    ~RenderService() override;

    /// The picture of the document as it is; null while there is none.
    const RenderedFramePtr& current() const { return _current; }
    /// Whether a better picture is on its way.
    bool isRendering() const { return _rendering; }
    /// Whether the document's current frame has no picture yet, not even a quick one, and one is on its way.
    bool isFrameAwaited() const;
    /// Why there is no picture; empty when there is one or may be one soon.
    const QString& error() const { return _error; }
    /// How many pictures were begun since the start.
    int renderCount() const { return _renderCount; }

    /// The length of the picture's longer side in pixels; 16 to 8192.
    void setLongestSide(int pixels);
    int longestSide() const { return _longestSide; }
    /// The module to look at; an empty name: the scene's output.
    void setNode(const QString& name);

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
        quint64 generation = 0;
        std::shared_ptr<SceneSnapshot> snapshot;
        int frame = 1;
        QSize size;
        std::chrono::steady_clock::time_point since;
    };
    struct Result
    {
        quint64 generation = 0;
        RenderedFramePtr frame;
        QString error;
        bool isLast = false;
    };

    void told(XUTeller& teller) override;
    void listen();
    void sceneChanged();
    void sceneReplaced();
    void request();
    void work(const std::stop_token& stop);
    void renderRequest(const Request& request, const std::stop_token& stop);
    bool rest(const Request& request, const std::stop_token& stop);
    bool isWanted(quint64 generation) const { return _generation.load() == generation; }
    void post(Result result);
    void take(const Result& result);
    void keep(const RenderedFramePtr& frame);
    RenderedFramePtr kept(int frame) const;
    QSize fullSize() const;

    StudioDocument& _document;
    MO_Scene* _scene = nullptr; // that is listened to
    int _longestSide = 1920;
    QString _node;
    RenderedFramePtr _current;
    bool _rendering = false;
    QString _error;
    std::list<RenderedFramePtr> _kept; // the newest first
    std::shared_ptr<SceneSnapshot> _snapshot;

    std::atomic<quint64> _generation = 0;
    std::atomic<int> _renderCount = 0;
    std::mutex _mutex;
    std::condition_variable_any _wake;
    std::unique_ptr<Request> _waiting; // under _mutex
    std::jthread _worker;              // last: it ends before the rest goes
};
