// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Automatic input ports: there is always one free port at the end.
#include "Host/QuarvelSceneCore/TestModules.h"

#include "QuarvelSceneCore/kinds/MO_CompositeModule.h"
#include "QuarvelSceneCore/kinds/MO_GlueModule.h"

#include <gtest/gtest.h>

using namespace test_modules;

namespace {

// Takes three inputs at most.
class ThreeInputs : public MO_AutoInPortsModule
{
public:
    ThreeInputs() { addInImagePort(); }
    unsigned maxInPorts() const override { return 3; }
    QString keyword() const override { return QStringLiteral("THREE"); }
    QString baseDisplayName() const override { return QStringLiteral("Three"); }
};

struct AutoInPortsModuleTest : testing::Test
{
    MO_Scene scene;
    ThreeInputs& node = scene.root().emplace<ThreeInputs>();
    PassModule& source() { return scene.root().emplace<PassModule>(); }
};

TEST_F(AutoInPortsModuleTest, ANewNodeHasOneFreePort)
{
    EXPECT_EQ(node.nInPorts(), 1U);
    EXPECT_EQ(MO_CompositeModule().nInPorts(), 1U);
    EXPECT_FALSE(node.isValidAutoPort(0));
}

TEST_F(AutoInPortsModuleTest, LinkingTheFreePortMakesANewOne)
{
    ASSERT_TRUE(MO_Scene::connect(source(), node, 0).ok());
    EXPECT_EQ(node.nInPorts(), 2U);
    EXPECT_TRUE(node.isValidAutoPort(0));
    EXPECT_FALSE(node.isValidAutoPort(1));
    EXPECT_FALSE(node.isValidAutoPort(2));
}

TEST_F(AutoInPortsModuleTest, NoPortIsAddedBeyondTheLimit)
{
    for (unsigned i = 0; i < 3; ++i)
        ASSERT_TRUE(MO_Scene::connect(source(), node, i).ok());
    EXPECT_EQ(node.nInPorts(), 3U);
    EXPECT_TRUE(node.isValidAutoPort(2));
    EXPECT_FALSE(MO_Scene::connect(source(), node, 3).ok());
    EXPECT_EQ(node.portManipulator()->insertInPort(0), nullptr);
}

TEST_F(AutoInPortsModuleTest, CuttingTheLastLinksDropsWhatIsTooMuch)
{
    ASSERT_TRUE(MO_Scene::connect(source(), node, 0).ok());
    ASSERT_TRUE(MO_Scene::connect(source(), node, 1).ok());
    MO_Scene::disconnect(node, 1);
    EXPECT_EQ(node.nInPorts(), 2U);
    MO_Scene::disconnect(node, 0);
    EXPECT_EQ(node.nInPorts(), 1U);
}

TEST_F(AutoInPortsModuleTest, AFreePortBetweenLinkedOnesStays)
{
    auto& second = source();
    ASSERT_TRUE(MO_Scene::connect(source(), node, 0).ok());
    ASSERT_TRUE(MO_Scene::connect(second, node, 1).ok());
    MO_Scene::disconnect(node, 0);
    EXPECT_EQ(node.nInPorts(), 3U);
    EXPECT_TRUE(node.isValidAutoPort(0));
    EXPECT_EQ(node.inPort(1)->srcPort(), second.outPort(0));
}

TEST_F(AutoInPortsModuleTest, LinkingAPortFurtherBackMakesTheOnesBeforeIt)
{
    ASSERT_TRUE(MO_Scene::connect(source(), node, 1).ok());
    EXPECT_EQ(node.nInPorts(), 3U);
    EXPECT_FALSE(node.inPort(0)->isConnected());
}

TEST_F(AutoInPortsModuleTest, ARefusedLinkLeavesNoPortsBehind)
{
    EXPECT_FALSE(MO_Scene::connect(node, node, 2).ok());
    EXPECT_EQ(node.nInPorts(), 1U);
}

TEST_F(AutoInPortsModuleTest, InsertingAPortMovesTheOthersUp)
{
    auto& first = source();
    ASSERT_TRUE(MO_Scene::connect(first, node, 0).ok());
    MO_Port* const inserted = node.portManipulator()->insertInPort(0);
    ASSERT_NE(inserted, nullptr);
    EXPECT_EQ(inserted, node.inPort(0));
    EXPECT_EQ(node.inPort(1)->srcPort(), first.outPort(0));
    EXPECT_EQ(node.inPort(1)->index(), 1U);
}

TEST_F(AutoInPortsModuleTest, RemovingAPortMovesTheOthersDown)
{
    auto& second = source();
    ASSERT_TRUE(MO_Scene::connect(source(), node, 0).ok());
    ASSERT_TRUE(MO_Scene::connect(second, node, 1).ok());
    EXPECT_TRUE(node.portManipulator()->removeInPort(0));
    EXPECT_EQ(node.inPort(0)->srcPort(), second.outPort(0));
    EXPECT_EQ(node.inPort(0)->index(), 0U);
    EXPECT_EQ(node.nInPorts(), 2U);
    EXPECT_FALSE(node.portManipulator()->removeInPort(7));
}

TEST_F(AutoInPortsModuleTest, TheLastPortCanBeRemovedAndComesBackFree)
{
    ASSERT_TRUE(MO_Scene::connect(source(), node, 0).ok());
    EXPECT_TRUE(node.removeInPort(1));
    EXPECT_TRUE(node.removeInPort(0));
    EXPECT_EQ(node.nInPorts(), 1U);
    EXPECT_FALSE(node.inPort(0)->isConnected());
}

TEST_F(AutoInPortsModuleTest, NodesWithFixedPortsHaveNoManipulator)
{
    EXPECT_EQ(MO_GlueModule().portManipulator(), nullptr);
    EXPECT_EQ(MO_GlueModule().nInPorts(), 2U);
}

TEST_F(AutoInPortsModuleTest, TakingASourceAwayFreesItsPort)
{
    auto& only = source();
    ASSERT_TRUE(MO_Scene::connect(only, node, 0).ok());
    scene.root().take(only);
    EXPECT_EQ(node.nInPorts(), 1U);
    EXPECT_FALSE(node.inPort(0)->isConnected());
}

} // namespace
