// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Finds the word that a mistyped one was meant to be.
#pragma once

#include <QStringList>

/// The word that the fewest changes lead to: a letter left out, put in, replaced, or two neighbours swapped.
///
/// @return empty when every word differs in more than a third of its letters
QString nearestWord(const QString& typed, const QStringList& words);
