// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Which nodes define an object number, by name.
#include "Plugins/Vallorin/objects/GraphTesting.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CollectObjectDefinitionNames : public GraphTest
{};

TEST_F(CollectObjectDefinitionNames, NothingIsFoundFromNothing)
{
    std::set<QString> found = {QStringLiteral("old")};
    ObjectDefinitionDiscovery::collectObjectDefinitionNames(nullptr, 1, 1.0, found, QString());
    EXPECT_THAT(found, IsEmpty());
}

TEST_F(CollectObjectDefinitionNames, TheSetIsReplaced)
{
    ObjectDefinition& two = define(2, "Arm");
    std::set<QString> found = {QStringLiteral("old")};
    ObjectDefinitionDiscovery::collectObjectDefinitionNames(&two, 2, 1.0, found, QString());
    EXPECT_THAT(found, ElementsAre(QStringLiteral("Arm")));
}

TEST_F(CollectObjectDefinitionNames, TheEnabledDefinitionsOfTheNumberAreNamedInOrder)
{
    auto& node = make<Vallorin>();
    auto& disabled = define(2, "Off");
    link(define(2, "Leg"), node, 0);
    link(define(3, "Head"), node, 1);
    link(define(2, "Arm"), node, 2);
    link(disabled, node, 3);
    disabled.setEnabled(false);
    EXPECT_THAT(names(&node, 2), ElementsAre("Arm", "Leg"));
    EXPECT_THAT(names(&node, 3), ElementsAre("Head"));
    EXPECT_THAT(names(&node, 4), IsEmpty());
}

TEST_F(CollectObjectDefinitionNames, ASuffixIsTakenOutWhereverItOccurs)
{
    ObjectDefinition& definition = define(2, "Obj-Definition-Definition");
    EXPECT_THAT(names(&definition, 2, "-Definition"), ElementsAre("Obj"));
    definition.setInstanceName(QStringLiteral("The-Definition of it"));
    EXPECT_THAT(names(&definition, 2, "-Definition"), ElementsAre("The of it"));
}

TEST_F(CollectObjectDefinitionNames, TheSuffixIsCaseSensitive)
{
    EXPECT_THAT(names(&define(2, "Obj-definition"), 2, "-Definition"), ElementsAre("Obj-definition"));
}

TEST_F(CollectObjectDefinitionNames, WithoutSuffixNamesStayWhole)
{
    EXPECT_THAT(names(&define(2, "Obj-Definition"), 2), ElementsAre("Obj-Definition"));
}

TEST_F(CollectObjectDefinitionNames, NamesThatBecomeEqualAreOne)
{
    ObjectDefinition& first = define(2, "Arm");
    chain(first, define(2, "Arm-Definition"));
    EXPECT_THAT(names(&first, 2, "-Definition"), ElementsAre("Arm"));
}

TEST_F(CollectObjectDefinitionNames, AnAnimatedNumberIsThatOfTheFrame)
{
    ObjectDefinition& definition = defineAnimated(3, 8, 10.0);
    definition.setInstanceName(QStringLiteral("Arm"));
    EXPECT_THAT(names(&definition, 8, "", 9.0), IsEmpty());
    EXPECT_THAT(names(&definition, 8, "", 10.0), ElementsAre("Arm"));
}

TEST_F(CollectObjectDefinitionNames, OfOtherModulesTheFirstConnectedInputIsFollowed)
{
    auto& composite = make<MO_CompositeModule>();
    link(define(2, "Arm"), composite, 1);
    link(define(2, "Leg"), composite, 2);
    EXPECT_THAT(names(&composite, 2), ElementsAre("Arm"));
}

TEST_F(CollectObjectDefinitionNames, TheSecondInputOfAGlueModuleIsInvisible)
{
    auto& glue = make<MO_GlueModule>();
    link(element("Hero"), glue, 0);
    link(define(2), glue, 1);
    EXPECT_THAT(names(&glue, 2), IsEmpty());
}

TEST_F(CollectObjectDefinitionNames, WalksPassThroughSeveralVallorinNodes)
{
    auto& last = make<Vallorin>();
    auto& first = make<Vallorin>();
    link(define(2, "Arm"), last, 0);
    link(first, last, 2);
    link(define(2, "Leg"), first, 1);
    EXPECT_THAT(names(&last, 2), ElementsAre("Arm", "Leg"));
}

} // namespace
