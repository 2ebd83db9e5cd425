// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Which elements with vector drawings belong to an object number.
#include "Plugins/Vallorin/objects/GraphTesting.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FindConnectedElements : public GraphTest
{};

TEST_F(FindConnectedElements, NothingIsFoundFromNothing)
{
    std::set<QString> found = {QStringLiteral("old")};
    ObjectDefinitionDiscovery::findConnectedElements(nullptr, 1, 1.0, found);
    EXPECT_THAT(found, IsEmpty());
}

TEST_F(FindConnectedElements, TheSetIsReplaced)
{
    ObjectDefinition& two = define(2);
    chain(two, element("Hero"));
    std::set<QString> found = {QStringLiteral("old")};
    ObjectDefinitionDiscovery::findConnectedElements(&two, 2, 1.0, found);
    EXPECT_THAT(found, ElementsAre(QStringLiteral("Hero")));
}

TEST_F(FindConnectedElements, AnElementBelongsToTheDefinitionNearestToIt)
{
    ObjectDefinition& two = define(2, "Two");
    chain(two, define(5, "Five"), element("Hero"));
    EXPECT_THAT(elements(&two, 5), ElementsAre("Hero"));
    EXPECT_THAT(elements(&two, 2), IsEmpty());
}

TEST_F(FindConnectedElements, ADisabledDefinitionGivesNoNumber)
{
    ObjectDefinition& two = define(2, "Two");
    ObjectDefinition& five = define(5, "Five");
    chain(two, five, element("Hero"));
    five.setEnabled(false);
    EXPECT_THAT(elements(&two, 2), ElementsAre("Hero"));
}

TEST_F(FindConnectedElements, EveryInputOfAVallorinNodeIsFollowed)
{
    auto& node = make<Vallorin>();
    auto& left = define(2, "Left");
    auto& right = define(2, "Right");
    chain(left, element("Leg"));
    chain(right, element("Arm"));
    link(left, node, 0);
    link(right, node, 1);
    EXPECT_THAT(elements(&node, 2), ElementsAre("Arm", "Leg"));
}

TEST_F(FindConnectedElements, ANumberAppliesUpstreamOfItsDefinitionOnly)
{
    auto& node = make<Vallorin>();
    auto& definition = define(2);
    chain(definition, element("Arm"));
    link(definition, node, 0);
    link(element("Free"), node, 1);
    EXPECT_THAT(elements(&node, 2), ElementsAre("Arm"));
}

TEST_F(FindConnectedElements, AnElementUnderNoDefinitionIsNotListed)
{
    auto& node = make<Vallorin>();
    link(element("Free"), node, 0);
    EXPECT_THAT(elements(&node, 1), IsEmpty());
}

TEST_F(FindConnectedElements, AnUnconnectedInputEndsAVallorinNodesInputs)
{
    auto& node = make<Vallorin>();
    auto& definition = define(2);
    chain(definition, element("Arm"));
    link(definition, node, 1);
    EXPECT_THAT(elements(&node, 2), IsEmpty());
    EXPECT_THAT(ids(&node), ElementsAre(2)) << "the collectors skip it";
}

TEST_F(FindConnectedElements, AnUnconnectedFirstInputEndsAPlainModulesInputs)
{
    auto& composite = make<MO_CompositeModule>();
    auto& definition = define(2);
    chain(definition, element("Arm"));
    link(definition, composite, 1);
    EXPECT_THAT(elements(&composite, 2), IsEmpty());
    EXPECT_THAT(ids(&composite), ElementsAre(2)) << "the collectors skip it";
}

TEST_F(FindConnectedElements, TheSecondInputOfACompositeIsInvisible)
{
    auto& composite = make<MO_CompositeModule>();
    auto& definition = define(2);
    chain(definition, element("Arm"));
    link(element("Hero"), composite, 0);
    link(definition, composite, 1);
    EXPECT_THAT(elements(&composite, 2), IsEmpty());
}

TEST_F(FindConnectedElements, BothInputsOfAGlueModuleAreFollowed)
{
    auto& glue = make<MO_GlueModule>();
    auto& upper = define(2, "Upper");
    auto& lower = define(2, "Lower");
    chain(upper, element("Upper Arm"));
    chain(lower, element("Lower Arm"));
    link(upper, glue, 0);
    link(lower, glue, 1);
    EXPECT_THAT(elements(&glue, 2), ElementsAre("Lower Arm", "Upper Arm"));
}

TEST_F(FindConnectedElements, ADefinitionDownstreamOfAGlueModuleAppliesToBothInputs)
{
    auto& definition = define(2);
    auto& glue = make<MO_GlueModule>();
    chain(definition, glue);
    link(element("Upper Arm"), glue, 0);
    link(element("Lower Arm"), glue, 1);
    EXPECT_THAT(elements(&definition, 2), ElementsAre("Lower Arm", "Upper Arm"));
}

TEST_F(FindConnectedElements, TheNumberOfAGlueModulesFirstInputDoesNotReachTheSecond)
{
    auto& glue = make<MO_GlueModule>();
    auto& definition = define(2);
    chain(definition, element("Upper Arm"));
    link(definition, glue, 0);
    link(element("Lower Arm"), glue, 1);
    EXPECT_THAT(elements(&glue, 2), ElementsAre("Upper Arm"));
}

TEST_F(FindConnectedElements, AnUnconnectedFirstInputEndsAGlueModulesInputs)
{
    auto& glue = make<MO_GlueModule>();
    auto& definition = define(2);
    chain(definition, element("Arm"));
    link(definition, glue, 1);
    EXPECT_THAT(elements(&glue, 2), IsEmpty());
}

TEST_F(FindConnectedElements, TheThirdInputOfAGlueModuleIsInvisible)
{
    auto& glue = scene.root().emplace<MO_OpaqueModule>(QStringLiteral("GLUE"));
    auto& definition = define(2);
    ASSERT_TRUE(glue.needInPort(2) && glue.needOutPort(0));
    chain(definition, glue);
    link(element("First"), glue, 0);
    link(element("Second"), glue, 1);
    link(element("Third"), glue, 2);
    EXPECT_THAT(elements(&definition, 2), ElementsAre("First", "Second"));
}

TEST_F(FindConnectedElements, TheExtensionOfVectorDrawingsMayBeInAnyCase)
{
    for (const char* extension : {"KVR", "kvr", "Kvr"}) {
        ObjectDefinition& definition = define(2, extension);
        chain(definition, element("Hero", extension));
        EXPECT_THAT(elements(&definition, 2), ElementsAre("Hero")) << extension;
    }
}

TEST_F(FindConnectedElements, ElementsOfOtherFormatsAreNotListed)
{
    for (const char* extension : {"PNG", "KVRX", ""}) {
        ObjectDefinition& definition = define(2, extension[0] == '\0' ? "None" : extension);
        chain(definition, element("Hero", extension));
        EXPECT_THAT(elements(&definition, 2), IsEmpty()) << extension;
    }
}

TEST_F(FindConnectedElements, AnAnimatedNumberIsThatOfTheFrame)
{
    ObjectDefinition& definition = defineAnimated(3, 8, 10.0);
    chain(definition, element("Hero"));
    EXPECT_THAT(elements(&definition, 8, 9.0), IsEmpty());
    EXPECT_THAT(elements(&definition, 8, 10.0), ElementsAre("Hero"));
}

TEST_F(FindConnectedElements, WalksPassThroughSeveralVallorinNodes)
{
    auto& last = make<Vallorin>();
    auto& first = make<Vallorin>();
    auto& definition = define(2);
    chain(definition, element("Leg"));
    link(first, last, 0);
    link(element("Free"), first, 0);
    link(definition, first, 1);
    EXPECT_THAT(elements(&last, 2), ElementsAre("Leg"));
}

TEST_F(FindConnectedElements, DisabledModulesAreLookedThrough)
{
    auto& node = make<Vallorin>();
    auto& composite = make<MO_CompositeModule>();
    auto& definition = define(2);
    chain(node, composite);
    link(definition, composite, 1);
    chain(definition, element("Arm"));
    composite.setEnabled(false);
    EXPECT_THAT(elements(&node, 2), IsEmpty()) << "its first input delivers nothing";
}

TEST_F(FindConnectedElements, GroupsAreLookedThrough)
{
    auto& node = make<Vallorin>();
    auto& group = make<XUGroup>();
    group.addInPort();
    group.addOutPort();
    auto& inner = group.emplace<ObjectDefinition>();
    inner.objectNumber()->setLocalValue(6);
    chain(node, group, element("Hero"));
    link(group.entry(), inner, 0);
    link(inner, group.exit(), 0);
    EXPECT_THAT(elements(&node, 6), ElementsAre("Hero"));
}

} // namespace
