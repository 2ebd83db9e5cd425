// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What is said of a value that cannot be taken.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

/// "--bevel takes a number such as 24, not "wide"".
///
/// @param name  what was to get the value: an option, a word, a parameter
/// @param takes what it takes, with an example or all choices
inline UT_Error wrongValue(const QString& name, const QString& takes, const QString& value)
{
    return {QStringLiteral("%1 takes %2, not \"%3\"").arg(name, takes, value)};
}
