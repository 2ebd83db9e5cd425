// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SceneFiles: opens scenes and imports drawings on a thread of its own, so that a large file does not block the window.
// If that fails, the document stays unchanged.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneIO/SIO_SceneFolder.h"
#include "studio/document/ReadingThread.h"

#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>

class QFileInfo;
class StudioDocument;

/// What to open.
struct OpenRequest
{
    QString scene;        ///< a scene's folder; empty: drawings
    QStringList drawings; ///< files to import

    /// Interprets paths: as one scene, or as drawings. A folder that is no scene stands for all drawings in it.
    ///
    /// @return an error when there is nothing to open among them
    static UT_Result<OpenRequest> of(const QStringList& paths);
    /// Whether a folder is a scene: its name ends in ".scene", or it holds a scene.
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

    /// Starts to open. If something else is being opened, that is cancelled.
    void open(const OpenRequest& request);
    /// Cancels opening at once; the document stays unchanged.
    void cancel();
    bool isBusy() const { return _reading.isReading(); }

Q_SIGNALS:
    /// Opening started or ended.
    void busyChanged();
    /// The share that has been read, 0 to 1; 0 while it is unknown.
    void progressed(double done);
    /// The document has been opened. The text holds remarks, one per line.
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
    void finish(const OpenRequest& request, Outcome& outcome);

    StudioDocument& _document;
    ReadingThread _reading;
};
