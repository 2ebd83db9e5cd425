// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The main function of these tests: a desktop application whose windows are not shown, with the plug-ins of the build.
#include "TestApplication.h"
#include "WidgetsOfPlugIns.h"

#include <QApplication>
#include <QStandardPaths>

#include <tbb/global_control.h>

int main(int argc, char** argv)
{
#ifdef __SANITIZE_THREAD__
    // The sanitizer does not see how TBB's threads wait for each other and is slow for every pixel that they share.
    // These tests are about the window's thread and the thread that renders for it.
    const tbb::global_control oneThread(tbb::global_control::max_allowed_parallelism, 1);
#endif
    QStandardPaths::setTestModeEnabled(true);
    testing::AddGlobalTestEnvironment(new WidgetsOfPlugIns);
    return runTests<QApplication>(argc, argv);
}
