// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Plug-ins that do not load.
#include "QuarvelPlugInManager/PLUG_Manager.h"

#include "QuarvelPlugInManager/PLUG_Services.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

TEST(PLUG_Manager, APlugInThatDoesNotLoadIsNoneAndIsTriedAgain)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("Broken")));
    QFile library(folder.filePath(QStringLiteral("Broken/libBroken.so")));
    ASSERT_TRUE(library.open(QFile::WriteOnly));
    library.write("no library");
    library.close();
    for (int i = 0; i < 2; ++i) {
        const UT_Result<QStringList> loaded = PLUG_Manager::loadAll(folder.path());
        ASSERT_FALSE(loaded) << i;
        EXPECT_TRUE(loaded.error().text.contains(QStringLiteral("libBroken.so does not load"))) << i;
    }
    EXPECT_EQ(PLUG_Services::getPluginPath(QStringLiteral("Broken")), QString());
    EXPECT_EQ(PLUG_Services::loadedPlugins(), QStringList());
}

} // namespace
