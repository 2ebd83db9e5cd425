// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A journal: the list of changes that turn the old scene in a folder into the new one.
//
//     quarvel-journal 2
//     write 0 8c0f... elements/Hero/1.kvr     the file in ".save", the SHA-256 of its bytes, its place
//     write 1 51d2... scene.xml
//     delete elements/Hero/2.kvr
//     seal 70ab...                            see SIO_JournalSeal.h
#pragma once

#include "QuarvelSceneIO/QuarvelSceneIOExport.h"

#include <QByteArray>
#include <QMap>
#include <QStringList>

#include <optional>
#include <vector>

/// The changes. Paths are relative to the scene's folder.
struct SIO_Journal
{
    struct Write
    {
        QString staged; ///< a path, in ".save"
        QString target;
        QByteArray digest; ///< SIO_digest() of the staged file's bytes
    };

    std::vector<Write> writes;
    QStringList deletes;
};

/// The names in a scene's folder that saving uses.
extern const QString kSIO_journalFile;
extern const QString kSIO_stagingFolder;

/// The path of a staged file, in ".save".
QString SIO_stagedPath(const QByteArray& name);
/// True for the names that a save gives to files in ".save": numbers, and "journal" until it is renamed.
bool SIO_isStagedName(const QString& name);

/// True for the paths that files of a scene can have: "scene.xml", "palettes/*.xml" and "elements/*/*.kvr", the
/// extension in upper or lower case. Saving, and finishing a save, change no other files.
QUARVELSCENEIO_EXPORT bool SIO_isScenePath(const QString& relative);

/// SHA-256 in hexadecimal digits.
QUARVELSCENEIO_EXPORT QByteArray SIO_digest(const QByteArray& bytes);
/// The SIO_digest() of each file's bytes, by the file's path.
QMap<QString, QByteArray> SIO_digests(const QMap<QString, QByteArray>& files);

/// The text of a journal, without its seal.
QUARVELSCENEIO_EXPORT QByteArray SIO_journalText(const SIO_Journal& journal);
/// The inverse; std::nullopt if the text is damaged or a path in it is not a scene path.
QUARVELSCENEIO_EXPORT std::optional<SIO_Journal> SIO_parseJournal(const QByteArray& text);
