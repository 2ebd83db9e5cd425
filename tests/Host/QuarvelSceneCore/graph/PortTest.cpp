// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Links between ports: making and refusing them, and finding the port that delivers a picture.
#include "Host/QuarvelSceneCore/TestModules.h"

#include <gtest/gtest.h>

using namespace test_modules;

namespace {

struct PortTest : testing::Test
{
    MO_Scene scene;
    PassModule& add() { return scene.root().emplace<PassModule>(); }
    static void link(MO_Module& source, MO_Module& target, unsigned inPort = 0)
    {
        ASSERT_TRUE(MO_Scene::connect(source, target, inPort).ok());
    }
};

TEST_F(PortTest, ALinkIsSeenFromBothEnds)
{
    auto& source = add();
    auto& first = add();
    auto& second = add();
    link(source, first);
    link(source, second);

    EXPECT_EQ(first.inPort(0)->srcPort(), source.outPort(0));
    EXPECT_EQ(first.inPort(0)->srcPort()->node(), &source);
    EXPECT_EQ(source.outPort(0)->sinks(), (std::vector<MO_Port*>{first.inPort(0), second.inPort(0)}));
    EXPECT_TRUE(source.outPort(0)->isConnected());
    EXPECT_FALSE(source.inPort(0)->isConnected());
}

TEST_F(PortTest, ANewLinkTakesThePlaceOfTheOldOne)
{
    auto& before = add();
    auto& after = add();
    auto& target = add();
    link(before, target);
    link(after, target);

    EXPECT_EQ(target.inPort(0)->srcPort(), after.outPort(0));
    EXPECT_TRUE(before.outPort(0)->sinks().empty());
}

TEST_F(PortTest, DisconnectingCutsBothEnds)
{
    auto& source = add();
    auto& target = add();
    link(source, target);
    MO_Scene::disconnect(target);

    EXPECT_EQ(target.inPort(0)->srcPort(), nullptr);
    EXPECT_TRUE(source.outPort(0)->sinks().empty());
}

TEST_F(PortTest, ACircleIsRefusedAndNothingChanges)
{
    auto& first = add();
    auto& second = add();
    auto& third = add();
    link(first, second);
    link(second, third);

    const auto circle = MO_Scene::connect(third, first);
    ASSERT_FALSE(circle.ok());
    EXPECT_TRUE(circle.error().text.contains(QStringLiteral("circle")));
    EXPECT_EQ(first.inPort(0)->srcPort(), nullptr);
    EXPECT_TRUE(third.outPort(0)->sinks().empty());
    EXPECT_FALSE(MO_Scene::connect(first, first).ok());
}

TEST_F(PortTest, ARefusedLinkKeepsTheOneThatIsThere)
{
    auto& first = add();
    auto& second = add();
    auto& third = add();
    link(first, second);
    link(second, third);
    EXPECT_FALSE(MO_Scene::connect(third, second).ok());
    EXPECT_EQ(second.inPort(0)->srcPort(), first.outPort(0));
}

TEST_F(PortTest, OnlyAnInputIsLinkedToAnOutput)
{
    auto& first = add();
    auto& second = add();
    EXPECT_FALSE(first.inPort(0)->connect(*second.inPort(0)).ok());
    EXPECT_FALSE(first.outPort(0)->connect(*second.outPort(0)).ok());
    EXPECT_FALSE(first.outPort(0)->connect(*second.inPort(0)).ok());
}

TEST_F(PortTest, PortsThatAreNotThereAreRefused)
{
    auto& first = add();
    auto& second = add();
    EXPECT_FALSE(MO_Scene::connect(first, second, 1).ok());
    EXPECT_FALSE(MO_Scene::connect(first, second, 0, 1).ok());
    EXPECT_EQ(second.nInPorts(), 1U);
}

TEST_F(PortTest, LinksDoNotCrossTheBorderOfAGroup)
{
    auto& outside = add();
    auto& group = scene.root().emplace<XUGroup>();
    auto& inside = group.emplace<PassModule>();
    EXPECT_FALSE(MO_Scene::connect(outside, inside).ok());
    EXPECT_FALSE(MO_Scene::connect(inside, outside).ok());
}

TEST_F(PortTest, LinksGoWithTheirNodes)
{
    auto& source = add();
    auto& middle = add();
    auto& target = add();
    link(source, middle);
    link(middle, target);
    scene.root().take(middle).reset();
    EXPECT_EQ(target.inPort(0)->srcPort(), nullptr);
    EXPECT_TRUE(source.outPort(0)->sinks().empty());
}

TEST_F(PortTest, TheRealSourceOfAPlainLinkIsItsSource)
{
    auto& source = add();
    auto& target = add();
    link(source, target);
    EXPECT_EQ(target.inPort(0)->realSrcPort(), source.outPort(0));
    EXPECT_EQ(target.inPort(0)->realDisabledSrcPort(), source.outPort(0));
    EXPECT_EQ(source.inPort(0)->realSrcPort(), nullptr);
    EXPECT_EQ(source.outPort(0)->realSrcPort(), nullptr);
}

TEST_F(PortTest, ADisabledModulePassesOnItsFirstInputOnly)
{
    Log log;
    auto& first = add();
    auto& second = add();
    auto& both = scene.root().emplace<LoggingModule>("both", log, 2U, false, false);
    auto& target = add();
    link(first, both, 0);
    link(second, both, 1);
    link(both, target);
    both.setEnabled(false);

    EXPECT_EQ(target.inPort(0)->realSrcPort(), first.outPort(0));
    EXPECT_EQ(target.inPort(0)->realDisabledSrcPort(), both.outPort(0));
    MO_Scene::disconnect(both, 0);
    EXPECT_EQ(target.inPort(0)->realSrcPort(), nullptr);
}

TEST_F(PortTest, ADisabledLeafDeliversNothing)
{
    auto& leaf = scene.root().emplace<MO_ElementModule>();
    auto& target = add();
    link(leaf, target);
    leaf.setEnabled(false);
    EXPECT_EQ(target.inPort(0)->realSrcPort(), nullptr);
    EXPECT_EQ(target.inPort(0)->realDisabledSrcPort(), leaf.outPort(0));
}

struct GroupPortTest : PortTest
{
    // source -> group( entry -> inside -> exit ) -> target
    PassModule& source = add();
    XUGroup& group = scene.root().emplace<XUGroup>();
    PassModule& inside = group.emplace<PassModule>();
    PassModule& target = add();

    GroupPortTest()
    {
        group.addInPort();
        group.addOutPort();
        link(source, group);
        link(group.entry(), inside);
        link(inside, group.exit());
        link(group, target);
    }
};

TEST_F(GroupPortTest, TheBordersOfGroupsAreLookedThroughBothWays)
{
    EXPECT_EQ(target.inPort(0)->realSrcPort(), inside.outPort(0));
    EXPECT_EQ(inside.inPort(0)->realSrcPort(), source.outPort(0));
    EXPECT_EQ(target.inPort(0)->srcPort(), group.outPort(0));
}

TEST_F(GroupPortTest, DisabledModulesInsideAreLookedThroughToTheOutside)
{
    inside.setEnabled(false);
    EXPECT_EQ(target.inPort(0)->realSrcPort(), source.outPort(0));
    EXPECT_EQ(target.inPort(0)->realDisabledSrcPort(), inside.outPort(0));
}

TEST_F(GroupPortTest, ADisabledGroupPassesOnItsFirstInput)
{
    group.setEnabled(false);
    EXPECT_EQ(target.inPort(0)->realSrcPort(), source.outPort(0));
    EXPECT_EQ(target.inPort(0)->realDisabledSrcPort(), inside.outPort(0));
}

TEST_F(GroupPortTest, AnUnlinkedExitDeliversNothing)
{
    MO_Scene::disconnect(group.exit());
    EXPECT_EQ(target.inPort(0)->realSrcPort(), nullptr);
    EXPECT_EQ(target.inPort(0)->realDisabledSrcPort(), nullptr);
}

TEST_F(GroupPortTest, EachPortOfAGroupContinuesInItsOwnPlace)
{
    group.addInPort();
    group.addOutPort();
    auto& other = add();
    auto& otherInside = group.emplace<PassModule>();
    auto& otherTarget = add();
    link(other, group, 1);
    ASSERT_TRUE(MO_Scene::connect(group.entry(), otherInside, 0, 1).ok());
    ASSERT_TRUE(MO_Scene::connect(otherInside, group.exit(), 1).ok());
    ASSERT_TRUE(MO_Scene::connect(group, otherTarget, 0, 1).ok());
    EXPECT_EQ(otherTarget.inPort(0)->realSrcPort(), otherInside.outPort(0));
    EXPECT_EQ(otherInside.inPort(0)->realSrcPort(), other.outPort(0));
    EXPECT_EQ(target.inPort(0)->realSrcPort(), inside.outPort(0));
}

TEST_F(GroupPortTest, RemovingAPortOfAGroupCutsBothOfItsSides)
{
    EXPECT_TRUE(group.removeLastInPort());
    EXPECT_TRUE(group.removeLastOutPort());
    EXPECT_EQ(inside.inPort(0)->srcPort(), nullptr);
    EXPECT_EQ(target.inPort(0)->srcPort(), nullptr);
    EXPECT_TRUE(source.outPort(0)->sinks().empty());
    EXPECT_TRUE(inside.outPort(0)->sinks().empty());
    EXPECT_FALSE(group.removeLastInPort());
    EXPECT_FALSE(group.removeLastOutPort());
}

} // namespace
