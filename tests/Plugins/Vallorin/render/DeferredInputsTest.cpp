// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Inputs that are drawings: they are painted when their object is built, and the output is the same as with pixels that
// were painted before.
#include "RenderHandlerFixture.h"

#include "QuarvelCelCore/CELVEC_Kvd.h"

namespace {

// A rectangle in half-covering red; the pixels at its border are covered in part.
CA_CelRef drawing(int objectId, const QRectF& rect)
{
    const CM_ColorId_t id(1);
    auto palette = UT_makeShared<CM_Palette>(UT_String("Palette"));
    auto colour = UT_makeShared<CM_Color>(UT_String("Red"), CM_Color::NORMAL_COLOR, id);
    colour->SetNominalColor({255, 0, 0, 128});
    palette->addColor(colour);
    auto shapes = UT_makeShared<CELVEC_Kvd>(palette);
    CELVEC_Shape shape;
    shape.path.addRect(rect);
    shape.color = id;
    shapes->addShape(GR_Art::COLOUR, shape);
    auto cel = UT_makeShared<CEL_Cel>();
    cel->setRepresentation(shapes);
    const Math::Box2di canvas(0, 0, 8, 8);
    cel->setRenderArgs({QTransform::fromTranslate(4.0, 4.0), {8, 8}, canvas, canvas.getEnlarged(2)});
    cel->addMessage(ObjectDefinition::objectDefinitionMessageId(),
                    UT_makeShared<ObjectDefinitionMessage>(objectId, 0.0, 0.0));
    return cel;
}

// Two inputs of one object, one of another, a cut-out, and a drawing outside the picture.
std::vector<CA_CelRef> drawings()
{
    return {drawing(1, {-3.5, -3.0, 4.0, 4.5}), drawing(2, {-2.0, -5.5, 5.0, 4.0}), drawing(1, {-1.5, 0.25, 4.0, 3.0}),
            drawing(0, {-1.0, -1.0, 1.5, 2.0}), drawing(2, {20.0, 20.0, 3.0, 3.0})};
}

template<typename Pixel>
class DeferredInputs : public RenderHandlerOf<Pixel>
{
protected:
    static constexpr int kFormat = CEL_PixelTraits<Pixel>::kFormat;

    UT_SharedPtr<VallorinRenderHandler> delivered(const std::vector<CA_CelRef>& cels)
    {
        const auto handler = this->make(cels.size(), "1:60:1:1;2:0:1:1");
        for (const CA_CelRef& cel : cels)
            this->deliver(*handler, cel);
        return handler;
    }
};

using Formats = testing::Types<Pixel16, PixelFloat>;
TYPED_TEST_SUITE(DeferredInputs, Formats);

} // namespace

TYPED_TEST(DeferredInputs, WaitUntilTheirObjectIsBuilt)
{
    const auto handler = this->delivered(drawings());
    for (const int port : {0, 1, 2, 3})
        EXPECT_TRUE(handler->inputPixmaps.at(port)->isDeferred()) << port;
    EXPECT_TRUE(handler->objectAccumulators.at(1)->isDeferred());
    EXPECT_EQ(handler->objectAccumulators.at(1)->allocatedRect(), Math::Box2di(0, 0, 8, 8));
}

TYPED_TEST(DeferredInputs, GiveWhatPixelsGive)
{
    const auto output = this->finish(*this->delivered(drawings()));
    std::vector<CA_CelRef> painted;
    for (const CA_CelRef& cel : drawings()) {
        painted.push_back(cel->convertTo(TestFixture::kFormat));
        painted.back()->pixmap()->makePixels();
    }
    const auto expected = this->finish(*this->delivered(painted));
    ASSERT_EQ(output->allocatedRect(), expected->allocatedRect());
    ASSERT_FALSE(output->allocatedRect().isEmpty());
    for (int y = output->allocatedRect().y1; y < output->allocatedRect().y2; ++y)
        EXPECT_TRUE(std::ranges::equal(output->row(y), expected->row(y))) << y;
}

TYPED_TEST(DeferredInputs, OfOneObjectMayBeAsManyAsANodeHasPorts)
{
    // Painted inside each other, they would need more stack than a thread has.
    const CA_CelRef cel = drawing(1, {-3.5, -3.0, 4.0, 4.5});
    const auto output = this->finish(*this->delivered(std::vector<CA_CelRef>(MO_Node::kMaxPorts, cel)));
    const auto once = this->finish(*this->delivered({cel}));
    ASSERT_TRUE(output && once);
    EXPECT_EQ(output->allocatedRect(), once->allocatedRect());
}

TYPED_TEST(DeferredInputs, BeforeAndAfterOneWithPixelsAreMergedInTheOrderOfTheirPorts)
{
    const auto all = drawings();
    const auto painted = [](CA_CelRef cel) {
        cel = cel->convertTo(TestFixture::kFormat);
        cel->pixmap()->makePixels();
        return cel;
    };
    const auto mixed = this->delivered({all[0], painted(all[2]), all[0], all[2]});
    const auto expected = this->delivered({painted(all[0]), painted(all[2]), painted(all[0]), painted(all[2])});
    const auto output = this->finish(*mixed);
    const auto same = this->finish(*expected);
    ASSERT_EQ(output->allocatedRect(), same->allocatedRect());
    for (int y = output->allocatedRect().y1; y < output->allocatedRect().y2; ++y)
        EXPECT_TRUE(std::ranges::equal(output->row(y), same->row(y))) << y;
}

TYPED_TEST(DeferredInputs, ThatNoObjectNeedsAreNeverPainted)
{
    const auto cels = drawings();
    const auto handler = this->make(cels.size(), "7:0:1:1");
    this->deliver(*handler, cels.front());
    const auto input = handler->inputPixmaps.at(0);
    (void)this->finish(*handler);
    EXPECT_TRUE(input->isDeferred());
}
