// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A small scene for undoable changes, which are compared as the text that would be saved.
#pragma once

#include "Host/QuarvelSceneCore/TestModules.h"

#include "QuarvelCommand/CO_CommandStack.h"
#include "QuarvelSceneCore/editing/MO_EditCommand.h"
#include "QuarvelSceneCore/kinds/MO_CompositeModule.h"
#include "QuarvelSceneCore/kinds/MO_GlueModule.h"

#include <gtest/gtest.h>

struct EditCommands : testing::Test
{
    MO_Scene scene;
    CO_CommandStack stack;
    XUGroup& root = scene.root();
    MO_ElementModule& hero = root.emplace<MO_ElementModule>();
    MO_GlueModule& glue = root.emplace<MO_GlueModule>();
    MO_CompositeModule& composite = root.emplace<MO_CompositeModule>();

    void link(MO_Module& source, MO_Module& target, unsigned inPort = 0)
    {
        ASSERT_TRUE(MO_Scene::connect(source, target, inPort).ok());
    }

    // Executes a command and checks that undo and redo restore the saved text.
    void execute(MO_EditCommand command)
    {
        ASSERT_TRUE(command);
        const QString before = test_modules::savedText(scene);
        ASSERT_TRUE(stack.execute(std::move(command)));
        const QString after = test_modules::savedText(scene);
        ASSERT_NE(after, before);
        stack.undo();
        ASSERT_EQ(test_modules::savedText(scene), before);
        stack.redo();
        ASSERT_EQ(test_modules::savedText(scene), after);
    }
};
