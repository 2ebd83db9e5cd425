// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How the node is written into a scene and read back, and how scenes without its newest attribute are read.
#include "ObjectDefinition/ObjectDefinition.h"
#include "Plugins/Vallorin/parameters/TextPrinting.h"
#include "QuarvelPersistentObj/PO_XmlReading.h"
#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_StringAttr.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "node/Vallorin.h"
#include "parameters/NormalQuality.h"
#include "parameters/VallorinImpl.h"

#include <gtest/gtest.h>

namespace {

QDomElement parsed(const QString& xml)
{
    const UT_Result<QDomDocument> document = PO_parseDocument(xml.toUtf8(), QStringLiteral("test"));
    EXPECT_TRUE(document.ok()) << xml.toStdString();
    return document.ok() ? document->documentElement() : QDomElement();
}

/// Reads a node from the attributes of its element.
bool read(Vallorin& node, const QString& attributes)
{
    const QString xml =
        QStringLiteral("<module enabled=\"true\" name=\"N\" type=\"Vallorin\"><attrs>%1</attrs></module>");
    return node.componentReader()->readElement(parsed(xml.arg(attributes)), nullptr);
}

/// A scene with a node whose every attribute differs from its default.
class VallorinInAScene : public testing::Test
{
protected:
    VallorinInAScene()
    {
        Vallorin::Impl& impl = *node.impl();
        impl.colorInformation->setLocalValue(QStringLiteral("000000000000000a:7:R<e>d & \"blue\""));
        impl.objectList->setLocalValue(QStringLiteral("1:2.500000:1.000000:1.000000"));
        impl.blurScale->setLocalValue(2.5);
        AT_Curve curve;
        curve.setKey({1.0, 0.5, AT_Curve::Interpolation::LINEAR, {}, {}, {}});
        curve.setKey({11.0, 1.5, AT_Curve::Interpolation::LINEAR, {}, {}, {}});
        impl.elevationScale->setCurve(curve);
        impl.elevationSmoothness->setLocalValue(64.0);
        impl.generateNormals->setLocalValue(false);
        impl.useTruckFactor->setLocalValue(true);
        impl.depthInBlue->setLocalValue(true);
        impl.clipBlurredWithGeometry->setLocalValue(true);
        impl.normalQuality->setLocalValue(HIGH_NORMAL_QUALITY);
        EXPECT_TRUE(MO_Scene::connect(leaf, node, 1).ok());
    }

    MO_Scene scene;
    Vallorin& node = scene.root().emplace<Vallorin>();
    MO_ElementModule& leaf = scene.root().emplace<MO_ElementModule>();
};

TEST_F(VallorinInAScene, EverythingComesBack)
{
    const QString written = scene.toXml();
    MO_Scene again;
    QStringList warnings;
    ASSERT_TRUE(again.readXml(parsed(written), &warnings).ok());
    EXPECT_EQ(warnings, QStringList());
    EXPECT_EQ(again.toXml(), written);

    auto* const copy = dynamic_cast<Vallorin*>(again.findModule(node.instanceName()));
    ASSERT_NE(copy, nullptr);
    const Vallorin::Impl& impl = *copy->impl();
    EXPECT_EQ(impl.colorInformation->localValue(), QStringLiteral("000000000000000a:7:R<e>d & \"blue\""));
    EXPECT_EQ(impl.objectList->localValue(), QStringLiteral("1:2.500000:1.000000:1.000000"));
    EXPECT_EQ(impl.blurScale->localValue(), 2.5);
    EXPECT_EQ(impl.elevationScale->value(6.0), 1.0) << "half way between the keys";
    EXPECT_EQ(impl.elevationSmoothness->localValue(), 64.0);
    EXPECT_FALSE(impl.generateNormals->localValue());
    EXPECT_TRUE(impl.useTruckFactor->localValue());
    EXPECT_TRUE(impl.depthInBlue->localValue());
    EXPECT_TRUE(impl.clipBlurredWithGeometry->localValue());
    EXPECT_EQ(impl.normalQuality->localValue(), HIGH_NORMAL_QUALITY);
    EXPECT_EQ(copy->nInPorts(), 3U) << "a free one, the linked one, the next free one";
    EXPECT_TRUE(copy->inPort(1)->isConnected());
}

TEST_F(VallorinInAScene, ASceneFromBeforeClippingLoadsWithoutIt)
{
    QString written = scene.toXml();
    const QString line = QStringLiteral("<ClipBlurredWithGeometry val=\"true\"/>");
    ASSERT_TRUE(written.contains(line));
    written.remove(line);
    MO_Scene again;
    ASSERT_TRUE(again.readXml(parsed(written), nullptr).ok());
    const auto* const copy = dynamic_cast<Vallorin*>(again.findModule(node.instanceName()));
    ASSERT_NE(copy, nullptr);
    EXPECT_FALSE(copy->impl()->clipBlurredWithGeometry->localValue());
}

TEST(VallorinReading, AnElementWithoutClippingReadsFalse)
{
    Vallorin node;
    ASSERT_TRUE(node.impl()->clipBlurredWithGeometry->localValue());
    ASSERT_TRUE(read(node, QString()));
    EXPECT_FALSE(node.impl()->clipBlurredWithGeometry->localValue());
}

TEST(VallorinReading, AnElementWithClippingReadsItsValue)
{
    for (const bool stored : {true, false}) {
        Vallorin node;
        const QString text = stored ? QStringLiteral("true") : QStringLiteral("false");
        ASSERT_TRUE(read(node, QStringLiteral("<ClipBlurredWithGeometry val=\"%1\"/>").arg(text)));
        EXPECT_EQ(node.impl()->clipBlurredWithGeometry->localValue(), stored);
    }
}

TEST(VallorinReading, OtherMissingAttributesKeepTheirDefaults)
{
    Vallorin node;
    ASSERT_TRUE(read(node, QString()));
    EXPECT_TRUE(node.impl()->generateNormals->localValue());
    EXPECT_EQ(node.impl()->blurScale->localValue(), 1.0);
    EXPECT_EQ(node.impl()->normalQuality->localValue(), LOW_NORMAL_QUALITY);
}

TEST(VallorinReading, AReaderSwitchesClippingOffWhenItIsAskedFor)
{
    Vallorin node;
    const std::unique_ptr<PIO_ComponentReader> reader = node.componentReader();
    EXPECT_FALSE(node.impl()->clipBlurredWithGeometry->localValue());
}

} // namespace
