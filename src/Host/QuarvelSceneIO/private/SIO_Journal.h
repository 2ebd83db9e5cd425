// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How several files change at once. All new files are written into the folder ".save" within the scene, each forced to
// the disk. Then a list of what is to be done, the journal, gets the name ".journal": that moment decides. Before it
// the scene is the old one, and ".save" a left-over to be thrown away; from it on the scene is the new one, and whoever
// comes next carries out what the journal says. Carrying it out twice does no harm: a file that is no longer in ".save"
// is in its place already.
//
// A journal is carried out only where its seal says that this user wrote it on this machine for this folder, and where
// the files in ".save" are the ones that it lists. Any other is left alone: the scene is read as it stands, and saving
// into the folder is refused until a person has taken the journal away.
#pragma once

#include "QuarvelSceneIO/private/SIO_FileSystem.h"
#include "QuarvelSceneIO/private/SIO_JournalText.h"

#include <QMap>

/// What ".journal" in a scene's folder is.
struct SIO_WaitingJournal
{
    std::optional<SIO_Journal> own; ///< one to be carried out
    QString leftAlone;              ///< why there is one that is not carried out, for people; empty otherwise
};

/// Looks for a journal in a scene's folder; changes nothing.
///
/// @return an error when there is something under its name that is no plain file, or cannot be read
QUARVELSCENEIO_EXPORT UT_Result<SIO_WaitingJournal> SIO_waitingJournal(const QString& folder);

/// Carries out the journal that waits, if one does, and throws away what a save left that was not finished. For the
/// holder of the scene's lock.
///
/// @return an error too when there is a journal that is left alone
QUARVELSCENEIO_EXPORT UT_Result<void> SIO_recover(const QString& folder, SIO_FileSystem& disk);

/// Changes files of a scene, all or none. For the holder of the scene's lock, after SIO_recover().
///
/// @param files paths within the folder, with their new bytes; files that have these bytes are not touched
/// @param deletes paths within the folder of files that shall go
/// @return an error, and nothing has changed; without an error the new files count, even where putting them in place
/// has to be finished by whoever opens the scene next
QUARVELSCENEIO_EXPORT UT_Result<void> SIO_changeFiles(const QString& folder, const QMap<QString, QByteArray>& files,
                                                      const QStringList& deletes, SIO_FileSystem& disk);
