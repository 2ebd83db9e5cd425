// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The value of an attribute in words, as "quarvel inspect" writes it and "quarvel set" reads it. AttributeWords.cpp
// holds both directions for each kind of attribute.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneCore/attributes/AT_AttrLink.h"
#include "QuarvelSceneCore/editing/MO_EditCommand.h"

#include <QStringList>

class AT_Attr;

/// The attribute's link, animation or local value.
QString attributeInWords(AT_Attr& attr);

/// Makes the command that gives an attribute the value of words in the notation of SetAttribute.h. Null if nothing
/// would change.
///
/// @param scope resolves the attribute that a link names
/// @param words at least one
/// @return an error that says what was expected instead of which word
UT_Result<MO_EditCommand> changeByWords(const AT_LinkScope& scope, AT_Attr& attr, const QStringList& words);

/// The truth value of a word: true, on, yes, 1 or false, off, no, 0, in upper or lower case.
UT_Result<bool> truthInWord(const QString& word);
