// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The main function of these tests. It loads the plug-ins of the build, so that scenes can hold modules of every kind.
#include "ObjectDefinition/ObjectDefinition.h"
#include "QuarvelPlugInManager/PLUG_Manager.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdio>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    // The tests use a new key for journals, not the user's.
    const QTemporaryDir state;
    qputenv("XDG_STATE_HOME", QFile::encodeName(state.path()));
    const auto loaded = PLUG_Manager::loadAll(PLUG_Manager::defaultFolder());
    if (!loaded || !MO_ModuleFactorySingleton().contains(ObjectDefinition::Keyword())) {
        std::fprintf(stderr, "%s\n", loaded ? "no object definition" : qPrintable(loaded.error().text));
        return 1;
    }
    return RUN_ALL_TESTS();
}
