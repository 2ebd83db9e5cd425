// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Proves that a journal is this user's own. A scene can come from anybody and can contain a journal that a stranger
// wrote, which must not be carried out. So a journal ends in a seal: an HMAC with SHA-256 of its text and of the
// identity of its folder, with a key that only this user on this machine has. A journal in a folder that was copied,
// cloned or unpacked has no valid seal, whoever wrote it.
//
// A folder is identified by its number in the file system and its time of creation, which it keeps when it is moved and
// which a copy does not have. The key has 32 bytes and is stored in "$XDG_STATE_HOME/quarvel/journal.key" (by default
// below ~/.local/state; on Windows below the user's local data), which only its owner can read.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneIO/QuarvelSceneIOExport.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// Adds a seal to the text of a journal. Makes the key if there is none yet.
///
/// @param folder the scene's folder
/// @return an error if the key cannot be read or made
QUARVELSCENEIO_EXPORT UT_Result<QByteArray> SIO_sealed(const QByteArray& text, const QString& folder);

/// The text before the seal; std::nullopt if this user did not make the seal on this machine for this folder. Does not
/// make a key and changes nothing.
QUARVELSCENEIO_EXPORT std::optional<QByteArray> SIO_unsealed(const QByteArray& sealed, const QString& folder);
