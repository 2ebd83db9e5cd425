// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SIO_FolderReader: reads the files of a scene without locking it, so that any number of programs can load it at once
// and from places where nothing may be written. It sees the scene as the waiting journal says it is, and can tell
// afterwards whether somebody saved the scene meanwhile.
#pragma once

#include "QuarvelSceneIO/SIO_SceneFolder.h"
#include "QuarvelSceneIO/private/SIO_Journal.h"

#include <QDateTime>
#include <QHash>

/// Reads files of one scene.
class SIO_FolderReader
{
public:
    explicit SIO_FolderReader(QString folder) : _folder(std::move(folder)) {}

    const QString& folder() const { return _folder; }
    /// Takes notice of a journal that waits; to be called first.
    UT_Result<void> open();
    /// The path of a file as people shall read it.
    QString shown(const QString& relative) const;
    /// The bytes of a file; an error when there is none, it is too large for its kind, is no plain file, or is reached
    /// through a link. An extension in another case will do.
    UT_Result<QByteArray> read(const QString& relative);
    /// Which scene the files are that were read so far.
    SIO_SceneState state() const;
    /// True when everything read still stands there as it was: together it is one scene.
    bool isUnchanged() const;
    /// True when a journal was waiting in open().
    bool sawJournal() const { return _journal.size >= 0; }
    /// After open(): why the journal that waits is not the scene's, for people; empty when it is, or none waits.
    const QString& journalLeftAlone() const { return _leftAlone; }

private:
    struct Stamp
    {
        qint64 size = -1;
        QDateTime modified;
        quint64 node = 0; ///< where the system tells; a file that is replaced gets another one

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

/// Which scene files are, by the digests of their bytes.
SIO_SceneState SIO_stateOf(const QMap<QString, QByteArray>& digests);

/// The path of a file in its folder: with the extension's case as it is on the disk where there is no file of exactly
/// this name.
QString SIO_inAnyCase(const QString& path);
