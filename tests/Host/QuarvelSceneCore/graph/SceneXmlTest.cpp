// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Scenes as XML: what is written reads back, and unknown content is kept.
#include "Host/QuarvelSceneCore/TestModules.h"

#include "QuarvelPersistentObj/PO_XmlReading.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"
#include "QuarvelSceneCore/graph/MO_OpaqueModule.h"
#include "QuarvelSceneCore/kinds/MO_CompositeModule.h"
#include "QuarvelSceneCore/kinds/MO_DisplayModule.h"
#include "QuarvelSceneCore/kinds/MO_GlueModule.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

using namespace test_modules;

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

UT_Result<void> read(MO_Scene& scene, const QString& xml, QStringList* warnings = nullptr)
{
    auto document = PO_parseDocument(xml.toUtf8(), text("test"));
    if (!document)
        return document.error();
    return scene.readXml(document->documentElement(), warnings);
}

// A scene with all kinds of modules and a group in a group.
void build(MO_Scene& scene)
{
    XUGroup& root = scene.root();
    auto& element = root.emplace<MO_ElementModule>();
    element.setInstanceName(text("Arm \"left\" <&> \xc3\xa9"));
    element.drawingAttr()->setElementName(text("Arm"));
    AT_ExposureSheet exposures;
    exposures.setExposure(1, text("1"));
    exposures.setExposure(7, QString());
    element.drawingAttr()->setExposures(exposures);
    element.rotation()->setLocalValue(12.5);
    element.setDrawingFileExt(text("kvr"));
    auto& other = root.emplace<MO_ElementModule>();
    other.setEnabled(false);
    other.rotation()->setSurrogate(UT_makeShared<AT_AttrLink>(scene.pathOf(*element.rotation())));
    other.setGraphPlace(MO_GraphPlace{120.5, -36.0});
    auto& group = root.emplace<XUGroup>();
    group.addInPort();
    group.addInPort();
    group.addOutPort();
    auto& innerGroup = group.emplace<XUGroup>();
    auto& glue = group.emplace<MO_GlueModule>();
    auto& innermost = innerGroup.emplace<MO_ElementModule>();
    innerGroup.addOutPort();
    auto& composite = root.emplace<MO_CompositeModule>();
    composite.setCompositeOrder(MO_CompositeType::PORT_ORDER);
    auto& display = root.emplace<MO_DisplayModule>();
    const auto link = [](MO_Module& source, MO_Module& target, unsigned in, unsigned out = 0) {
        ASSERT_TRUE(MO_Scene::connect(source, target, in, out).ok());
    };
    link(element, group, 1);
    link(group.entry(), glue, 0, 1);
    link(innerGroup, glue, 1);
    link(innermost, innerGroup.exit(), 0);
    link(glue, group.exit(), 0);
    link(group, composite, 0);
    link(other, composite, 2);
    link(composite, display, 0);
    scene.setFrameRange(1, 48);
    scene.setFrameHeight(540.0);
    scene.truckFactorAttr().setLocalValue(1.5);
    scene.resolveLinks();
}

TEST(SceneXml, APlaceInTheGraphThatMeansNothingIsLeftOutWithAWarning)
{
    MO_Scene scene;
    auto& glue = scene.root().emplace<MO_GlueModule>();
    glue.setGraphPlace(MO_GraphPlace{120.5, -36.0});
    const QString good = scene.toXml();
    ASSERT_TRUE(good.contains(text("place=\"120.5 -36\"")));
    for (const char* const bad : {"", "1", "1 2 3", "a b", "1,5 2", "2000000 0", "nan 0", "0 inf"}) {
        MO_Scene other;
        QStringList warnings;
        ASSERT_TRUE(read(other, QString(good).replace(text("120.5 -36"), text(bad)), &warnings).ok()) << bad;
        EXPECT_EQ(warnings.size(), 1) << bad;
        EXPECT_FALSE(other.root().modules().front()->graphPlace()) << bad;
    }
}

TEST(SceneXml, ReadsBackWhatItWrote)
{
    MO_Scene scene;
    build(scene);
    MO_Scene other;
    QStringList warnings;
    ASSERT_TRUE(read(other, scene.toXml(), &warnings).ok());
    EXPECT_EQ(warnings, QStringList());
    EXPECT_EQ(other.toXml(), scene.toXml());

    EXPECT_EQ(other.lastFrame(), 48);
    EXPECT_EQ(other.frameHeight(), 540.0);
    EXPECT_EQ(other.truckFactor(3.0), 1.5);
    auto* const element = dynamic_cast<MO_ElementModule*>(other.findModule(text("Arm \"left\" <&> \xc3\xa9")));
    ASSERT_NE(element, nullptr);
    EXPECT_EQ(element->rotation()->value(1.0), 12.5);
    EXPECT_EQ(element->getDrawingFileExt(), text("kvr"));
    EXPECT_EQ(element->drawingAttr()->drawing(3.0), text("1"));
    MO_Module* const composite = other.findModule(text("Composite"));
    ASSERT_NE(composite, nullptr);
    EXPECT_EQ(composite->nInPorts(), 4U);
    EXPECT_FALSE(composite->inPort(1)->isConnected());
    EXPECT_EQ(composite->compositeOrder(MO_BaseContext({1.0}, {1, 1})), MO_CompositeType::PORT_ORDER);
    auto* const disabled = dynamic_cast<MO_ElementModule*>(composite->inPort(2)->srcPort()->module());
    ASSERT_NE(disabled, nullptr);
    EXPECT_FALSE(disabled->enabled());
    EXPECT_EQ(disabled->rotation()->value(1.0), 12.5) << "links between attributes are resolved after reading";
    EXPECT_EQ(composite->inPort(0)->realSrcPort()->node()->keyword(), MO_GlueModule::Keyword());
    EXPECT_EQ(composite->inPort(0)->realSrcPort()->node()->inPort(0)->realSrcPort(), element->outPort(0));
}

TEST(SceneXml, WritesModulesFirstAndLinksInTheOrderOfTheirTargets)
{
    MO_Scene scene;
    auto& source = scene.root().emplace<MO_OpaqueModule>(text("STRANGE"));
    source.setInstanceName(text("A"));
    source.needOutPort(0);
    auto& glue = scene.root().emplace<MO_GlueModule>();
    ASSERT_TRUE(MO_Scene::connect(source, glue, 1).ok());
    EXPECT_EQ(scene.toXml().simplified(),
              text("<scene firstFrame=\"1\" frameHeight=\"405\" lastFrame=\"1\" version=\"1\"> "
                   "<camera> <TruckFactor val=\"1\"/> </camera> "
                   "<graph> "
                   "<module enabled=\"true\" name=\"A\" type=\"STRANGE\"> <attrs/> </module> "
                   "<module enabled=\"true\" name=\"Glue\" type=\"GLUE\"> <attrs/> </module> "
                   "<link from=\"A\" fromPort=\"0\" to=\"Glue\" toPort=\"1\"/> "
                   "</graph> "
                   "</scene>"));
}

TEST(SceneXml, KeepsModulesOfUnknownKindsAndTheirLinks)
{
    const QString xml =
        text("<scene version=\"1\"><graph>"
             "<module type=\"READ\" name=\"Leaf\"/>"
             "<module type=\"WARP\" name=\"W\" power=\"9\" enabled=\"true\">"
             "<attrs version=\"7\"><Strength val=\"2\"><deep x=\"1\"/></Strength></attrs><more>words</more></module>"
             "<module type=\"DISPLAY\" name=\"D\"/>"
             "<link from=\"Leaf\" fromPort=\"0\" to=\"W\" toPort=\"2\"/>"
             "<link from=\"W\" fromPort=\"1\" to=\"D\" toPort=\"0\"/>"
             "</graph></scene>");
    MO_Scene scene;
    QStringList warnings;
    ASSERT_TRUE(read(scene, xml, &warnings).ok());
    EXPECT_FALSE(warnings.isEmpty());
    MO_Module* const strange = scene.findModule(text("W"));
    ASSERT_NE(strange, nullptr);
    EXPECT_EQ(strange->keyword(), text("WARP"));
    EXPECT_EQ(strange->nInPorts(), 3U);
    EXPECT_EQ(scene.findModule(text("D"))->inPort(0)->srcPort(), strange->outPort(1));
    const QString once = scene.toXml();
    for (const char* kept : {"type=\"WARP\"", "power=\"9\"", "<attrs version=\"7\">", "<Strength val=\"2\">",
                             "<deep x=\"1\"/>", "<more>words</more>", "fromPort=\"1\"", "toPort=\"2\""})
        EXPECT_TRUE(once.contains(text(kept))) << kept;
    MO_Scene again;
    ASSERT_TRUE(read(again, once).ok());
    EXPECT_EQ(again.toXml(), once);
}

TEST(SceneXml, KeepsWhatANewerVersionAdds)
{
    const QString xml =
        text("<scene version=\"2\" mood=\"dark\"><camera lens=\"50\"><Shake val=\"3\"/></camera>"
             "<graph grid=\"8\"><module type=\"GLUE\" name=\"G\" tint=\"red\"><attrs><New val=\"1\"/></attrs></module>"
             "<note>hello</note></graph><audio/><camera number=\"2\"/><graph number=\"2\"/></scene>");
    MO_Scene scene;
    QStringList warnings;
    ASSERT_TRUE(read(scene, xml, &warnings).ok());
    EXPECT_FALSE(warnings.isEmpty());
    const QString once = scene.toXml();
    for (const char* kept :
         {"mood=\"dark\"", "<camera lens=\"50\">", "<Shake val=\"3\"/>", "grid=\"8\"", "tint=\"red\"",
          "<New val=\"1\"/>", "<note>hello</note>", "<audio/>", "<camera number=\"2\"/>", "<graph number=\"2\"/>"})
        EXPECT_TRUE(once.contains(text(kept))) << kept;
    MO_Scene again;
    ASSERT_TRUE(read(again, once).ok());
    EXPECT_EQ(again.toXml(), once);
}

TEST(SceneXml, WhatIsNoSceneChangesNothing)
{
    MO_Scene scene;
    build(scene);
    const QString before = scene.toXml();
    const auto refused = read(scene, text("<palette/>"));
    ASSERT_FALSE(refused.ok());
    EXPECT_TRUE(refused.error().text.contains(text("palette")));
    EXPECT_EQ(scene.toXml(), before);
}

TEST(SceneXml, AGraphWithTooManyModulesIsRefusedWhole)
{
    QString xml = text("<scene><graph><module type=\"GROUP\" name=\"G\"><graph>");
    for (int i = 0; i < XUGroup::kMaxModulesInFile; ++i)
        xml += text("<module type=\"GLUE\" name=\"A\"/>");
    xml += text("</graph></module></graph></scene>");
    MO_Scene scene;
    const QString before = scene.toXml();
    EXPECT_FALSE(read(scene, xml).ok());
    EXPECT_EQ(scene.toXml(), before);
}

TEST(SceneXml, TooManyGroupsInEachOtherAreRefusedWhole)
{
    const auto nested = [](int groups) {
        return text("<scene><graph>") + text("<module type=\"GROUP\" name=\"G\"><graph>").repeated(groups) +
               text("</graph></module>").repeated(groups) + text("</graph></scene>");
    };
    MO_Scene scene;
    EXPECT_TRUE(read(scene, nested(XUGroup::kMaxDepthInFile)).ok());
    const QString before = scene.toXml();
    EXPECT_FALSE(read(scene, nested(XUGroup::kMaxDepthInFile + 1)).ok());
    EXPECT_EQ(scene.toXml(), before);
}

TEST(SceneXml, LinksThatCannotBeMadeAreLeftOutWithAWarning)
{
    const QString modules =
        text("<scene><graph><module type=\"COMPOSITE\" name=\"A\"/><module type=\"COMPOSITE\" name=\"B\"/>");
    const QString end = text("</graph></scene>");
    for (const char* link : {"<link from=\"A\" fromPort=\"0\" to=\"A\" toPort=\"0\"/>",
                             "<link from=\"A\" fromPort=\"5\" to=\"B\" toPort=\"0\"/>",
                             "<link from=\"A\" fromPort=\"0\" to=\"B\" toPort=\"99999999\"/>",
                             "<link from=\"A\" fromPort=\"0\" to=\"B\" toPort=\"-1\"/>",
                             "<link from=\"A\" fromPort=\"0\" to=\"C\" toPort=\"0\"/>",
                             "<link from=\"A\" fromPort=\"0\" toPort=\"0\"/>", "<link/>"}) {
        MO_Scene scene;
        QStringList warnings;
        ASSERT_TRUE(read(scene, modules + text(link) + end, &warnings).ok()) << link;
        EXPECT_EQ(warnings.size(), 1) << link;
        EXPECT_EQ(scene.findModule(text("B"))->nInPorts(), 1U) << link;
        EXPECT_FALSE(scene.findModule(text("B"))->inPort(0)->isConnected()) << link;
    }
}

TEST(SceneXml, ASecondModuleOfOneNameGetsAnotherOneAndLinksMeanTheFirst)
{
    MO_Scene scene;
    QStringList warnings;
    ASSERT_TRUE(read(scene,
                     text("<scene><graph><module type=\"READ\" name=\"A\"/><module type=\"GLUE\" name=\"A\"/>"
                          "<module type=\"DISPLAY\" name=\"D\"/><link from=\"A\" fromPort=\"0\" to=\"D\" toPort=\"0\"/>"
                          "</graph></scene>"),
                     &warnings)
                    .ok());
    EXPECT_EQ(warnings.size(), 1);
    EXPECT_EQ(scene.findModule(text("A_1"))->keyword(), MO_GlueModule::Keyword());
    EXPECT_EQ(scene.findModule(text("D"))->inPort(0)->srcPort()->node()->keyword(), MO_ElementModule::Keyword());
}

TEST(ModuleReader, RefusesAnElementOfAnotherKind)
{
    MO_GlueModule glue;
    auto document = PO_parseDocument("<module type=\"READ\" name=\"x\"/>", text("test"));
    QStringList warnings;
    EXPECT_FALSE(glue.componentReader()->readElement(document->documentElement(), &warnings));
    EXPECT_EQ(warnings.size(), 1);
    EXPECT_EQ(glue.instanceName(), QString());
}

TEST(ModuleReader, ReadsNameSwitchAndMode)
{
    MO_GlueModule glue;
    auto document = PO_parseDocument("<module type=\"GLUE\" name=\"x\" enabled=\"false\" mode=\"3\"><attrs/></module>",
                                     text("test"));
    EXPECT_TRUE(glue.componentReader()->readElement(document->documentElement(), nullptr));
    EXPECT_EQ(glue.instanceName(), text("x"));
    EXPECT_FALSE(glue.enabled());
    EXPECT_EQ(glue.mode(), 3);
    EXPECT_TRUE(glue.toXml().contains(text("mode=\"3\"")));
}

QString arbitraryName()
{
    const auto units = *rc::gen::scale(0.3, rc::gen::arbitrary<std::vector<std::uint16_t>>());
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(units.data()), static_cast<qsizetype>(units.size()));
}

RC_GTEST_PROP(SceneXmlProperty, AnyGraphComesBackAsTheSameText, ())
{
    MO_Scene scene;
    std::vector<XUGroup*> groups{&scene.root()};
    const int steps = *rc::gen::inRange(1, 25);
    for (int i = 0; i < steps; ++i) {
        XUGroup& group = *groups[*rc::gen::inRange<std::size_t>(0, groups.size())];
        const QStringList kinds{text("COMPOSITE"), text("DISPLAY"), text("GLUE"),
                                text("GROUP"),     text("READ"),    text("STRANGE")};
        const QString kind = kinds.at(*rc::gen::inRange(0, 6));
        auto made = MO_ModuleFactorySingleton().create(kind);
        if (!made) {
            auto opaque = std::make_unique<MO_OpaqueModule>(kind);
            opaque->needInPort(2);
            opaque->needOutPort(1);
            made = std::move(opaque);
        }
        MO_Module& module = group.add(std::move(made));
        module.setInstanceName(arbitraryName());
        module.setEnabled(*rc::gen::arbitrary<bool>());
        if (auto* inner = dynamic_cast<XUGroup*>(&module)) {
            inner->addInPort();
            inner->addOutPort();
            groups.push_back(inner);
        }
        std::vector<MO_Module*> ends{&group.entry(), &group.exit()};
        for (const auto& own : group.modules())
            ends.push_back(own.get());
        for (int tries = 0; tries < 3; ++tries)
            static_cast<void>(MO_Scene::connect(*ends[*rc::gen::inRange<std::size_t>(0, ends.size())],
                                                *ends[*rc::gen::inRange<std::size_t>(0, ends.size())],
                                                *rc::gen::inRange(0U, 4U), *rc::gen::inRange(0U, 2U)));
    }
    const QString xml = scene.toXml();
    MO_Scene other;
    RC_ASSERT(read(other, xml).ok());
    RC_ASSERT(other.toXml() == xml);
}

} // namespace
