// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Which object numbers are defined upstream of a node.
#include "Plugins/Vallorin/objects/GraphTesting.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CollectObjectIds : public GraphTest
{};

TEST_F(CollectObjectIds, NothingIsFoundFromNothing)
{
    std::set<int> found = {7};
    ObjectDefinitionDiscovery::collectObjectIds(nullptr, 1.0, found);
    EXPECT_THAT(found, IsEmpty());
}

TEST_F(CollectObjectIds, TheSetIsReplaced)
{
    ObjectDefinition& two = define(2);
    std::set<int> found = {7};
    ObjectDefinitionDiscovery::collectObjectIds(&two, 1.0, found);
    EXPECT_THAT(found, ElementsAre(2));
}

TEST_F(CollectObjectIds, EveryDefinitionOfAChainCounts)
{
    ObjectDefinition& two = define(2, "Two");
    chain(two, define(-3, "Below"), define(0, "Cut-out"), define(5, "Five"), element("Hero"));
    EXPECT_THAT(ids(&two), ElementsAre(-3, 0, 2, 5));
}

TEST_F(CollectObjectIds, EveryInputOfAVallorinNodeIsFollowed)
{
    auto& node = make<Vallorin>();
    link(define(9, "Nine"), node, 0);
    link(define(2, "Two"), node, 1);
    link(define(9, "Nine again"), node, 3);
    EXPECT_THAT(ids(&node), ElementsAre(2, 9)) << "an unconnected input in between is skipped";
}

TEST_F(CollectObjectIds, WalksPassThroughSeveralVallorinNodes)
{
    auto& last = make<Vallorin>();
    auto& first = make<Vallorin>();
    link(define(1, "One"), last, 0);
    link(first, last, 1);
    link(define(2, "Two"), first, 0);
    link(define(3, "Three"), first, 1);
    EXPECT_THAT(ids(&last), ElementsAre(1, 2, 3));
    EXPECT_THAT(ids(&first), ElementsAre(2, 3));
}

TEST_F(CollectObjectIds, OfOtherModulesTheFirstConnectedInputIsFollowed)
{
    auto& composite = make<MO_CompositeModule>();
    link(define(2, "Two"), composite, 1);
    link(define(5, "Five"), composite, 2);
    EXPECT_THAT(ids(&composite), ElementsAre(2)) << "the unconnected first one is skipped";
    link(element("Hero"), composite, 0);
    EXPECT_THAT(ids(&composite), IsEmpty());
}

TEST_F(CollectObjectIds, TheSecondInputOfAGlueModuleIsInvisible)
{
    auto& glue = make<MO_GlueModule>();
    link(element("Hero"), glue, 0);
    link(define(2), glue, 1);
    EXPECT_THAT(ids(&glue), IsEmpty());
}

TEST_F(CollectObjectIds, ADisabledDefinitionIsAModuleLikeAnyOther)
{
    ObjectDefinition& two = define(2, "Two");
    chain(two, define(5, "Five"));
    two.setEnabled(false);
    EXPECT_THAT(ids(&two), ElementsAre(5));
}

TEST_F(CollectObjectIds, ADisabledCompositeIsMetAndNotLookedThrough)
{
    auto& node = make<Vallorin>();
    auto& composite = make<MO_CompositeModule>();
    chain(node, composite);
    link(define(4), composite, 1);
    composite.setEnabled(false);
    EXPECT_THAT(ids(&node), ElementsAre(4)) << "looked through, it would deliver its unconnected first input";
}

TEST_F(CollectObjectIds, AnAnimatedNumberIsThatOfTheFrame)
{
    ObjectDefinition& definition = defineAnimated(3, 8, 10.0);
    EXPECT_THAT(ids(&definition, 9.0), ElementsAre(3));
    EXPECT_THAT(ids(&definition, 10.0), ElementsAre(8));
}

TEST_F(CollectObjectIds, AnElementDefinesNothing)
{
    EXPECT_THAT(ids(&element("Hero")), IsEmpty());
}

TEST_F(CollectObjectIds, GroupsAreLookedThrough)
{
    auto& node = make<Vallorin>();
    auto& group = make<XUGroup>();
    group.addInPort();
    group.addOutPort();
    auto& inner = group.emplace<ObjectDefinition>();
    inner.objectNumber()->setLocalValue(6);
    chain(node, group, define(5));
    link(group.entry(), inner, 0);
    link(inner, group.exit(), 0);
    EXPECT_THAT(ids(&node), ElementsAre(5, 6));
}

} // namespace
