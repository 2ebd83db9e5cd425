// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What makes a journal one's own. A scene can come from anybody, with a journal in it that somebody else wrote; to
// carry that out would be to do what a stranger says. So a journal ends in a seal: an HMAC with SHA-256 of its text and
// of the folder that it was written in, made with a key that only this user on this machine has. A journal in a folder
// that was copied, cloned or unpacked has no valid seal, whoever wrote it.
//
// The folder is known by its number in the file system and the time of its making, which it keeps when it is moved and
// which a copy does not have. The key lies in "$XDG_STATE_HOME/quarvel/journal.key" (by default below ~/.local/state;
// on Windows below the user's local data), 32 bytes for its owner alone.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneIO/QuarvelSceneIOExport.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// Adds a seal to the text of a journal. Makes the key when there is none yet.
///
/// @param folder the scene's folder
/// @return an error when the key cannot be read or made
QUARVELSCENEIO_EXPORT UT_Result<QByteArray> SIO_sealed(const QByteArray& text, const QString& folder);

/// The text before the seal; nothing when the seal is not this user's, made on this machine for this folder. Makes no
/// key and changes nothing.
QUARVELSCENEIO_EXPORT std::optional<QByteArray> SIO_unsealed(const QByteArray& sealed, const QString& folder);
