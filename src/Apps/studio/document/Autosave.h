// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Autosave: keeps a copy of what is not saved yet, every minute, so that a crash costs a minute's work at most.
//
// Each running application has a folder of its own under the recovery folder, with a lock that ends with the process:
//
//     recovery/<random>/lock           held while the application runs
//     recovery/<random>/about.ini      the scene's title, its folder, when it was kept
//     recovery/<random>/kept.scene/    the scene
//
// A folder whose lock nobody holds was left by a crash.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QDateTime>
#include <QLockFile>
#include <QObject>
#include <QTimer>

#include <memory>

class StudioDocument;

/// What a crash left.
struct LeftScene
{
    QString folder;  ///< of the recovery, to be given back to Autosave
    QString title;   ///< the scene's name
    QString savedAs; ///< where it was saved before; empty when it never was
    QDateTime time;  ///< when it was kept
};

class Autosave : public QObject
{
    Q_OBJECT

public:
    static constexpr int kIntervalSeconds = 60;

    /// @param folder where recoveries lie; made when it is needed
    Autosave(StudioDocument& document, const QString& folder, QObject* parent = nullptr);
    /// An orderly end leaves nothing behind.
    ~Autosave() override;

    /// The folder that is used unless another is named.
    static QString defaultFolder();

    /// What crashes left, the latest first.
    QList<LeftScene> left() const;
    /// Opens what was left; it counts as not saved. The folder is kept until the document is saved or closed.
    UT_Result<QStringList> recover(const LeftScene& scene);
    /// Throws away what was left.
    void discard(const LeftScene& scene);

    /// Keeps the document now, when it is modified and was not kept as it is.
    UT_Result<void> keepNow();

Q_SIGNALS:
    /// The document could not be kept.
    void failed(const QString& error);

private:
    void tick();
    void documentChanged();
    void forget();

    StudioDocument& _document;
    QString _folder;
    QString _own;
    std::unique_ptr<QLockFile> _lock;
    QTimer _timer;
    bool _stale = false;
};
