// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Plug-ins that do not load.
#include "QuarvelPlugInManager/PLUG_Manager.h"

#include "QuarvelPlugInManager/PLUG_Services.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

namespace {

#ifdef Q_OS_WIN
const QString kLibrary = QStringLiteral("libBroken.dll");
#else
const QString kLibrary = QStringLiteral("libBroken.so");
#endif

TEST(PLUG_Manager, APlugInThatDoesNotLoadIsNoneAndIsTriedAgain)
{
    const TestFolder folder;
    folder.write(QStringLiteral("Broken/") + kLibrary, "no library");
    for (int i = 0; i < 2; ++i) {
        const UT_Result<QStringList> loaded = PLUG_Manager::loadAll(folder.path());
        ASSERT_FALSE(loaded) << i;
        EXPECT_TRUE(loaded.error().text.contains(kLibrary + QStringLiteral(" does not load"))) << i;
    }
    EXPECT_EQ(PLUG_Services::getPluginPath(QStringLiteral("Broken")), QString());
    EXPECT_EQ(PLUG_Services::loadedPlugins(), QStringList());
}

} // namespace
