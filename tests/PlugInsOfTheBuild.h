// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What test programs load before their first test, as the programs do at their start.
#pragma once

#include "QuarvelPlugInManager/PLUG_Manager.h"

#include <gtest/gtest.h>

/// Loads the plug-ins that lie beside the build's programs. To be given to testing::AddGlobalTestEnvironment; without
/// the plug-ins no test runs, and the program fails.
class PlugInsOfTheBuild : public testing::Environment
{
public:
    void SetUp() override
    {
        const auto loaded = PLUG_Manager::loadAll(PLUG_Manager::defaultFolder());
        ASSERT_TRUE(loaded) << loaded.error().text.toStdString();
    }
};
