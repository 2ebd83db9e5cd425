// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// "quarvel import": makes a scene of drawings.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "jobs/drawing/NormalMapSettings.h"

#include <QStringList>

class Report;

/// The whole command line of one run.
struct ImportOptions
{
    QStringList files;
    QString output; ///< the scene's folder
    FormSettings form;
    ObjectWishes wishes;
    bool force = false;
    bool quiet = false;
    bool help = false;
};

/// Reads the words after "import"; looks at no file.
UT_Result<ImportOptions> parseImportOptions(const QStringList& words);

/// Runs the command.
///
/// @param words the words after "import"
/// @return the exit code (ExitCodes.h): 0 when the scene was made, 1 when it was not, 2 when the command line was
/// wrong, 130 or 143 when a signal stopped it
int runImportCommand(const QStringList& words, Report& report);

/// What "quarvel help import" prints.
QString importHelp();
