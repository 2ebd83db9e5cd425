// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Prints a QString in failed expectations as text instead of bytes.
#pragma once

#include <QString>

#include <ostream>

inline void PrintTo(const QString& text, std::ostream* stream)
{
    *stream << '"' << text.toStdString() << '"';
}
