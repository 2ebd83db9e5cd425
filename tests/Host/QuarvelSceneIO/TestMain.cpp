// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The main function of these tests. It loads the plug-ins of the build, so that scenes can hold modules of every kind.
#include "PlugInsOfTheBuild.h"
#include "TestApplication.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

int main(int argc, char** argv)
{
    // The tests use a new key for journals, not the user's.
    const QTemporaryDir state;
    qputenv("XDG_STATE_HOME", QFile::encodeName(state.path()));
    testing::AddGlobalTestEnvironment(new PlugInsOfTheBuild);
    return runTests<QCoreApplication>(argc, argv);
}
