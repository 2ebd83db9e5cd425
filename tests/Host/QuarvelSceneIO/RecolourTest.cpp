// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Scenes that were loaded are edited as those that were made: their drawings follow their palettes.
#include "Host/QuarvelSceneIO/TestScenes.h"

#include "QuarvelSceneCore/editing/MO_PaletteCommands.h"

using namespace test_scenes;

namespace {

TEST(LoadedScene, CanBeRecolouredAndSaved)
{
    const ScenePlace place;
    save(*makeScene(1), place.folder);
    const auto loaded = SIO_loadScene(place.folder);
    ASSERT_TRUE(loaded) << qPrintable(loaded.error().text);
    MO_Scene& scene = *loaded->scene;
    const CM_SharedPtr<CM_Palette> before = scene.palettes().front();
    const CM_Rgba blue{0, 0, 200, 255};
    const auto change = MO_recolorCmd(scene, before, before->colors().front()->GetColorId(), blue);
    ASSERT_TRUE(change);
    change->execute();
    const CM_SharedPtr<CM_Palette> after = scene.palettes().front();
    int drawings = 0;
    scene.root().forEachModule([&](const MO_Module& module) {
        if (const auto* const element = dynamic_cast<const MO_ElementModule*>(&module))
            for (const auto& [name, drawing] : element->drawings()) {
                EXPECT_NE(drawing->palette(), before) << qPrintable(element->instanceName());
                drawings += drawing->palette() == after ? 1 : 0;
            }
    });
    EXPECT_GT(drawings, 0);
    const auto saved = SIO_saveScene(scene, place.folder);
    EXPECT_TRUE(saved) << qPrintable(saved.error().text);
    change->undo();
    EXPECT_EQ(scene.palettes().front(), before);
}

} // namespace
