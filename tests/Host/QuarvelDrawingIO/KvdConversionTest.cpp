// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Drawings as the host's vector drawings and palettes.
#include "QuarvelDrawingIO/DIO_KvdConversion.h"

#include "Drawings.h"

using namespace drawings;

namespace {

DIO_Drawing twoLayers()
{
    return read(
        "<linearGradient id='g'><stop stop-color='#000'/><stop offset='1' stop-color='#fff'/></linearGradient>"
        "<g i:layer='yes' id='A'><rect width='10' height='10' fill='#ff0000' opacity='0.5'/></g>"
        "<g i:layer='yes' id='B'><rect width='20' height='20' fill='url(#g)'/><circle r='5' fill='#ff0000'/></g>");
}

} // namespace

TEST(KvdConversion, solidPaintsBecomeColoursAndOthersTextures)
{
    const CM_SharedPtr<CM_Palette> palette = DIO_toPalette(twoLayers());
    EXPECT_EQ(palette->GetName(), UT_String("test"));
    ASSERT_EQ(palette->colors().size(), 2U);
    const auto red = palette->colors()[0].dynamicCast<CM_Color>();
    ASSERT_TRUE(red);
    EXPECT_EQ(red->GetNominalColor(), (CM_Rgba{255, 0, 0, 255}));
    EXPECT_EQ(red->GetColorName(), UT_String("#ff0000"));
    EXPECT_FALSE(palette->colors()[1].dynamicCast<CM_Color>());
    const auto gradient = palette->colors()[1].dynamicCast<CM_TextureColor>();
    ASSERT_TRUE(gradient);
    EXPECT_EQ(gradient->GetTextureKind(), CM_TextureColor::GRADIENT_TEXTURE);
}

TEST(KvdConversion, shapesKeepOrderColourAndOpacity)
{
    const DIO_Drawing drawing = twoLayers();
    const CM_SharedPtr<CM_Palette> palette = DIO_toPalette(drawing);
    const UT_SharedPtr<CELVEC_Kvd> kvd = DIO_toKvd(drawing, 1, palette);
    EXPECT_EQ(kvd->palette(), palette);
    const std::span<const CELVEC_Shape> shapes = kvd->shapes(GR_Art::COLOUR);
    ASSERT_EQ(shapes.size(), 2U);
    EXPECT_EQ(palette->findColor(shapes[0].color), palette->colors()[1]);
    EXPECT_EQ(palette->findColor(shapes[1].color), palette->colors()[0]);
    EXPECT_EQ(shapes[1].path, drawing.layers[1].shapes[1].path);
    const UT_SharedPtr<CELVEC_Kvd> lower = DIO_toKvd(drawing, 0, palette);
    EXPECT_NEAR(lower->shapes(GR_Art::COLOUR)[0].opacity, 0.5, 1e-6);
}

TEST(KvdConversion, identifiersFollowFromTheColourAlone)
{
    const DIO_Paint red{DIO_Paint::Kind::SOLID, QColor(255, 0, 0), "#ff0000"};
    const DIO_Paint namedRed{DIO_Paint::Kind::SOLID, QColor(255, 0, 0), "blood"};
    const DIO_Paint blue{DIO_Paint::Kind::SOLID, QColor(0, 0, 255), "#0000ff"};
    const DIO_Paint gradient{DIO_Paint::Kind::GRADIENT, QColor(255, 0, 0), "a"};
    const DIO_Paint otherGradient{DIO_Paint::Kind::GRADIENT, QColor(255, 0, 0), "b"};
    EXPECT_EQ(DIO_colorId(red), DIO_colorId(namedRed));
    EXPECT_NE(DIO_colorId(red), DIO_colorId(blue));
    EXPECT_NE(DIO_colorId(red), DIO_colorId(gradient));
    EXPECT_NE(DIO_colorId(gradient), DIO_colorId(otherGradient));
    EXPECT_FALSE(DIO_colorId(red).isNull());
}
