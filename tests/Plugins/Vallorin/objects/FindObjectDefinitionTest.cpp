// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Which definition governs an input: the enabled one furthest upstream on the chain of first inputs.
#include "Plugins/Vallorin/objects/GraphTesting.h"

namespace {

using ObjectDefinitionDiscovery::findObjectDefinition;

class FindObjectDefinition : public GraphTest
{};

TEST_F(FindObjectDefinition, NothingIsFoundFromNothing)
{
    EXPECT_EQ(findObjectDefinition(nullptr), nullptr);
}

TEST_F(FindObjectDefinition, TheStartModuleItselfCounts)
{
    ObjectDefinition& two = define(2);
    EXPECT_EQ(findObjectDefinition(&two), &two);
}

TEST_F(FindObjectDefinition, TheDefinitionFurthestUpstreamGoverns)
{
    ObjectDefinition& two = define(2, "Two");
    ObjectDefinition& five = define(5, "Five");
    chain(two, five, element("Hero"));
    EXPECT_EQ(findObjectDefinition(&two), &five);
}

TEST_F(FindObjectDefinition, ADisabledDefinitionIsPassedOver)
{
    ObjectDefinition& two = define(2, "Two");
    ObjectDefinition& five = define(5, "Five");
    chain(two, five, element("Hero"));
    five.setEnabled(false);
    EXPECT_EQ(findObjectDefinition(&two), &two);
}

TEST_F(FindObjectDefinition, ADisabledDefinitionDoesNotEndTheChain)
{
    ObjectDefinition& two = define(2, "Two");
    ObjectDefinition& five = define(5, "Five");
    chain(two, five);
    two.setEnabled(false);
    EXPECT_EQ(findObjectDefinition(&two), &five);
    five.setEnabled(false);
    EXPECT_EQ(findObjectDefinition(&two), nullptr);
}

TEST_F(FindObjectDefinition, OtherModulesArePassedOnTheirFirstInput)
{
    auto& composite = make<MO_CompositeModule>();
    auto& glue = make<MO_GlueModule>();
    ObjectDefinition& two = define(2);
    chain(composite, glue, two);
    EXPECT_EQ(findObjectDefinition(&composite), &two);
}

TEST_F(FindObjectDefinition, SecondInputsAreInvisible)
{
    auto& composite = make<MO_CompositeModule>();
    auto& glue = make<MO_GlueModule>();
    chain(composite, glue, element("Hero"));
    link(define(2, "Two"), composite, 1);
    link(define(5, "Five"), glue, 1);
    EXPECT_EQ(findObjectDefinition(&composite), nullptr);
}

TEST_F(FindObjectDefinition, AnUnconnectedFirstInputEndsTheChain)
{
    auto& composite = make<MO_CompositeModule>();
    link(define(2), composite, 1);
    EXPECT_EQ(findObjectDefinition(&composite), nullptr);
}

TEST_F(FindObjectDefinition, NothingIsFoundFromAVallorinNode)
{
    auto& node = make<Vallorin>();
    chain(node, define(2));
    EXPECT_EQ(findObjectDefinition(&node), nullptr);
}

TEST_F(FindObjectDefinition, AVallorinNodeUpstreamEndsTheChain)
{
    ObjectDefinition& two = define(2, "Two");
    chain(two, make<Vallorin>(), define(5, "Five"));
    EXPECT_EQ(findObjectDefinition(&two), &two);
}

TEST_F(FindObjectDefinition, GroupsAreLookedThrough)
{
    auto& composite = make<MO_CompositeModule>();
    auto& group = make<XUGroup>();
    group.addInPort();
    group.addOutPort();
    auto& inner = group.emplace<ObjectDefinition>();
    ObjectDefinition& outer = define(5);
    chain(composite, group);
    link(group.entry(), inner, 0);
    link(inner, group.exit(), 0);
    EXPECT_EQ(findObjectDefinition(&composite), &inner);
    EXPECT_EQ(findObjectDefinition(&group), &inner) << "a walk may start at a group";
    link(outer, group, 0);
    EXPECT_EQ(findObjectDefinition(&composite), &outer);
}

} // namespace
