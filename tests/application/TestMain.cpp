// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The test's own program: the application as it starts, on a display of its own. Without a display there is nothing to
// test, so that is a failure and no reason to leave the test out.
#include "WidgetsOfPlugIns.h"

#include <QApplication>
#include <QStandardPaths>

#include <gtest/gtest.h>

#include <cstdio>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    // Dialogs of a desktop would not be reached by the test's hands.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QStandardPaths::setTestModeEnabled(true);
    const QApplication application(argc, argv);
    if (QGuiApplication::platformName() != QLatin1String("xcb")) {
        std::fprintf(stderr, "the test needs an X display; run it with QT_QPA_PLATFORM=xcb under xvfb-run -a\n");
        return 1;
    }
    testing::AddGlobalTestEnvironment(new WidgetsOfPlugIns);
    return RUN_ALL_TESTS();
}
