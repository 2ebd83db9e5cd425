// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Autosave: stores a copy of unsaved work every minute, so that a crash loses at most the work of one minute.
//
// Each running application has a folder of its own under the recovery folder, with a lock that ends with the process:
//
//     recovery/<random>/lock           held while the application runs
//     recovery/<random>/about.ini      the scene's title, its folder and that folder's state, when it was kept
//     recovery/<random>/kept.scene/    the scene
//
// If no process holds a folder's lock, a crash left the folder.
//
// The minute's copy is written on a thread of its own: an animation has thousands of files, and neither a movement of
// the mouse nor what is played waits for them.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneIO/SIO_SceneFolder.h"

#include <QDateTime>
#include <QLockFile>
#include <QObject>
#include <QThread>
#include <QTimer>

#include <memory>

class StudioDocument;

/// What a crash left.
struct LeftScene
{
    QString folder;  ///< of the recovery; identifies it for Autosave
    QString title;   ///< the scene's name
    QString savedAs; ///< where it was saved before; empty when it never was
    QDateTime time;  ///< when the copy was stored
    /// That folder's state when the scene was loaded or saved there. Where it is unknown, it is no folder's state, so
    /// that the person is asked before the folder's scene is replaced.
    SIO_SceneState state;
};

class Autosave : public QObject
{
    Q_OBJECT

public:
    static constexpr int kIntervalSeconds = 60;

    /// @param folder where recoveries lie; made when it is needed
    Autosave(StudioDocument& document, const QString& folder, QObject* parent = nullptr);
    /// Removes this process's recovery folder.
    ~Autosave() override;

    /// The default recovery folder.
    static QString defaultFolder();

    /// What crashes left, the latest first.
    QList<LeftScene> left() const;
    /// Opens what was left; it counts as not saved. The folder is kept until the document is saved or closed.
    UT_Result<QStringList> recover(const LeftScene& scene);
    /// Deletes what was left.
    void discard(const LeftScene& scene);

    /// Stores a copy of the document now, if it holds work (StudioDocument::holdsWork) and has changed since the last
    /// copy.
    UT_Result<void> keepNow();
    /// Begins to store such a copy on another thread: the document as it is now, whatever changes meanwhile. Does
    /// nothing while one is being stored.
    void keepSoon();
    /// Whether a copy is being stored on another thread.
    bool isKeeping() const { return _thread != nullptr; }

Q_SIGNALS:
    /// The copy could not be stored.
    void failed(const QString& error);

private:
    struct About;
    struct Copy;

    void tick();
    void documentChanged();
    void forget();
    bool isDue() const;
    UT_Result<void> makeFolder();
    About about() const;
    void finish(const std::shared_ptr<Copy>& copy);
    void stopKeeping();

    StudioDocument& _document;
    QString _folder;
    QString _own;
    std::unique_ptr<QLockFile> _lock;
    QTimer _timer;
    bool _stale = false;
    std::unique_ptr<QThread> _thread; // that stores a copy
    std::shared_ptr<Copy> _copy;      // that is being stored
};
