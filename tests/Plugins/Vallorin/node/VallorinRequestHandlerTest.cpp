// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What happens to a drawing that passes through the node's request.
#include "node/VallorinRequestHandler.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "ObjectDefinition/ObjectDefinitionEntry.h"
#include "ObjectDefinition/ObjectDefinitionMessage.h"
#include "Plugins/Vallorin/node/CelTesting.h"
#include "QuarvelSceneCore/attributes/AT_StringAttr.h"
#include "node/Vallorin.h"

namespace {

using CelTesting::pixelAt;
using Context = MO_RenderingRequestHandler::BaseContext;
using Pixel16 = CEL_PixelRGBA16;

/// Says that the object is switched off.
class SwitchedOff : public CEL_Message
{};

class VallorinRequest : public testing::Test
{
protected:
    static CA_CelRef drawingCel()
    {
        auto cel = UT_makeShared<CEL_Cel>();
        cel->setRepresentation(CelTesting::rowDrawing());
        return cel;
    }

    static void define(Context& context, int id, double level, bool scaleByCoverage)
    {
        context.addObject(ObjectDefinition::objectDefinitionMessageId(),
                          UT_makeShared<ObjectDefinitionEntry>(id, level, scaleByCoverage));
    }

    static void switchOff(Context& context)
    {
        context.addObject(ObjectDefinition::objectDisableMessageId(), UT_makeShared<SwitchedOff>());
    }

    static UT_SharedPtr<ObjectDefinitionMessage> messageOf(const CA_CelRef& cel)
    {
        return cel->findMessage(ObjectDefinition::objectDefinitionMessageId()).dynamicCast<ObjectDefinitionMessage>();
    }

    /// The first pixel of what the handler left, in 16-bit.
    static Pixel16 firstPixel(const Context& context)
    {
        context.drawing()->setRenderArgs(CelTesting::rowArgs());
        return pixelAt<Pixel16>(context.drawing()->convertTo(CEL_FORMAT_RGBA16), 0);
    }

    /// The coverage of the greys in a drawing that covers half a pixel in the listed colour: half, or a quarter where
    /// the greys count in proportion to coverage.
    template<typename Prepare>
    int blueOfHalfCoverage(const Prepare& prepare)
    {
        const auto drawing = UT_makeShared<CELVEC_Kvd>(CelTesting::palette());
        CELVEC_Shape shape = CelTesting::rectangle(CelTesting::kListed, 0, 0, 1, 1);
        shape.opacity = 0.5;
        drawing->addShape(GR_Art::COLOUR, shape);
        auto cel = UT_makeShared<CEL_Cel>();
        cel->setRepresentation(drawing);
        Context context(cel, {1.0});
        prepare(context);
        handler.processDrawing(context);
        return firstPixel(context).b;
    }

    VallorinRequestHandler handler{QStringLiteral("00000000000000a1:255:Red")};
};

TEST_F(VallorinRequest, NoDrawingStaysNone)
{
    Context context(nullptr, {1.0});
    switchOff(context);
    handler.processDrawing(context);
    EXPECT_EQ(context.drawing(), nullptr);
}

TEST_F(VallorinRequest, ADrawingWithoutDefinitionIsACutOutAtFullLevel)
{
    Context context(drawingCel(), {1.0});
    handler.processDrawing(context);
    ASSERT_NE(messageOf(context.drawing()), nullptr);
    EXPECT_EQ(messageOf(context.drawing())->objectId(), 0);
    EXPECT_EQ(firstPixel(context), (Pixel16{32767, 32767, 32767, 32767}));
}

TEST_F(VallorinRequest, WithoutADefinitionGreysDoNotCountInProportion)
{
    EXPECT_NEAR(blueOfHalfCoverage([](Context&) {}), 16384, 200);
}

/// An entry of another class, which a host might leave under the same key.
class ForeignEntry : public CEL_Message
{};

TEST_F(VallorinRequest, AnEntryOfAnotherClassIsTakenForNone)
{
    const auto leaveForeign = [](Context& context) {
        context.addObject(ObjectDefinition::objectDefinitionMessageId(), UT_makeShared<ForeignEntry>());
    };
    Context context(drawingCel(), {1.0});
    leaveForeign(context);
    handler.processDrawing(context);
    ASSERT_NE(messageOf(context.drawing()), nullptr);
    EXPECT_EQ(messageOf(context.drawing())->objectId(), 0);
    EXPECT_EQ(firstPixel(context), (Pixel16{32767, 32767, 32767, 32767}));
    EXPECT_NEAR(blueOfHalfCoverage(leaveForeign), 16384, 200) << "not in proportion";
}

TEST_F(VallorinRequest, TheDefinitionGivesNumberAndLevel)
{
    Context context(drawingCel(), {1.0});
    define(context, 7, 0.5, false);
    handler.processDrawing(context);
    ASSERT_NE(messageOf(context.drawing()), nullptr);
    EXPECT_EQ(messageOf(context.drawing())->objectId(), 7);
    EXPECT_EQ(firstPixel(context), (Pixel16{16319, 32767, 32767, 32767}));
}

TEST_F(VallorinRequest, TheDefinitionSaysWhetherGreysCountInProportion)
{
    const auto blueWhen = [&](bool scaleByCoverage) {
        return blueOfHalfCoverage([=](Context& context) { define(context, 7, 1.0, scaleByCoverage); });
    };
    EXPECT_NEAR(blueWhen(false), 16384, 200);
    EXPECT_NEAR(blueWhen(true), 8192, 200);
}

TEST_F(VallorinRequest, ANegativeNumberIsACutOut)
{
    Context context(drawingCel(), {1.0});
    define(context, -3, 1.0, false);
    handler.processDrawing(context);
    EXPECT_EQ(messageOf(context.drawing())->objectId(), 0);
}

TEST_F(VallorinRequest, TheMessageHasNoDepths)
{
    Context context(drawingCel(), {1.0});
    define(context, 7, 0.5, false);
    handler.processDrawing(context);
    EXPECT_EQ(messageOf(context.drawing())->low(), 0.0);
    EXPECT_EQ(messageOf(context.drawing())->high(), 0.0);
}

TEST_F(VallorinRequest, TheDrawingOfASwitchedOffObjectIsEmptied)
{
    const CA_CelRef before = drawingCel();
    Context context(before, {1.0});
    define(context, 7, 0.5, false);
    switchOff(context);
    handler.processDrawing(context);
    ASSERT_NE(context.drawing(), nullptr);
    EXPECT_NE(context.drawing(), before);
    EXPECT_TRUE(context.drawing()->isEmpty());
    EXPECT_EQ(messageOf(context.drawing()), nullptr);
    EXPECT_FALSE(before->isEmpty()) << "the drawing itself is somebody else's";
}

TEST_F(VallorinRequest, PixelsOfASwitchedOffObjectAreEmptiedToo)
{
    const auto cel = UT_makeShared<CEL_Cel>();
    cel->setRepresentation(UT_makeShared<CEL_PixmapAreaRGBA16>(Math::Size2di{4, 1}, Math::Box2di(0, 0, 4, 1)));
    Context context(cel, {1.0});
    switchOff(context);
    handler.processDrawing(context);
    EXPECT_TRUE(context.drawing()->isEmpty());
}

TEST_F(VallorinRequest, WhatIsNoVectorDrawingIsLeftAlone)
{
    const auto pixels = UT_makeShared<CEL_Cel>();
    pixels->setRepresentation(UT_makeShared<CEL_PixmapAreaRGBA16>(Math::Size2di{4, 1}, Math::Box2di(0, 0, 4, 1)));
    for (const CA_CelRef& cel : {pixels, UT_makeShared<CEL_Cel>()}) {
        Context context(cel, {1.0});
        define(context, 7, 0.5, false);
        handler.processDrawing(context);
        EXPECT_EQ(context.drawing(), cel);
        EXPECT_EQ(messageOf(cel), nullptr);
    }
}

TEST_F(VallorinRequest, TheOriginalCelIsLeftAlone)
{
    const CA_CelRef before = drawingCel();
    const auto vectors = before->findBestVectorRepresentation();
    Context context(before, {1.0});
    handler.processDrawing(context);
    EXPECT_NE(context.drawing(), before);
    EXPECT_EQ(before->findBestVectorRepresentation(), vectors);
    EXPECT_EQ(messageOf(before), nullptr);
}

TEST_F(VallorinRequest, TheHostsOperationForComputedDrawingsLeadsHere)
{
    Context context(drawingCel(), {1.0});
    handler.processRequestBottomUpOnElementModuleComputed(context);
    EXPECT_NE(messageOf(context.drawing()), nullptr);
}

TEST_F(VallorinRequest, AHandlerKeepsTheColourTableThatItWasMadeWith)
{
    Vallorin node;
    node.colorInformation()->setLocalValue(QStringLiteral("00000000000000a1:255:Red"));
    const std::unique_ptr<MO_RenderingRequestHandler> made = node.createRequestHandler();
    node.colorInformation()->setLocalValue(QString());

    Context context(drawingCel(), {1.0});
    made->processDrawing(context);
    EXPECT_EQ(firstPixel(context), (Pixel16{32767, 32767, 32767, 32767}));

    Context later(drawingCel(), {1.0});
    node.createRequestHandler()->processDrawing(later);
    EXPECT_EQ(firstPixel(later), (Pixel16{32767, 0, 1024, 32767})) << "no colour is listed any more";
}

} // namespace
