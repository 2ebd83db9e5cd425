// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SIO_FolderReader: reads the files of a scene without locking it, so that any number of programs can load it at once,
// also from folders without write permission. It reads the scene as it will be after a pending journal, and can tell
// afterwards whether the scene was saved meanwhile.
#pragma once

#include "QuarvelSceneIO/SIO_SceneFolder.h"
#include "QuarvelSceneIO/private/SIO_Journal.h"

#include <QDateTime>
#include <QHash>

/// Reads the files of one scene.
class SIO_FolderReader
{
public:
    explicit SIO_FolderReader(QString folder) : _folder(std::move(folder)) {}

    const QString& folder() const { return _folder; }
    /// Looks for a pending journal. Must be called first.
    UT_Result<void> open();
    /// The path of a file for messages.
    QString shown(const QString& relative) const;
    /// The bytes of a file; an error if the file is missing, too large for its kind, not a regular file, or reached
    /// through a link. Also finds a file whose extension differs in case.
    UT_Result<QByteArray> read(const QString& relative);
    /// The state made of the files that were read so far.
    SIO_SceneState state() const;
    /// True if no file has changed since it was read, so that all files belong to the same saved scene.
    bool isUnchanged() const;
    /// True if open() found a journal.
    bool sawJournal() const { return _journal.size >= 0; }
    /// After open(): the reason, for people, why a pending journal was ignored; empty if there is none or it was used.
    const QString& journalLeftAlone() const { return _leftAlone; }

private:
    struct Stamp
    {
        qint64 size = -1;
        QDateTime modified;
        quint64 node = 0; ///< if the system has one; a replaced file gets another

        friend bool operator==(const Stamp&, const Stamp&) = default;
    };

    static Stamp stampOf(const QString& path);
    QString placeOf(const QString& relative) const;

    QString _folder;
    QHash<QString, QString> _staged;
    QHash<QString, Stamp> _seen;
    QMap<QString, QByteArray> _digests;
    Stamp _journal;
    QString _leftAlone;
};

/// The state of a scene with these files, given by the digests of their bytes.
SIO_SceneState SIO_stateOf(const QMap<QString, QByteArray>& digests);

/// The path of a file on the disk. If there is no file with exactly this name, the extension in lower or upper case is
/// tried.
QString SIO_inAnyCase(const QString& path);
