// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// StandardInput: a drawing that comes through a pipe. Its kind follows from its first bytes, since it has no name.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "Report.h"

#include <QStringList>
#include <QTemporaryDir>

#include <memory>

/// The word for standard input among files that are read, and for standard output among those that are written.
inline const QString kStandardStream = QStringLiteral("-");

/// The drawing on standard input as a file, which goes with this object.
class StandardInput
{
public:
    /// Puts the file in place of the word for standard input, once, where it is among the files. The report calls it
    /// "standard input".
    UT_Result<void> putInto(QStringList& files, Report& report);

private:
    std::unique_ptr<QTemporaryDir> _folder;
};
