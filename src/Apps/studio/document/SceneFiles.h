// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SceneFiles: opens scenes and imports drawings on a thread of its own, so that a large file does not block the window.
// If that fails, the document stays unchanged.
//
// People go on working while files are read. A dialog, a menu or a drag that they have begun refers to the open scene,
// so what was read waits until it ends. If another scene is opened meanwhile in any other way, what is read is dropped.
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
    /// The one path that opens the same again: the scene, the only drawing, or the folder that holds these drawings and
    /// no others. Otherwise the first drawing.
    QString path() const;
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

    /// Sets what is asked before what was read replaces a document that was changed after open(): whether it may. If it
    /// may not, what was read is dropped. Without a question, it may.
    void setMayReplace(const std::function<bool()>& mayReplace) { _mayReplace = mayReplace; }
    /// Starts to open. If something else is being opened, that is cancelled.
    void open(const OpenRequest& request);
    /// Cancels opening at once; the document stays unchanged.
    void cancel();
    bool isBusy() const { return _reading.isReading() || isWaiting(); }
    /// Whether something was read and waits for the end of a dialog, a menu or a drag.
    bool isWaiting() const { return _read != nullptr; }

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
        OpenRequest request;
        std::unique_ptr<MO_Scene> scene;
        QStringList warnings;
        QString error;
        SIO_SceneState state = {}; ///< of a scene's folder
    };

    static Outcome load(const OpenRequest& request, const std::function<bool(double)>& goOn);
    void finish(const std::shared_ptr<Outcome>& outcome);
    void deliver(const std::shared_ptr<Outcome>& outcome);
    bool isSceneHeld() const;

    StudioDocument& _document;
    ReadingThread _reading;
    std::shared_ptr<Outcome> _read; ///< until the document takes it
    std::function<bool()> _mayReplace;
    bool _changed = false;         ///< the document, perhaps, after open()
    Qt::MouseButtons _heldAtFirst; ///< when open() was called, as a drop leaves them on some systems
};
