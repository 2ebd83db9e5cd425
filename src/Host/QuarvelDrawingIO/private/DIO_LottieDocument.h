// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A look at an animation's document before anything else reads it: is it one, and what does it use that cannot be kept.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QByteArray>
#include <QStringList>

/// Checks a document.
///
/// @return one line about what is left out or simplified, or none; an error when the document is no animation. Its text
/// does not say which file
UT_Result<QStringList> DIO_checkLottieDocument(const QByteArray& document);
