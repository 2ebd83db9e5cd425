// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Frame numbers in file names: "walk_0012.svg" is frame 12.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QStringList>

#include <optional>
#include <vector>

/// A file and its place in time.
struct NumberedFile
{
    QString path;
    int frame = 1;
};

/// Sorts names as people do: digits by their value, "a2" before "a10". Names that differ in nothing but leading zeros
/// stand in the order of their characters, so that the order never depends on how the names came in.
void sortNaturally(QStringList& paths);

/// The number that a file's name has: the last run of digits before the suffix; nothing if there is none.
///
/// @return an error if the number is too large
UT_Result<std::optional<int>> frameNumberOf(const QString& path);

/// Gives each file of a sequence its frame. A single file, and files of which none has a number, are numbered from 1 in
/// natural order.
///
/// @return in the order of frames; an error when two files have the same number, or only some have one
UT_Result<std::vector<NumberedFile>> numberFrames(QStringList paths);

/// The name of a sequence: that of its first file without folder, number and suffix. The digits of a single file are a
/// part of its name and are kept.
QString sequenceName(QStringList paths);
