// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Which copies of a scene are kept, and what is shown of a scene that cannot be copied.
#include "jobs/shown/SceneCopies.h"
#include "Apps/jobs/shown/ColumnScene.h"
#include "QuarvelSceneCore/graph/XUGroup.h"
#include "QuarvelSceneCore/kinds/MO_GlueModule.h"
#include "jobs/shown/ShownFrame.h"
#include "studio/preview/SceneSnapshot.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace {

class SceneCopiesTest : public ColumnScene
{
protected:
    // The copy for a change; it is counted when it has to be made.
    std::shared_ptr<const SceneCopy> copyFor(int change)
    {
        const auto copy = copies.of(change, [this] {
            ++made;
            return copySceneOf(node());
        });
        EXPECT_TRUE(copy.ok());
        return copy ? *copy : nullptr;
    }

    SceneCopies<int> copies{2};
    int made = 0;
};

} // namespace

TEST_F(SceneCopiesTest, HoldTheModuleOfTheSameName)
{
    const auto copy = copyFor(1);
    ASSERT_TRUE(copy);
    EXPECT_NE(copy->module, &node());
    EXPECT_EQ(copy->module->instanceName(), node().instanceName());
    EXPECT_EQ(copy->module->sceneCommon(), copy->scene.get());
}

TEST_F(SceneCopiesTest, TheOneThatWasNotAskedForTheLongestGivesWay)
{
    const auto first = copyFor(1);
    copyFor(2);
    EXPECT_EQ(copyFor(1), first);
    copyFor(3);
    EXPECT_EQ(made, 3);
    EXPECT_EQ(copyFor(1), first) << "2 gave way to 3";
    EXPECT_EQ(made, 3);
    copyFor(2);
    EXPECT_EQ(made, 4);
}

TEST_F(SceneCopiesTest, AnErrorIsNotKept)
{
    const auto failed = copies.of(1, []() -> UT_Result<SceneCopy> { return UT_Error{QStringLiteral("no")}; });
    ASSERT_FALSE(failed.ok());
    EXPECT_EQ(failed.error().text, QStringLiteral("no"));
    EXPECT_TRUE(copyFor(1));
}

TEST_F(SceneCopiesTest, ASceneThatIsTooLargeIsAnErrorForWhoeverShowsIt)
{
    XUGroup& root = scene().root();
    while (root.modules().size() <= XUGroup::kMaxModulesInFile)
        root.emplace<MO_GlueModule>();
    const std::string most = std::to_string(XUGroup::kMaxModulesInFile);
    const RD_RenderParameters parameters{RD_RenderParameters::IMAGE_PROCESSING_16BIT, {kWidth, kHeight}};
    const ShownModule shown(node());
    const auto frame = shown.render(1, parameters, {.drawing = true});
    ASSERT_FALSE(frame.ok());
    EXPECT_THAT(frame.error().text.toStdString(), HasSubstr(most));
    EXPECT_FALSE(shown.renderDrawing(1, parameters).ok());
    SceneSnapshot snapshot(scene(), node().instanceName());
    const auto picture = snapshot.render(1, {kWidth, kHeight}, {kWidth, kHeight}, {});
    ASSERT_FALSE(picture.ok());
    EXPECT_THAT(picture.error().text.toStdString(), HasSubstr(most));
    EXPECT_FALSE(snapshot.hasOtherBlue());
    EXPECT_FALSE(snapshot.renderChannels(1, {kWidth, kHeight}, {}).ok());
}
