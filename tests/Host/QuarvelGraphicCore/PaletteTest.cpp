// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Palettes hold each colour once, in order; the default colour transform answers from a palette.
#include "QuarvelGraphicCore/GR_GraphicOpsColorTransform.h"

#include <gtest/gtest.h>

#include <array>

namespace {

CM_SharedPtr<CM_BaseColorObj> colour(std::uint64_t id, const char* name, CM_Rgba nominal = {})
{
    auto made = UT_makeShared<CM_Color>(UT_String(name), CM_Color::NORMAL_COLOR, CM_ColorId_t(id));
    made->SetNominalColor(nominal);
    return made;
}

} // namespace

TEST(Palette, KeepsTheOrderOfAdding)
{
    CM_Palette palette(UT_String("p"));
    EXPECT_TRUE(palette.addColor(colour(9, "first")));
    EXPECT_TRUE(palette.addColor(colour(2, "second")));
    ASSERT_EQ(palette.colors().size(), 2U);
    EXPECT_EQ(palette.colors()[0]->GetColorName(), UT_String("first"));
}

TEST(Palette, RefusesASecondColourOfTheSameIdentifierAndNullOnes)
{
    CM_Palette palette(UT_String("p"));
    EXPECT_TRUE(palette.addColor(colour(1, "one")));
    EXPECT_FALSE(palette.addColor(colour(1, "again")));
    EXPECT_FALSE(palette.addColor(colour(0, "null")));
    EXPECT_FALSE(palette.addColor(nullptr));
    EXPECT_EQ(palette.colors().size(), 1U);
}

TEST(Palette, KeepsTheOrderOfTheOthersWhenOneIsRemoved)
{
    CM_Palette palette(UT_String("p"));
    for (const std::uint64_t id : {9, 2, 5})
        palette.addColor(colour(id, "any"));
    palette.removeColor(CM_ColorId_t(2));
    palette.removeColor(CM_ColorId_t(77));
    ASSERT_EQ(palette.colors().size(), 2U);
    EXPECT_EQ(palette.colors()[0]->GetColorId(), CM_ColorId_t(9));
    EXPECT_EQ(palette.colors()[1]->GetColorId(), CM_ColorId_t(5));
}

TEST(Palette, ForgetsRemovedColours)
{
    CM_Palette palette(UT_String("p"));
    palette.addColor(colour(1, "one"));
    palette.removeColor(CM_ColorId_t(1));
    EXPECT_FALSE(palette.findColor(CM_ColorId_t(1)));
    EXPECT_TRUE(palette.colors().empty());
    EXPECT_TRUE(palette.addColor(colour(1, "one")));
}

TEST(DefaultColourTransform, PaintsWithNominalColours)
{
    auto palette = UT_makeShared<CM_Palette>(UT_String("p"));
    palette->addColor(colour(1, "one", {10, 20, 30, 40}));
    GR_GraphicOpsColorTransform transform(palette);
    EXPECT_EQ(transform.GetColorValue(transform.GetColorObjectEntry(CM_ColorId_t(1))), (VS_RGBA{10, 20, 30, 40}));
}

TEST(DefaultColourTransform, PaintsUnknownColoursTransparent)
{
    GR_GraphicOpsColorTransform transform(UT_makeShared<CM_Palette>(UT_String("p")));
    EXPECT_EQ(transform.GetColorValue(transform.GetColorObjectEntry(CM_ColorId_t(1))), VS_RGBA{});
}

TEST(DefaultColourTransform, PaintsLevelsAsGreysAndClampsThem)
{
    const GR_GraphicOpsColorTransform transform;
    EXPECT_EQ(transform.GetColor(7), (VS_RGBA{7, 7, 7, 255}));
    EXPECT_EQ(transform.GetColor(-7), (VS_RGBA{0, 0, 0, 255}));
    EXPECT_EQ(transform.GetColor(700), (VS_RGBA{255, 255, 255, 255}));
}

TEST(ColourTransform, FollowsItsPaintOverloadInEveryOtherForm)
{
    class Inverting final : public GR_GraphicOpsColorTransform
    {
    public:
        using GR_GraphicOpsColorTransform::ApplyColorTransform;
        void ApplyColorTransform(VS_RGBA& paint) const override
        {
            paint.red = static_cast<std::uint8_t>(255 - paint.red);
        }
    };
    const Inverting inverting;
    CM_Rgba colour{200, 1, 2, 3};
    inverting.ApplyColorTransform(colour);
    EXPECT_EQ(colour, (CM_Rgba{55, 1, 2, 3}));
    std::array<CM_Rgba, 2> several{CM_Rgba{0, 0, 0, 0}, CM_Rgba{255, 0, 0, 0}};
    inverting.ApplyColorTransform(std::span<CM_Rgba>(several));
    EXPECT_EQ(several[0].red, 255);
    EXPECT_EQ(several[1].red, 0);
}
