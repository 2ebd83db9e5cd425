// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The tests' main program: an application with widgets, a registry for them, and the plug-ins of the build.
#include "QuarvelPlugInManager/PLUG_EditorWidgets.h"
#include "QuarvelPlugInManager/PLUG_Manager.h"
#include "QuarvelPlugInManager/PLUG_Services.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <cstdio>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    PLUG_EditorWidgets widgets;
    PLUG_Services::setWidgetFactoryRegistry(&widgets);
    const auto loaded = PLUG_Manager::loadAll(PLUG_Manager::defaultFolder());
    if (!loaded) {
        std::fprintf(stderr, "%s\n", qPrintable(loaded.error().text));
        return 1;
    }
    const int result = RUN_ALL_TESTS();
    PLUG_Services::setWidgetFactoryRegistry(nullptr);
    return result;
}
