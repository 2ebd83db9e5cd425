// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// StandInFiles: files and folders whose names are no text, under names that are. A link in a temporary folder leads to
// each; its name shows the other bytes as %E9.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "Report.h"

#include <QSet>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

/// Links that go with this object. For one thread at a time.
class StandInFiles
{
public:
    /// Puts links in place of the names that are no text. The report calls each by the name that it stands for,
    /// escaped.
    ///
    /// @return an error for a name under which there is neither a file nor a folder
    UT_Result<void> putInto(QStringList& files, Report& report);

    /// The link that stands for a file or folder.
    ///
    /// @param name that is no text
    UT_Result<QString> linkTo(const QString& name, Report& report);

    /// Whether a path is a link that stands for a file; what is written beside it would be lost. What is written into a
    /// folder that has such a link is kept.
    bool isForFile(const QString& path) const { return _files.contains(path); }

private:
    std::unique_ptr<QTemporaryDir> _folder;
    QSet<QString> _files;
};
