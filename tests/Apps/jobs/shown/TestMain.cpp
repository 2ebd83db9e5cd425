// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The main function of these tests: a desktop application whose windows are not shown, with the plug-ins of the build.
#include "QuarvelPlugInManager/PLUG_EditorWidgets.h"
#include "QuarvelPlugInManager/PLUG_Manager.h"
#include "QuarvelPlugInManager/PLUG_Services.h"

#include <QApplication>
#include <QStandardPaths>

#include <gtest/gtest.h>
#include <tbb/global_control.h>

#include <cstdio>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
#ifdef __SANITIZE_THREAD__
    // The sanitizer does not see how TBB's threads wait for each other and is slow for every pixel that they share.
    // These tests are about the window's thread and the thread that renders for it.
    const tbb::global_control oneThread(tbb::global_control::max_allowed_parallelism, 1);
#endif
    QStandardPaths::setTestModeEnabled(true);
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    PLUG_EditorWidgets widgets;
    PLUG_Services::setWidgetFactoryRegistry(&widgets);
    const auto loaded = PLUG_Manager::loadAll(PLUG_Manager::defaultFolder());
    if (!loaded) {
        std::fprintf(stderr, "%s\n", qPrintable(loaded.error().text));
        return 1;
    }
    return RUN_ALL_TESTS();
}
