// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the stage makes of a drawing: the object's level where the drawing covers, the greys of the listed colours.
#include "node/ObjectAlgoRenderStage.h"

#include "Plugins/Vallorin/node/CelTesting.h"

#include <limits>

namespace {

using CelTesting::kListed;
using CelTesting::pixelAt;
using CelTesting::rowArgs;
using CelTesting::rowDrawing;
using Stage = VallorinRequestHandler::ObjectAlgoRenderStage;
using Pixel16 = CEL_PixelRGBA16;
using PixelFloat = CEL_PixelRGBAFloat;

/// The drawing, rendered through a stage of this level; the listed colour has this grey.
CA_CelRef rendered(const UT_SharedPtr<CELVEC_Kvd>& drawing, CEL_Format format, double objectLevel, int grey = 255,
                   bool scaleByCoverage = false)
{
    const auto staged = MultiStageKvd::embed(drawing);
    const std::vector<VallorinAttributes::ColorInformation> colours = {{kListed, grey, QString()}};
    staged->addStage(
        UT_makeShared<Stage>(1.0, 3, scaleByCoverage, objectLevel, std::make_shared<ObjectColours>(colours)));
    return CelTesting::celOf(staged, rowArgs())->convertTo(format);
}

int red16(double objectLevel)
{
    return pixelAt<Pixel16>(rendered(rowDrawing(), CEL_FORMAT_RGBA16, objectLevel), 0).r;
}

float redFloat(double objectLevel)
{
    return pixelAt<PixelFloat>(rendered(rowDrawing(), CEL_FORMAT_RGBAFLOAT, objectLevel), 0).r;
}

TEST(ObjectAlgoRenderStage, HoldsWhatItWasMadeWith)
{
    const std::vector<VallorinAttributes::ColorInformation> colours = {{kListed, 9, QStringLiteral("Red")}};
    const Stage stage(12.5, 7, true, 0.25, std::make_shared<ObjectColours>(colours));
    EXPECT_EQ(stage.frame(), 12.5);
    EXPECT_EQ(stage.objectId(), 7);
    EXPECT_TRUE(stage.scaleByCoverage());
    EXPECT_EQ(stage.objectLevel(), 0.25);
    EXPECT_EQ(stage.colorInformation(), colours);
}

TEST(ObjectAlgoRenderStage, In16BitPixelsHoldLevelAndGreyWithTheirCoverages)
{
    // 200 of 255 is 25699.6 of 32767.
    const CA_CelRef cel = rendered(rowDrawing(), CEL_FORMAT_RGBA16, 1.0, 200);
    EXPECT_EQ(pixelAt<Pixel16>(cel, 0), (Pixel16{32767, 25700, 32767, 32767}));
    EXPECT_EQ(pixelAt<Pixel16>(cel, 1), (Pixel16{32767, 25700, 32767, 32767}));
    EXPECT_EQ(pixelAt<Pixel16>(cel, 2), (Pixel16{32767, 0, 1024, 32767})) << "a colour that is not listed";
    EXPECT_EQ(pixelAt<Pixel16>(cel, 3), (Pixel16{0, 0, 0, 0})) << "nothing is drawn here";
}

TEST(ObjectAlgoRenderStage, ATableWithAnUnreadableIdLeavesColoursThatAreNotListedAlone)
{
    std::vector<VallorinAttributes::ColorInformation> colours;
    VallorinAttributes::getColorInformation(QStringLiteral("0xA1B2:0:Skin"), colours);
    ASSERT_EQ(colours.size(), 1U);
    const auto staged = MultiStageKvd::embed(rowDrawing());
    staged->addStage(UT_makeShared<Stage>(1.0, 3, false, 1.0, std::make_shared<ObjectColours>(colours)));
    const CA_CelRef cel = CelTesting::celOf(staged, rowArgs())->convertTo(CEL_FORMAT_RGBA16);
    for (int x = 0; x < 3; ++x)
        EXPECT_EQ(pixelAt<Pixel16>(cel, x), (Pixel16{32767, 0, 1024, 32767})) << "carved at " << x;
}

TEST(ObjectAlgoRenderStage, InFloatGreysAreWholeNumbers)
{
    const CA_CelRef full = rendered(rowDrawing(), CEL_FORMAT_RGBAFLOAT, 0.75, 255);
    EXPECT_EQ(pixelAt<PixelFloat>(full, 0), (PixelFloat{0.75F, 1.0F, 1.0F, 1.0F}));
    EXPECT_EQ(pixelAt<PixelFloat>(full, 2), (PixelFloat{0.75F, 0.0F, 0.5F, 1.0F}));
    EXPECT_EQ(pixelAt<PixelFloat>(full, 3), (PixelFloat{0.0F, 0.0F, 0.0F, 0.0F}));
    const CA_CelRef grey = rendered(rowDrawing(), CEL_FORMAT_RGBAFLOAT, 0.75, 200);
    EXPECT_EQ(pixelAt<PixelFloat>(grey, 0), (PixelFloat{0.75F, 0.0F, 1.0F, 1.0F}));
}

TEST(ObjectAlgoRenderStage, AListedColourOfFullCarvingStillCovers)
{
    const CA_CelRef cel = rendered(rowDrawing(), CEL_FORMAT_RGBA16, 1.0, 0);
    EXPECT_EQ(pixelAt<Pixel16>(cel, 0), (Pixel16{32767, 0, 32767, 32767}));
}

TEST(ObjectAlgoRenderStage, PaintsWhiteGreysAsItRendersThem)
{
    class RendersOnly final : public MultiStageKvd::RenderingStage
    {
    public:
        explicit RendersOnly(const UT_SharedPtr<Stage>& stage) : _stage(stage) {}
        void render(const MultiStageKvd& drawing, const CELVEC_RenderArgs& args, CEL_PixmapArea& target) const override
        {
            _stage->render(drawing, args, target);
        }

    private:
        UT_SharedPtr<Stage> _stage;
    };
    // Coverage of many strengths.
    QPainterPath slanted;
    slanted.addPolygon(QPolygonF({{0.3, 0.1}, {9.7, 0.9}, {0.1, 1.0}}));
    const auto drawing = UT_makeShared<CELVEC_Kvd>(CelTesting::palette());
    drawing->addShape(GR_Art::COLOUR, {slanted, kListed, 0.8, {}});
    drawing->addShape(GR_Art::LINE, CelTesting::rectangle(kListed, 5, 0, 7, 0.5));
    for (const int grey : {255, 200})
        for (const bool scaleByCoverage : {false, true}) {
            const std::vector<VallorinAttributes::ColorInformation> colours = {{kListed, grey, QString()}};
            const auto stage =
                UT_makeShared<Stage>(1.0, 3, scaleByCoverage, 0.7, std::make_shared<ObjectColours>(colours));
            const auto made = [&](const UT_SharedPtr<MultiStageKvd::RenderingStage>& used, CEL_Format format) {
                const auto staged = MultiStageKvd::embed(drawing);
                staged->addStage(used);
                return CelTesting::celOf(staged, rowArgs(12))->convertTo(format);
            };
            const auto rendersOnly = UT_makeShared<RendersOnly>(stage);
            CEL_PixmapAreaRGBA16 target({12, 1}, {0, 0, 12, 1});
            EXPECT_EQ(stage->paint(*MultiStageKvd::embed(drawing), rowArgs(12), target), grey == 255);
            for (int x = 0; x < 12; ++x) {
                EXPECT_EQ(pixelAt<Pixel16>(made(stage, CEL_FORMAT_RGBA16), x),
                          pixelAt<Pixel16>(made(rendersOnly, CEL_FORMAT_RGBA16), x));
                EXPECT_EQ(pixelAt<PixelFloat>(made(stage, CEL_FORMAT_RGBAFLOAT), x),
                          pixelAt<PixelFloat>(made(rendersOnly, CEL_FORMAT_RGBAFLOAT), x));
            }
        }
}

TEST(ObjectAlgoRenderStage, In16BitTheLevelHas8Bits)
{
    EXPECT_EQ(red16(0.5), 16319) << "127.5 is 127; 127 x 32767 / 255";
    EXPECT_EQ(red16(0.0), 0);
    EXPECT_EQ(red16(0.0039), 0) << "0.99 of a step";
    EXPECT_EQ(red16(0.004), 128) << "1.02 steps";
    EXPECT_EQ(red16(1.0), 32767);
}

TEST(ObjectAlgoRenderStage, In16BitALevelBeyondOneWraps)
{
    EXPECT_EQ(red16(1.5), 16190) << "382 is 126 modulo 256; 126 x 32767 / 255";
    EXPECT_EQ(red16(-0.5), 16576) << "-127 is 129 modulo 256; 129 x 32767 / 255";
}

TEST(ObjectAlgoRenderStage, InFloatTheLevelIsTakenAsItIs)
{
    EXPECT_EQ(redFloat(0.5), 0.5F);
    EXPECT_EQ(redFloat(1.5), 1.5F);
    EXPECT_EQ(redFloat(-0.5), -0.5F);
    EXPECT_EQ(redFloat(0.1), 0.1F) << "not quantised";
}

TEST(ObjectAlgoRenderStage, ALevelThatIsNoNumberOrHugeCountsAsZero)
{
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double level : {infinity, -infinity, std::numeric_limits<double>::quiet_NaN(), 1e300, -1e300}) {
        EXPECT_EQ(red16(level), 0) << level;
        EXPECT_EQ(redFloat(level), 0.0F) << level;
    }
    EXPECT_EQ(red16(1e7), 0) << "2550000000 does not fit an int";
    EXPECT_EQ(red16(8421504.0), 16447) << "2147483520 does, and is 128 modulo 256; 128 x 32767 / 255";
}

TEST(ObjectAlgoRenderStage, GreysMayCountInProportionToTheCoverage)
{
    // The listed colour covers the whole pixel, but only half of it shows in the drawing.
    const auto drawing = UT_makeShared<CELVEC_Kvd>(CelTesting::palette());
    CELVEC_Shape shape = CelTesting::rectangle(kListed, 0, 0, 1, 1);
    shape.opacity = 0.5;
    drawing->addShape(GR_Art::COLOUR, shape);
    const int alpha = pixelAt<Pixel16>(CelTesting::celOf(drawing, rowArgs())->convertTo(CEL_FORMAT_RGBA16), 0).a;
    ASSERT_GT(alpha, 16000);
    ASSERT_LT(alpha, 16800);

    const Pixel16 plain = pixelAt<Pixel16>(rendered(drawing, CEL_FORMAT_RGBA16, 1.0, 255, false), 0);
    const Pixel16 scaled = pixelAt<Pixel16>(rendered(drawing, CEL_FORMAT_RGBA16, 1.0, 255, true), 0);
    EXPECT_EQ(plain.a, alpha);
    EXPECT_EQ(plain.b, alpha) << "grey covers as the drawing does";
    EXPECT_NEAR(scaled.b, alpha * alpha / 32767.0, 1.0) << "times the coverage once more";
    EXPECT_NEAR(scaled.g, plain.g * alpha / 32767.0, 1.0);
}

TEST(ObjectAlgoRenderStage, GreysComeFromEveryArtLayer)
{
    // Of the drawing only the colour art is shown, in an unlisted colour; the line art contributes its grey anyway.
    const auto drawing = UT_makeShared<CELVEC_Kvd>(CelTesting::palette());
    drawing->addShape(GR_Art::COLOUR, CelTesting::rectangle(CelTesting::kUnlisted, 0, 0, 2, 1));
    drawing->addShape(GR_Art::LINE, CelTesting::rectangle(kListed, 1, 0, 2, 1));
    GR_ArtSelector colourAlone;
    colourAlone.setSelected(GR_Art::LINE, false);
    drawing->setArtSelector(colourAlone);
    const CA_CelRef cel = rendered(drawing, CEL_FORMAT_RGBA16, 1.0, 255);
    EXPECT_EQ(pixelAt<Pixel16>(cel, 0), (Pixel16{32767, 0, 1024, 32767}));
    EXPECT_EQ(pixelAt<Pixel16>(cel, 1), (Pixel16{32767, 32767, 32767, 32767}));
}

TEST(ObjectAlgoRenderStage, TheDrawingItselfIsLeftAlone)
{
    const auto drawing = rowDrawing();
    GR_ArtSelector selector;
    selector.setSelected(GR_Art::OVERLAY, false);
    drawing->setArtSelector(selector);
    rendered(drawing, CEL_FORMAT_RGBA16, 1.0);
    EXPECT_EQ(drawing->artSelector(), selector);
    EXPECT_EQ(drawing->colorTransform(), nullptr);
}

TEST(ObjectAlgoRenderStage, ATargetOfAnotherFormatIsLeftAlone)
{
    const Stage stage(1.0, 3, false, 1.0, std::make_shared<ObjectColours>(QString()));
    CEL_PixmapAreaZ target({4, 1}, Math::Box2di(0, 0, 4, 1));
    target.realloc(Math::Box2di(0, 0, 4, 1), true);
    target.at(0, 0).value = 7.0F;
    stage.render(*MultiStageKvd::embed(rowDrawing()), rowArgs(), target);
    EXPECT_EQ(target.at(0, 0).value, 7.0F);
    EXPECT_EQ(target.at(1, 0).value, 0.0F);
}

} // namespace
