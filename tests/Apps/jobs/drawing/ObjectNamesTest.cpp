// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Finding objects by name.
#include "jobs/drawing/ObjectNames.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

namespace {

const QStringList kNames{QStringLiteral("Head"), QStringLiteral("Eye left"), QStringLiteral("Eye right"),
                         QStringLiteral("arm (1)")};

ObjectSettings bevelOf(double bevel)
{
    ObjectSettings settings;
    settings.bevel = bevel;
    return settings;
}

NormalMapSettings saying(std::vector<std::pair<QString, ObjectSettings>> named)
{
    NormalMapSettings settings;
    settings.namedObjects = std::move(named);
    return settings;
}

TEST(ObjectNames, AreMeantWhateverTheirCase)
{
    EXPECT_TRUE(isNamedBy("Head", "head"));
    EXPECT_FALSE(isNamedBy("Head", "hea"));
}

TEST(ObjectNames, AreMeantByPatterns)
{
    EXPECT_TRUE(isNamedBy("Eye left", "eye*"));
    EXPECT_TRUE(isNamedBy("Eye left", "*LEFT"));
    EXPECT_TRUE(isNamedBy("arm (1)", "arm (?)"));
    EXPECT_TRUE(isNamedBy("a/b", "a*b"));
    EXPECT_FALSE(isNamedBy("Eye left", "eye?"));
}

TEST(ObjectNames, BecomeTheNumbersOfOneDrawing)
{
    const auto numbered = withNumberedObjects(saying({{"eye*", bevelOf(7.0)}}), kNames);
    ASSERT_TRUE(numbered) << numbered.error().text.toStdString();
    EXPECT_EQ(numbered->objects.size(), 2U);
    EXPECT_EQ(numbered->objects.at(2).bevel, 7.0);
    EXPECT_EQ(numbered->objects.at(3).bevel, 7.0);
    EXPECT_TRUE(numbered->namedObjects.empty());
}

TEST(ObjectNames, LetTheLastWordCountAndTheNumberMost)
{
    ObjectSettings eyes = bevelOf(7.0);
    eyes.elevation = 2.0;
    NormalMapSettings settings = saying({{"eye*", eyes}, {"eye left", bevelOf(9.0)}});
    settings.objects[3].bevel = 1.0;
    const auto numbered = withNumberedObjects(settings, kNames);
    ASSERT_TRUE(numbered);
    EXPECT_EQ(numbered->objects.at(2).bevel, 9.0);
    EXPECT_EQ(numbered->objects.at(2).elevation, 2.0);
    EXPECT_EQ(numbered->objects.at(3).bevel, 1.0);
    EXPECT_EQ(numbered->objects.at(3).elevation, 2.0);
}

TEST(ObjectNames, ThatNoObjectHasAreAnError)
{
    const auto numbered = withNumberedObjects(saying({{"nose", bevelOf(1.0)}}), kNames);
    ASSERT_FALSE(numbered);
    EXPECT_THAT(numbered.error().text.toStdString(), HasSubstr("\"nose\""));
    EXPECT_THAT(numbered.error().text.toStdString(), HasSubstr("Head, Eye left"));
}

} // namespace
