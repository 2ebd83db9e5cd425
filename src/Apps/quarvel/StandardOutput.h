// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// StandardOutput: a picture that goes into a pipe. It is written to a file first, since encoders seek in what they
// write, and since no part of a picture should be sent that cannot be finished.
#pragma once

#include "NormalMapOptions.h"
#include "Report.h"

#include <QTemporaryDir>

#include <memory>

/// The picture on standard output.
class StandardOutput
{
public:
    /// Makes room for it. Lines for people are not told any more.
    ///
    /// @return the file to write; an error when the options want more than one picture there, or when standard output
    /// is a terminal
    UT_Result<QString> prepare(const NormalMapOptions& options, Report& report);

    /// Sends the file, where there is one.
    UT_Result<void> send(const Report& report) const;

private:
    std::unique_ptr<QTemporaryDir> _folder;
    QString _file;
};
