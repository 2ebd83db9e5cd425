// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The greys in which a drawing is repainted.
#include "render/DepthComputationColorTransform.h"

#include <gtest/gtest.h>

namespace {

using VallorinAttributes::ColorInformation;
using VallorinLib::DepthComputationCelColorTransform;

const CM_ColorId_t kRed(1);
const CM_ColorId_t kBlue(2);

VS_RGBA paintOf(DepthComputationCelColorTransform& transform, const CM_ColorId_t& id)
{
    const auto ops = transform.createGraphicOpsTransform();
    return ops->GetColorValue(ops->GetColorObjectEntry(id));
}

VS_RGBA paintOfValue(int value)
{
    DepthComputationCelColorTransform transform({ColorInformation{kRed, value, QString()}});
    return paintOf(transform, kRed);
}

} // namespace

TEST(DepthColorTransform, AnEmptyTablePaintsEveryColourTransparentWithOneDefaultColour)
{
    DepthComputationCelColorTransform transform({});
    const auto ops = transform.createGraphicOpsTransform();
    EXPECT_EQ(paintOf(transform, kRed), VS_RGBA{});
    EXPECT_EQ(ops->GetColorObject(kRed), ops->GetColorObject(kBlue));
    EXPECT_TRUE(ops->GetColorObject(kRed)->GetColorId().isNull());
}

TEST(DepthColorTransform, AValueIsTheGreyOfAnOpaquePaint)
{
    EXPECT_EQ(paintOfValue(128), (VS_RGBA{128, 128, 128, 255}));
    EXPECT_EQ(paintOfValue(255), (VS_RGBA{255, 255, 255, 255}));
    EXPECT_EQ(paintOfValue(0), (VS_RGBA{0, 0, 0, 255})) << "full carving still covers";
}

TEST(DepthColorTransform, OnlyTheLowByteOfAValueCounts)
{
    EXPECT_EQ(paintOfValue(256), (VS_RGBA{0, 0, 0, 255}));
    EXPECT_EQ(paintOfValue(-1), (VS_RGBA{255, 255, 255, 255}));
    EXPECT_EQ(paintOfValue(300), (VS_RGBA{44, 44, 44, 255}));
}

TEST(DepthColorTransform, OfAColourListedTwiceTheLaterGreyAndTheFirstObjectCount)
{
    DepthComputationCelColorTransform twice({{kRed, 10, "a"}, {kRed, 20, "b"}});
    EXPECT_EQ(paintOf(twice, kRed), (VS_RGBA{20, 20, 20, 255}));
    const auto ops = twice.createGraphicOpsTransform();
    const auto object = ops->GetColorObject(kRed);
    EXPECT_EQ(object, ops->GetColorObjectEntry(kRed));
    EXPECT_EQ(object->GetColorId(), kRed);
    EXPECT_EQ(object->refCount(), 2) << "the table holds it, and the pointer here; no copy was made";
    ASSERT_EQ(twice.entries().size(), 2U) << "the later row has an object of its own";
    EXPECT_EQ(object.get(), twice.entries()[0].first.get());
}

TEST(DepthColorTransform, FindsEachOfManyColours)
{
    std::vector<ColorInformation> records;
    for (std::uint64_t i = 0; i < 3000; ++i)
        records.push_back({CM_ColorId_t(i % 1000 + 1), static_cast<int>(i / 1000), QString()});
    DepthComputationCelColorTransform transform(records);
    const auto ops = transform.createGraphicOpsTransform();
    for (std::uint64_t i = 0; i < 1000; ++i) {
        const CM_ColorId_t id(i + 1);
        ASSERT_EQ(ops->GetColorObject(id).get(), transform.entries()[i].first.get()) << i;
        ASSERT_EQ(paintOf(transform, id), (VS_RGBA{2, 2, 2, 255})) << i << ", of the last of its three rows";
    }
    EXPECT_EQ(paintOf(transform, CM_ColorId_t(1001)), VS_RGBA{});
}

TEST(DepthColorTransform, ARowWhoseIdCannotBeReadPaintsNoColourThatIsNotListed)
{
    std::vector<ColorInformation> records;
    VallorinAttributes::getColorInformation(QStringLiteral("0xA1B2:0:Skin;0000000000000002:20:Blue"), records);
    ASSERT_EQ(records.size(), 2U);
    ASSERT_TRUE(records[0].colorId.isNull());
    DepthComputationCelColorTransform transform(records);
    const auto ops = transform.createGraphicOpsTransform();
    EXPECT_EQ(paintOf(transform, kRed), VS_RGBA{}) << "red is not listed";
    EXPECT_EQ(paintOf(transform, kBlue), (VS_RGBA{20, 20, 20, 255}));
    EXPECT_EQ(paintOf(transform, CM_ColorId_t()), (VS_RGBA{0, 0, 0, 255})) << "the null id is listed";
    EXPECT_NE(ops->GetColorObject(kRed), ops->GetColorObject(CM_ColorId_t()));
}

TEST(DepthColorTransform, AnswersWithAPlainColourWhateverThePalettesOwnKindIs)
{
    DepthComputationCelColorTransform transform({{kRed, 10, "a"}});
    const auto object = transform.createGraphicOpsTransform()->GetColorObject(kRed);
    ASSERT_TRUE(object.dynamicCast<CM_Color>());
    EXPECT_EQ(object.dynamicCast<CM_Color>()->GetColorType(), CM_Color::NORMAL_COLOR);
    EXPECT_TRUE(object->GetColorName().isEmpty());
}

TEST(DepthColorTransform, AnUnlistedColourIsTransparentBesideListedOnes)
{
    DepthComputationCelColorTransform transform({{kRed, 10, "a"}});
    EXPECT_EQ(paintOf(transform, kBlue), VS_RGBA{});
    EXPECT_EQ(paintOf(transform, CM_ColorId_t()), VS_RGBA{});
}

TEST(DepthColorTransform, DoesNotDependOnThePlaceInThePicture)
{
    DepthComputationCelColorTransform transform({});
    EXPECT_FALSE(transform.createGraphicOpsTransform()->isPositionDependent());
}
