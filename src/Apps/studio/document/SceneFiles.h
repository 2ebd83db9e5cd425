// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SceneFiles: opens scenes and imports drawings, on a thread of its own, so that a large file does not hold the window
// up. What fails leaves the document as it is.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneIO/SIO_SceneFolder.h"

#include <QObject>
#include <QPointer>
#include <QStringList>

#include <atomic>
#include <functional>
#include <memory>

class QFileInfo;
class QThread;
class StudioDocument;

/// What people give to be opened.
struct OpenRequest
{
    QString scene;        ///< a scene's folder; empty: drawings
    QStringList drawings; ///< files to import

    /// Finds out what paths mean: one scene, or drawings, of which folders stand for all that lie in them.
    ///
    /// @return an error when there is nothing to open among them
    static UT_Result<OpenRequest> of(const QStringList& paths);
    /// Whether a folder is a scene: it is called so, or holds one.
    static bool isScene(const QFileInfo& folder);
    /// The endings of the files that can be imported, as "*.svg".
    static QStringList drawingPatterns();
};

/// Opens and imports. Lives on the window's thread.
class SceneFiles : public QObject
{
    Q_OBJECT

public:
    explicit SceneFiles(StudioDocument& document, QObject* parent = nullptr);
    ~SceneFiles() override;

    /// Starts to open; what is being opened already is given up.
    void open(const OpenRequest& request);
    /// Gives up what is being opened; the document stays as it is.
    void cancel();
    bool isBusy() const { return _thread != nullptr; }

Q_SIGNALS:
    /// Opening begins or has ended.
    void busyChanged();
    /// How much of what is being opened is read, 0 to 1; 0 where nobody knows.
    void progressed(double done);
    /// The document shows what was asked for. The text holds remarks, a line each.
    void opened(const OpenRequest& request, const QString& remarks);
    void failed(const QString& error);

private:
    struct Outcome
    {
        std::unique_ptr<MO_Scene> scene;
        QStringList warnings;
        QString error;
        SIO_SceneState state = {}; ///< of a scene's folder
    };

    static Outcome load(const OpenRequest& request, const std::function<bool(double)>& goOn);
    void retireThread();
    void finish(const OpenRequest& request, Outcome& outcome);

    StudioDocument& _document;
    QThread* _thread = nullptr;
    std::shared_ptr<std::atomic<bool>> _cancelled; // of the thread
    QList<QPointer<QThread>> _retired;             // given up, and perhaps still at work
};
