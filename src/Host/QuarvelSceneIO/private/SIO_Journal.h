// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How several files change at once. All new files are written into the folder ".save" within the scene, each forced to
// the disk. Then a list of what is to be done, the journal, gets the name ".journal": that moment decides. Before it
// the scene is the old one, and ".save" a left-over to be thrown away; from it on the scene is the new one, and whoever
// comes next carries out what the journal says. Carrying it out twice does no harm: a file that is no longer in ".save"
// is in its place already.
//
//     quarvel-journal 1
//     write 0 elements/Hero/1.kvr
//     write 1 scene.xml
//     delete elements/Hero/2.kvr
//     end 8c0f...                      the SHA-256 of the lines before
#pragma once

#include "QuarvelSceneIO/private/SIO_FileSystem.h"

#include <QMap>
#include <QStringList>

#include <optional>
#include <vector>

/// What is to be done. Paths are within the scene's folder.
struct SIO_Journal
{
    struct Write
    {
        QString staged; ///< a path, in ".save"
        QString target;
    };

    std::vector<Write> writes;
    QStringList deletes;
};

/// The names within a scene's folder that belong to saving.
extern const QString kSIO_journalFile;
extern const QString kSIO_stagingFolder;

/// The text of a journal.
QUARVELSCENEIO_EXPORT QByteArray SIO_journalText(const SIO_Journal& journal);
/// The inverse; nothing when the text is damaged or a path in it leads out of a scene's folder.
QUARVELSCENEIO_EXPORT std::optional<SIO_Journal> SIO_parseJournal(const QByteArray& text);

/// The journal that waits in a scene's folder.
///
/// @return nothing when there is none; an error when it is damaged
QUARVELSCENEIO_EXPORT UT_Result<std::optional<SIO_Journal>> SIO_waitingJournal(const QString& folder);

/// Carries out the journal that waits, if one does, and throws away what a save left that was not finished. For the
/// holder of the scene's lock.
QUARVELSCENEIO_EXPORT UT_Result<void> SIO_recover(const QString& folder, SIO_FileSystem& disk);

/// Changes files of a scene, all or none. For the holder of the scene's lock, after SIO_recover().
///
/// @param files paths within the folder, with their new bytes; files that have these bytes are not touched
/// @param deletes paths within the folder of files that shall go
/// @return an error, and nothing has changed; without an error the new files count, even where putting them in place
/// has to be finished by whoever opens the scene next
QUARVELSCENEIO_EXPORT UT_Result<void> SIO_changeFiles(const QString& folder, const QMap<QString, QByteArray>& files,
                                                      const QStringList& deletes, SIO_FileSystem& disk);

/// True when a path within a scene's folder, as far as it exists, does not leave that folder through symbolic links.
QUARVELSCENEIO_EXPORT bool SIO_staysInside(const QString& folder, const QString& relative);
