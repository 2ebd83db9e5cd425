// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The value of an attribute in words, as "quarvel info" writes and "quarvel set" reads it. For each kind of attribute
// both directions stand side by side in one file (AttributeWords.cpp).
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneCore/attributes/AT_AttrLink.h"
#include "QuarvelSceneCore/editing/MO_EditCommand.h"

#include <QStringList>

class AT_Attr;

/// The attribute's link, animation or local value.
QString attributeInWords(AT_Attr& attr);

/// The command that gives an attribute the value that words say (SetAttribute.h tells how). Null when nothing would
/// change.
///
/// @param scope where a link finds the attribute that it names
/// @param words at least one
/// @return an error that says what was expected in place of which word
UT_Result<MO_EditCommand> changeByWords(const AT_LinkScope& scope, AT_Attr& attr, const QStringList& words);

/// The truth value that a word says: true, on, yes, 1 or false, off, no, 0, in whatever case.
UT_Result<bool> truthInWord(const QString& word);
