// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The main function of these tests: an application for the painter, and the plug-ins of the build.
#include "QuarvelPlugInManager/PLUG_Manager.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

#include <cstdio>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    const auto loaded = PLUG_Manager::loadAll(PLUG_Manager::defaultFolder());
    if (!loaded) {
        std::fprintf(stderr, "%s\n", qPrintable(loaded.error().text));
        return 1;
    }
    return RUN_ALL_TESTS();
}
