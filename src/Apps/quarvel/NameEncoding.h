// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Names of files that are no text. On Linux a name is any bytes; the libraries that open files here take names that are
// UTF-8 only. Within the program, a byte that is no UTF-8 is a character that no text has: half of a surrogate pair,
// U+DC80 to U+DCFF. Such a name opens nothing until a file stands in for it (StandInFiles.h).
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// A name as the system gave it.
QString nameOf(QByteArrayView bytes);

/// The bytes of a name; those that nameOf() was given.
QByteArray bytesOf(const QString& name);

/// Whether a name has no bytes but UTF-8.
bool isText(const QString& name);

/// A path whose names that are no text have such bytes as %E9, and % as %25.
QString escapedName(const QString& path);

/// The names of a folder's entries, not of those below it, that are no text, in the order of their bytes.
QStringList namesThatAreNoText(const QString& folder);
