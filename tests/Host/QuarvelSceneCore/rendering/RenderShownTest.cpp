// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Which modules learn that only a part of the picture is looked at: the one that makes it, and none before it.
#include "QuarvelSceneCore/rendering/RD_RenderShown.h"

#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneCore/interfaces/MO_SoftContext.h"
#include "QuarvelSceneCore/interfaces/MO_SoftRenderInterface.h"
#include "QuarvelSceneCore/kinds/MO_DisplayModule.h"

#include <gtest/gtest.h>

#include <optional>

using Math::Box2di;

namespace {

constexpr RD_RenderParameters kParameters{.resolution = {8, 4}, .margins = {3, 3, 3, 3}};
constexpr Box2di kFrame(0, 0, 8, 4);

// Notes down which part of its picture is shown.
class Maker : public MO_Module
{
public:
    Maker() { addInImagePort(); }
    QString keyword() const override { return QStringLiteral("MAKER"); }
    QString baseDisplayName() const override { return QStringLiteral("Maker"); }
    UT_SharedPtr<MO_SoftRenderInterface>
    createSoftRenderInterface(const RD_ScriptContext&, const std::vector<node_render::PortRenderInfo>&) override
    {
        return UT_makeShared<Interface>(seen);
    }

    std::optional<Box2di> seen;

private:
    class Interface : public MO_SoftRenderInterface
    {
    public:
        explicit Interface(std::optional<Box2di>& seen) : _seen(seen) {}
        void softRender(MO_SoftContext&, int) override {}
        void finish(MO_SoftContext& context) override { _seen = context.shownRect(); }

    private:
        std::optional<Box2di>& _seen;
    };
};

struct RenderShown : testing::Test
{
    MO_Scene scene;
    Maker& inner = scene.root().emplace<Maker>();
    Maker& outer = scene.root().emplace<Maker>();
    MO_DisplayModule& display = scene.root().emplace<MO_DisplayModule>();

    void SetUp() override
    {
        ASSERT_TRUE(MO_Scene::connect(inner, outer, 0).ok());
        ASSERT_TRUE(MO_Scene::connect(outer, display, 0).ok());
    }
};

TEST_F(RenderShown, TellsTheModuleThatMakesThePicture)
{
    ASSERT_TRUE(RD_renderShown(outer, 1.0, kParameters, kFrame));
    EXPECT_EQ(outer.seen, kFrame);
}

TEST_F(RenderShown, TellsItBehindModulesThatPassThePictureOn)
{
    ASSERT_TRUE(RD_renderShown(display, 1.0, kParameters, kFrame));
    EXPECT_EQ(outer.seen, kFrame);
}

// What lies outside may change the pixels inside.
TEST_F(RenderShown, AsksForAllOfAModulesInputs)
{
    inner.seen = kFrame;
    ASSERT_TRUE(RD_renderShown(outer, 1.0, kParameters, kFrame));
    EXPECT_EQ(inner.seen, std::nullopt);
}

TEST_F(RenderShown, IsNotWhatAnOrdinaryRenderDoes)
{
    outer.seen = kFrame;
    ASSERT_TRUE(RD_SoftRenderer::render(outer, 1.0, kParameters));
    EXPECT_EQ(outer.seen, std::nullopt);
}

} // namespace
