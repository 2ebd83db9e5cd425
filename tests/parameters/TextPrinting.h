// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Lets failed expectations show a QString as text instead of bytes.
#pragma once

#include <QString>

#include <ostream>

inline void PrintTo(const QString& text, std::ostream* stream)
{
    *stream << '"' << text.toStdString() << '"';
}
