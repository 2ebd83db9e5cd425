// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The attributes of a new node: their order, defaults, labels and bounds.
#include "parameters/VallorinImpl.h"

#include "Plugins/Vallorin/parameters/TextPrinting.h"
#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_StringAttr.h"
#include "parameters/NormalQuality.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;

class VallorinAttributeRecord : public testing::Test
{
protected:
    static std::vector<double> numbersOf(const AT_DoubleAttr& attr)
    {
        const AT_DoubleAttrMetaContainer& numbers = attr.doubleMeta().container();
        return {numbers.lower, numbers.upper, numbers.sliderLower, numbers.sliderUpper, numbers.step};
    }

    Vallorin node;
    const Vallorin::Impl& impl = *node.impl();
};

TEST_F(VallorinAttributeRecord, TheAttributesAreRegisteredInTheEditorsOrder)
{
    std::vector<std::string> keys;
    for (const AT_Attr* attr : node.attrs())
        keys.push_back(attr->keyword().toStdString());
    EXPECT_THAT(keys, ElementsAre("ObjectList", "DepthInBlue", "BlurScale", "ClipBlurredWithGeometry", "ElevationScale",
                                  "ElevationSmoothness", "GenerateNormals", "NormalQuality", "UseTruckFactor",
                                  "ColorInformation"));
}

TEST_F(VallorinAttributeRecord, TheRecordKnowsTheRegisteredAttributes)
{
    EXPECT_EQ(impl.node, &node);
    const std::vector<AT_Attr*> expected = {
        impl.objectList,     impl.depthInBlue,         impl.blurScale,       impl.clipBlurredWithGeometry,
        impl.elevationScale, impl.elevationSmoothness, impl.generateNormals, impl.normalQuality,
        impl.useTruckFactor, impl.colorInformation};
    EXPECT_EQ(node.attrs(), expected);
}

TEST_F(VallorinAttributeRecord, TheDefaultsAreThoseOfANewNode)
{
    EXPECT_EQ(impl.colorInformation->localValue(), QString());
    EXPECT_EQ(impl.objectList->localValue(), QString());
    EXPECT_EQ(impl.blurScale->localValue(), 1.0);
    EXPECT_EQ(impl.elevationScale->localValue(), 1.0);
    EXPECT_EQ(impl.elevationSmoothness->localValue(), 1.0);
    EXPECT_TRUE(impl.generateNormals->localValue());
    EXPECT_FALSE(impl.useTruckFactor->localValue());
    EXPECT_FALSE(impl.depthInBlue->localValue());
    EXPECT_TRUE(impl.clipBlurredWithGeometry->localValue());
    EXPECT_EQ(impl.normalQuality->localValue(), LOW_NORMAL_QUALITY);
    EXPECT_EQ(impl.normalQuality->displayText(1.0), QStringLiteral("Low"));
}

TEST_F(VallorinAttributeRecord, EveryAttributeHasItsLabel)
{
    const std::map<std::string, std::string> expected = {
        {"ColorInformation", "Colour Information"},
        {"ObjectList", "Volume Creation"},
        {"BlurScale", "Bevel Multiplier"},
        {"ElevationScale", "Elevation Multiplier"},
        {"ElevationSmoothness", "Elevation Smoothness Multiplier"},
        {"GenerateNormals", "Generate Normals"},
        {"UseTruckFactor", "Consider Truck Factor"},
        {"DepthInBlue", "Output Elevation in Blue Channel"},
        {"ClipBlurredWithGeometry", "Clip Blurred Image with Geometry"},
        {"NormalQuality", "Normal Map Quality"},
    };
    std::map<std::string, std::string> labels;
    for (const AT_Attr* attr : node.attrs())
        labels[attr->keyword().toStdString()] = attr->label().toStdString();
    EXPECT_EQ(labels, expected);
}

TEST_F(VallorinAttributeRecord, BevelAndElevationMultipliersRunFromZeroToTen)
{
    EXPECT_THAT(numbersOf(*impl.blurScale), ElementsAre(0.0, 10.0, 0.0, 10.0, 0.1));
    EXPECT_THAT(numbersOf(*impl.elevationScale), ElementsAre(0.0, 10.0, 0.0, 10.0, 0.1));
    EXPECT_EQ(impl.blurScale->doubleMeta().stepName(), QStringLiteral("DBL_STEP_BLURRINESS"));
    EXPECT_EQ(impl.elevationScale->doubleMeta().stepName(), QStringLiteral("DBL_STEP_SCALEATTR_Z"));
}

TEST_F(VallorinAttributeRecord, TheSmoothnessMultiplierNeverReachesZero)
{
    EXPECT_THAT(numbersOf(*impl.elevationSmoothness), ElementsAre(0.1, 128.0, 0.1, 128.0, 0.1));
    EXPECT_EQ(impl.elevationSmoothness->doubleMeta().stepName(), QStringLiteral("DBL_STEP_SCALEATTR_Z"));
    impl.elevationSmoothness->setLocalValue(0.0);
    EXPECT_EQ(impl.elevationSmoothness->localValue(), 0.1);
}

TEST_F(VallorinAttributeRecord, TheMultipliersCanBeDrivenAndShowNoUnit)
{
    for (const AT_DoubleAttr* attr : {impl.blurScale, impl.elevationScale, impl.elevationSmoothness}) {
        EXPECT_TRUE(attr->isLinkable());
        EXPECT_EQ(attr->unit(), QString());
        EXPECT_EQ(attr->parent(), nullptr);
    }
}

TEST_F(VallorinAttributeRecord, TheTablesArePlainTexts)
{
    for (const AT_StringAttr* attr : {impl.colorInformation, impl.objectList}) {
        EXPECT_FALSE(attr->isMultiline());
        EXPECT_FALSE(attr->isFilePath());
    }
}

TEST_F(VallorinAttributeRecord, TwoNodesShareTheMetadataAndNothingElse)
{
    const Vallorin other;
    const std::vector<AT_Attr*> attrs = node.attrs();
    const std::vector<AT_Attr*> others = other.attrs();
    ASSERT_EQ(attrs.size(), others.size());
    for (std::size_t i = 0; i < attrs.size(); ++i) {
        EXPECT_EQ(&attrs[i]->meta(), &others[i]->meta());
        EXPECT_NE(attrs[i], others[i]);
    }
}

TEST_F(VallorinAttributeRecord, TheAccessorsGiveTheTwoTables)
{
    EXPECT_EQ(node.colorInformation(), node.findAttr(QStringLiteral("ColorInformation")));
    EXPECT_EQ(node.objectInformation(), node.findAttr(QStringLiteral("ObjectList")));
}

} // namespace
