// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the node contributes when a frame is scripted and rendered: its requests, and the parameters of its render
// handler.
#include "ObjectDefinition/ObjectDefinition.h"
#include "Plugins/Vallorin/parameters/TextPrinting.h"
#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "QuarvelSceneCore/attributes/AT_StringAttr.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneCore/interfaces/RD_ScriptContext.h"
#include "QuarvelSceneCore/interfaces/node_render.h"
#include "node/Vallorin.h"
#include "node/VallorinRequestHandler.h"
#include "parameters/NormalQuality.h"
#include "parameters/VallorinImpl.h"
#include "render/VallorinRenderHandler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Has one value before a frame and another from it on.
class Switch : public AT_ScalarSimpleAttrSurrogate
{
public:
    std::optional<double> value(double frame) const override { return frame < 10.0 ? 1.0 : 2.0; }
};

RD_RenderJob jobOf(int imageProcessingFormat)
{
    RD_RenderParameters parameters;
    parameters.imageProcessingFormat = imageProcessingFormat;
    return RD_RenderJob(parameters);
}

class VallorinRendering : public testing::Test
{
protected:
    VallorinRendering() { EXPECT_TRUE(MO_Scene::connect(definition, node, 0).ok()); }

    UT_SharedPtr<VallorinRenderHandler> renderHandler(double frame, int imageProcessingFormat = 0,
                                                      const std::vector<node_render::PortRenderInfo>& ports = {})
    {
        const RD_ScriptContext context({frame}, jobOf(imageProcessingFormat));
        return node.createSoftRenderInterface(context, ports).dynamicCast<VallorinRenderHandler>();
    }

    static AT_Curve fromTo(double first, double last)
    {
        AT_Curve curve;
        curve.setKey({1.0, first, AT_Curve::Interpolation::LINEAR, {}, {}, {}});
        curve.setKey({11.0, last, AT_Curve::Interpolation::LINEAR, {}, {}, {}});
        return curve;
    }

    MO_Scene scene;
    Vallorin& node = scene.root().emplace<Vallorin>();
    ObjectDefinition& definition = scene.root().emplace<ObjectDefinition>();
};

TEST_F(VallorinRendering, TheNodesRequestComesAfterThoseUpstream)
{
    RD_ScriptContext context({1.0}, jobOf(0));
    context.scriptPort(node, 0);
    std::vector<MO_Module*> owners;
    for (const RD_ScriptContext::Request& request : context.requests())
        owners.push_back(request->owner());
    EXPECT_THAT(owners, ElementsAre(&definition, &node));
    EXPECT_NE(dynamic_cast<VallorinRequestHandler*>(&context.requests().back()->handler()), nullptr);
    EXPECT_EQ(context.requestsFor(node, 0).size(), 1U);
}

TEST_F(VallorinRendering, ADisabledNodeInsertsNothingNotEvenForTheNodesUpstream)
{
    node.setEnabled(false);
    RD_ScriptContext context({1.0}, jobOf(0));
    context.scriptPort(node, 0);
    EXPECT_THAT(context.requests(), IsEmpty());
}

TEST_F(VallorinRendering, TextsAndSwitchesAreTheLocalValues)
{
    Vallorin::Impl& impl = *node.impl();
    impl.colorInformation->setLocalValue(QStringLiteral("colours"));
    impl.objectList->setLocalValue(QStringLiteral("objects"));
    for (const bool on : {true, false}) {
        impl.generateNormals->setLocalValue(on);
        impl.useTruckFactor->setLocalValue(!on);
        impl.depthInBlue->setLocalValue(on);
        impl.clipBlurredWithGeometry->setLocalValue(!on);
        const auto handler = renderHandler(1.0);
        ASSERT_NE(handler, nullptr);
        EXPECT_EQ(handler->colorInformation, QStringLiteral("colours"));
        EXPECT_EQ(handler->objectInformation, QStringLiteral("objects"));
        EXPECT_EQ(handler->generateNormals, on);
        EXPECT_EQ(handler->useTruckFactor, !on);
        EXPECT_EQ(handler->depthInBlue, on);
        EXPECT_EQ(handler->clipBlurredWithGeometry, !on);
    }
}

TEST_F(VallorinRendering, TheMultipliersAreThoseOfTheFrame)
{
    Vallorin::Impl& impl = *node.impl();
    impl.blurScale->setCurve(fromTo(0.0, 10.0));
    impl.elevationScale->setCurve(fromTo(1.0, 3.0));
    impl.elevationSmoothness->setCurve(fromTo(20.0, 10.0));
    const auto handler = renderHandler(6.0);
    EXPECT_EQ(handler->blurScale, 5.0);
    EXPECT_EQ(handler->elevationScale, 2.0);
    EXPECT_EQ(handler->elevationSmoothness, 15.0);
}

TEST_F(VallorinRendering, ADrivenSwitchStillCountsWithItsLocalValue)
{
    node.impl()->depthInBlue->setSurrogate(UT_makeShared<Switch>());
    EXPECT_FALSE(renderHandler(1.0)->depthInBlue);
}

TEST_F(VallorinRendering, TheQualityIsTheDrivenOneOrElseTheLocalOne)
{
    node.impl()->normalQuality->setLocalValue(HIGH_NORMAL_QUALITY);
    EXPECT_EQ(renderHandler(1.0)->normalQuality, 2);
    node.impl()->normalQuality->setSurrogate(UT_makeShared<Switch>());
    EXPECT_EQ(renderHandler(1.0)->normalQuality, 1);
    EXPECT_EQ(renderHandler(10.0)->normalQuality, 2);
}

TEST_F(VallorinRendering, TheSnapshotDoesNotFollowTheNode)
{
    const auto handler = renderHandler(1.0);
    node.impl()->objectList->setLocalValue(QStringLiteral("later"));
    node.impl()->blurScale->setLocalValue(9.0);
    EXPECT_EQ(handler->objectInformation, QString());
    EXPECT_EQ(handler->blurScale, 1.0);
}

TEST_F(VallorinRendering, AFloatJobTakesFloatCelsAlone)
{
    const auto module = renderHandler(1.0, 1)->moduleInterface();
    EXPECT_EQ(module.node, &node);
    EXPECT_TRUE(module.acceptsFloatCels);
    EXPECT_FALSE(module.accepts16BitCels);
    EXPECT_FALSE(module.acceptsDepthCels);
    EXPECT_EQ(module.emptyDepthRange, std::pair(1.0, -1.0));
}

TEST_F(VallorinRendering, AnyOtherJobTakes16BitCelsAlone)
{
    for (const int format : {0, 2, -1}) {
        const auto module = renderHandler(1.0, format)->moduleInterface();
        EXPECT_EQ(module.node, &node);
        EXPECT_FALSE(module.acceptsFloatCels) << format;
        EXPECT_TRUE(module.accepts16BitCels) << format;
        EXPECT_FALSE(module.acceptsDepthCels) << format;
        EXPECT_EQ(module.emptyDepthRange, std::pair(1.0, -1.0));
    }
}

TEST_F(VallorinRendering, ThePortsAreHandedOnWithTheFrame)
{
    AT_Curve curve;
    curve.setKey({1.0, 3.0, AT_Curve::Interpolation::HOLD, {}, {}, {}});
    curve.setKey({10.0, 8.0, AT_Curve::Interpolation::HOLD, {}, {}, {}});
    definition.objectNumber()->setCurve(curve);
    const std::vector<node_render::PortRenderInfo> ports = {{&definition, 0, definition.outPort(0)},
                                                            {nullptr, 1, nullptr}};
    EXPECT_THAT(renderHandler(9.0, 0, ports)->portObjectIds, ElementsAre(3, -1));
    EXPECT_THAT(renderHandler(10.0, 0, ports)->portObjectIds, ElementsAre(8, -1));
}

} // namespace
