// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SmallScene: a square in a frame of 2 : 1, with a normal map whose bevel grows from frame 1 to frame 48.
#pragma once

#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/graph/MO_Port.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "TestFolder.h"
#include "jobs/drawing/ReadDrawing.h"
#include "jobs/frames/RenderFrames.h"

#include <gtest/gtest.h>

/// A test with a temporary folder and the scene.
class SmallScene : public testing::Test, protected TestFolder
{
protected:
    void SetUp() override
    {
        write("square.svg", R"(<svg xmlns="http://www.w3.org/2000/svg" width="64" height="32">
  <rect x="0" y="8" width="32" height="16" fill="#c06030"/></svg>)");
        UT_Result<ReadDrawing> read = readDrawing(path("square.svg"), {.objects = ObjectChoice::ONE});
        ASSERT_TRUE(read) << read.error().text.toStdString();
        NormalMapSettings settings;
        settings.allObjects.bevel = 60.0;
        // The blur may reach outside the drawing.
        settings.clipBlurredWithGeometry = false;
        UT_Result<DrawingScene> built = DrawingScene::build(read->drawing, settings);
        ASSERT_TRUE(built) << built.error().text.toStdString();
        _scene.emplace(std::move(*built));
        _scene->scene().setFrameRange(1, 48);
        AT_Curve grows;
        grows.setKey({.frame = 1, .value = 0.2, .in = {}, .out = {}, .unknown = {}});
        grows.setKey({.frame = 48, .value = 2.0, .in = {}, .out = {}, .unknown = {}});
        auto* const blur = dynamic_cast<AT_DoubleAttr*>(node().findAttr(QStringLiteral("BlurScale")));
        ASSERT_NE(blur, nullptr);
        ASSERT_TRUE(blur->setCurve(grows));
    }

    MO_Scene& scene() const { return _scene->scene(); }
    MO_Module& node() const { return _scene->normalMap(); }
    MO_ElementModule& element() const { return *_scene->elements().front(); }
    MO_Module& drawing() const { return _scene->flatDrawing(); }

    /// Settings for frames of 64 x 32 pixels in the folder; the pattern is relative to it.
    RenderFramesSettings settings(const char* pattern, const std::vector<int>& frames) const
    {
        RenderFramesSettings made;
        made.frames = frames;
        made.parameters.resolution = {64, 32};
        const auto file = FrameFileName::parse(path(pattern));
        EXPECT_TRUE(file) << file.error().text.toStdString();
        made.file = *file;
        made.picture.floatFile = QString::fromUtf8(pattern).endsWith(QLatin1String(".exr"));
        made.picture.elevation = needsElevationInBlue(made.picture);
        made.picture.scene = QStringLiteral("small.scene");
        made.picture.node = QStringLiteral("Normal-Map");
        return made;
    }

    RenderFramesResult render(const RenderFramesSettings& settings, const RenderFramesWatcher& watcher = {}) const
    {
        return renderFrames(ShownModule(node()), settings, watcher);
    }

private:
    std::optional<DrawingScene> _scene;
};
