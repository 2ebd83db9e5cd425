// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// TakenFiles: which of a run's pictures each file is for, so that none is written over by another.
#pragma once

#include <QHash>
#include <QString>

#include <optional>

/// The files that a run is going to write. Two names of one file, as a.png and ./a.png, count as one.
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
