// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// TakenFiles: which of a run's pictures each file is for, so that none is written over by another. Beside it is what a
// run must know of links, since files are written where a link leads.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QHash>
#include <QString>

#include <optional>

/// The absolute path of a file after all links on the way to it, its own name among them. What is not there yet follows
/// unchanged; no name has no path.
QString followedPath(const QString& file);

/// Checks a name that the program makes up: where it is a link, it came with the folder, and may lead to any file of
/// the user's.
///
/// @param file an empty name is nobody's
/// @return an error for a link, whether it leads anywhere or not
UT_Result<void> checkIsNoLink(const QString& file);

/// The files that a run is going to write. Two names of one file, as a.png and ./a.png or a link to it, count as one.
class TakenFiles
{
public:
    /// Takes a file for somebody.
    ///
    /// @param file an empty name is nobody's
    /// @return who took the file before, or nothing; then it is taken now
    std::optional<QString> take(const QString& file, const QString& owner);

private:
    QHash<QString, QString> _owners;
};
