// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The objects that the window shows of a graph are those that the node has.
#include "studio/objects/SceneObjects.h"

#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "QuarvelSceneCore/kinds/MO_CompositeModule.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;

namespace {

class SceneObjectsTest : public testing::Test
{
protected:
    void SetUp() override
    {
        auto made = NormalMapNode::make();
        ASSERT_NE(made, nullptr);
        node = &scene.root().add(std::move(made));
    }

    MO_ElementModule& element() { return scene.root().emplace<MO_ElementModule>(); }
    ObjectDefinition& definition(int number)
    {
        auto& made = scene.root().emplace<ObjectDefinition>();
        made.objectNumber()->setLocalValue(number);
        return made;
    }
    static void connect(MO_Module& source, MO_Module& target, unsigned port = 0)
    {
        ASSERT_TRUE(MO_Scene::connect(source, target, port));
    }
    SceneObject onlyObject() const
    {
        const std::vector<SceneObject> objects = objectsOf(scene, 1.0);
        EXPECT_EQ(objects.size(), 1U);
        return objects.empty() ? SceneObject() : objects.front();
    }

    MO_Scene scene;
    MO_Module* node = nullptr;
};

TEST_F(SceneObjectsTest, AreOneForAnInputHoweverManyDrawingsItShows)
{
    MO_ElementModule& arm = element();
    MO_ElementModule& hand = element();
    ObjectDefinition& first = definition(1);
    ObjectDefinition& second = definition(2);
    auto& composite = scene.root().emplace<MO_CompositeModule>();
    connect(arm, first);
    connect(hand, second);
    connect(first, composite, 0);
    connect(second, composite, 1);
    connect(composite, *node);
    const SceneObject object = onlyObject();
    EXPECT_EQ(object.number(), 1);
    EXPECT_THAT(object.definitions, ElementsAre(&first));
    EXPECT_THAT(object.elements, ElementsAre(&arm, &hand));
}

TEST_F(SceneObjectsTest, FollowTheDefinitionNearestToTheDrawing)
{
    MO_ElementModule& arm = element();
    ObjectDefinition& inner = definition(1);
    ObjectDefinition& outer = definition(2);
    connect(arm, inner);
    connect(inner, outer);
    connect(outer, *node);
    EXPECT_THAT(onlyObject().definitions, ElementsAre(&inner));
    inner.setEnabled(false);
    EXPECT_THAT(onlyObject().definitions, ElementsAre(&outer));
}

TEST_F(SceneObjectsTest, LeaveOutDefinitionsThatAreDisabled)
{
    MO_ElementModule& arm = element();
    ObjectDefinition& only = definition(1);
    connect(arm, only);
    connect(only, *node);
    only.setEnabled(false);
    EXPECT_TRUE(objectsOf(scene, 1.0).empty());
}

} // namespace
