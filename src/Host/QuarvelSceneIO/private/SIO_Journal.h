// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Changes several files at once. All new files are written into the folder ".save" in the scene's folder and forced to
// the disk. Then the list of changes, the journal, is renamed to ".journal". Before this moment the scene is the old
// one, and ".save" is a leftover to remove. From this moment on the scene is the new one, and the next program that
// opens it carries out the journal. Carrying it out twice does no harm: a file that is no longer in ".save" is in its
// place already.
//
// A journal is carried out only if its seal proves that this user wrote it on this machine for this folder, and if the
// files in ".save" are the ones that it lists. Any other journal is ignored: the scene is read without it, and saving
// into the folder is refused until a person has removed the journal.
#pragma once

#include "QuarvelSceneIO/SIO_SceneFolder.h"
#include "QuarvelSceneIO/private/SIO_FileSystem.h"
#include "QuarvelSceneIO/private/SIO_JournalText.h"

#include <QMap>

/// The journal in a scene's folder, if there is one.
struct SIO_WaitingJournal
{
    std::optional<SIO_Journal> own; ///< a journal that must be carried out
    QString leftAlone;              ///< the reason, for people, why a journal is ignored; empty otherwise
};

/// Looks for a journal in a scene's folder; changes nothing.
///
/// @return an error if something other than a regular file has its name, or if it cannot be read
QUARVELSCENEIO_EXPORT UT_Result<SIO_WaitingJournal> SIO_waitingJournal(const QString& folder);

/// Carries out a pending journal, and removes the leftovers of an interrupted save. The caller must hold the scene's
/// lock.
///
/// @return an error also if there is a journal that must be ignored
QUARVELSCENEIO_EXPORT UT_Result<void> SIO_recover(const QString& folder, SIO_FileSystem& disk);

/// Changes files of a scene, all or none. The caller must hold the scene's lock and have called SIO_recover().
///
/// @param files paths within the folder, with their new bytes; files that have these bytes already are not written
/// @param digests of these files (SIO_digests)
/// @param deletes paths within the folder of files to remove
/// @param goOn    called while files are compared and written, before the change takes effect; may be empty
/// @return an error if nothing has changed. Without an error the new files are valid, even if the next program that
/// opens the scene has to finish moving them into place
QUARVELSCENEIO_EXPORT UT_Result<void> SIO_changeFiles(const QString& folder, const QMap<QString, QByteArray>& files,
                                                      const QMap<QString, QByteArray>& digests,
                                                      const QStringList& deletes, SIO_FileSystem& disk,
                                                      const SIO_Progress& goOn = {});
