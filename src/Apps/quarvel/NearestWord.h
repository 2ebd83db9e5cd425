// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Which word somebody meant who mistyped one.
#pragma once

#include <QStringList>

/// The word that the fewest changes lead to: a letter left out, put in, replaced, or two neighbours swapped.
///
/// @return empty when every word is further off than a third of its letters, and nobody could mean it
QString nearestWord(const QString& typed, const QStringList& words);
