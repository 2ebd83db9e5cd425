// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A change of the scene under a name of its own. The names of attributes say little where one attribute holds the
// values of many things; people who look at the undo menu want to read what was changed, from what to what.
#pragma once

#include "QuarvelSceneCore/QuarvelSceneCoreExport.h"
#include "QuarvelSceneCore/editing/MO_EditCommand.h"

#include <QString>

/// What a change of a value is called: "Bevel of Head 24 → 60".
struct MO_ChangeWords
{
    QString what; ///< what changes; the whole name where from and to are empty
    QString from;
    QString to;
};

/// The command with another name. Two of them that follow each other merge when they say the same of what changes and
/// their commands merge; then the name tells the first value and the last one.
///
/// @param change what is done; null gives null
QUARVELSCENECORE_EXPORT MO_EditCommand MO_namedCmd(MO_EditCommand change, const MO_ChangeWords& words);
