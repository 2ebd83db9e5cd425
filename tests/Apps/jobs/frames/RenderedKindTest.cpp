// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The meaning of a module's picture, derived from the graph.
#include "jobs/shown/RenderedKind.h"
#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneCore/kinds/MO_CompositeModule.h"
#include "QuarvelSceneCore/kinds/MO_DisplayModule.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "QuarvelSceneCore/kinds/MO_GlueModule.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class Kind : public testing::Test
{
protected:
    MO_Module& vallorin(XUGroup& group)
    {
        return group.add(MO_ModuleFactorySingleton().create(QStringLiteral("Vallorin")));
    }
    MO_Module& vallorin() { return vallorin(scene.root()); }

    static void link(MO_Module& source, MO_Module& target, unsigned port = 0)
    {
        const auto linked = MO_Scene::connect(source, target, port);
        ASSERT_TRUE(linked) << linked.error().text.toStdString();
    }
    static AT_BoolAttr& flag(MO_Module& module, const char* key)
    {
        return dynamic_cast<AT_BoolAttr&>(*module.findAttr(QString::fromLatin1(key)));
    }

    MO_Scene scene;
};

TEST_F(Kind, IsNormalsForTheNodeItself)
{
    MO_Module& node = vallorin();
    EXPECT_EQ(pictureSourceOf(node).kind, RenderedKind::NORMALS);
    EXPECT_THAT(pictureSourceOf(node).nodes, ElementsAre(&node));
}

TEST_F(Kind, IsElevationForANodeWithoutNormals)
{
    MO_Module& node = vallorin();
    flag(node, "GenerateNormals").setLocalValue(false);
    EXPECT_EQ(pictureSourceOf(node).kind, RenderedKind::ELEVATION);
}

TEST_F(Kind, IsColoursForDrawings)
{
    auto& element = scene.root().emplace<MO_ElementModule>();
    auto& composite = scene.root().emplace<MO_CompositeModule>();
    link(element, composite);
    EXPECT_EQ(pictureSourceOf(element).kind, RenderedKind::COLOURS);
    EXPECT_EQ(pictureSourceOf(composite).kind, RenderedKind::COLOURS);
    EXPECT_THAT(pictureSourceOf(composite).nodes, IsEmpty());
}

TEST_F(Kind, LooksThroughDisplaysAndWhatJoins)
{
    MO_Module& left = vallorin();
    MO_Module& right = vallorin();
    auto& glue = scene.root().emplace<MO_GlueModule>();
    auto& display = scene.root().emplace<MO_DisplayModule>();
    link(left, glue, 0);
    link(right, glue, 1);
    link(glue, display);
    EXPECT_EQ(pictureSourceOf(display).kind, RenderedKind::NORMALS);
    EXPECT_THAT(pictureSourceOf(display).nodes, ElementsAre(&left, &right));
}

TEST_F(Kind, LooksThroughGroupsAndDisabledModules)
{
    auto& group = scene.root().emplace<XUGroup>();
    group.addOutPort();
    MO_Module& inside = vallorin(group);
    link(inside, group.exit());
    auto& composite = scene.root().emplace<MO_CompositeModule>();
    auto& display = scene.root().emplace<MO_DisplayModule>();
    link(group, composite);
    link(composite, display);
    composite.setEnabled(false);
    EXPECT_THAT(pictureSourceOf(display).nodes, ElementsAre(&inside));
    EXPECT_THAT(pictureSourceOf(group).nodes, ElementsAre(&inside));
    EXPECT_THAT(pictureSourceOf(composite).nodes, ElementsAre(&inside));
}

TEST_F(Kind, OfADisabledNodeIsThatOfItsFirstInput)
{
    auto& element = scene.root().emplace<MO_ElementModule>();
    MO_Module& node = vallorin();
    link(element, node);
    node.setEnabled(false);
    EXPECT_EQ(pictureSourceOf(node).kind, RenderedKind::COLOURS);
}

TEST_F(Kind, OfNormalsJoinedWithADrawingIsColours)
{
    MO_Module& node = vallorin();
    auto& element = scene.root().emplace<MO_ElementModule>();
    auto& composite = scene.root().emplace<MO_CompositeModule>();
    link(node, composite, 0);
    link(element, composite, 1);
    EXPECT_EQ(pictureSourceOf(composite).kind, RenderedKind::COLOURS);
}

TEST_F(Kind, IsFoundInAGraphWithVeryManyPaths)
{
    MO_Module* last = &vallorin();
    for (int i = 0; i < 64; ++i) {
        auto& glue = scene.root().emplace<MO_GlueModule>();
        link(*last, glue, 0);
        link(*last, glue, 1);
        last = &glue;
    }
    EXPECT_EQ(pictureSourceOf(*last).kind, RenderedKind::NORMALS);
}

} // namespace
