// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Conversions between UT_String and QString.
#include "QuarvelBaseCore/UT_String.h"

UT_String::UT_String(const QString& text) : _utf8(text.toStdString()) {}

QString UT_String::ToQString() const
{
    return QString::fromStdString(_utf8);
}
