// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The Object Definition node: what it leaves for the requests downstream of it.
#include "ObjectDefinition/ObjectDefinition.h"

#include "ObjectDefinition/ObjectDefinitionEntry.h"
#include "ObjectDefinition/ObjectDefinitionMessage.h"
#include "QuarvelPersistentObj/PO_XmlReading.h"
#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneCore/interfaces/MO_RenderingRequestService.h"
#include "QuarvelSceneCore/interfaces/RD_ScriptContext.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "QuarvelSceneCore/rendering/RD_SoftRenderer.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

// What a request downstream finds in the context of the drawing.
struct Found
{
    int drawings = 0;
    std::optional<int> id;
    double level = -1.0;
    bool scaleByCoverage = false;
    bool disabled = false;
    bool celHasMessage = false;
};

// The last module of a chain, which records what arrives.
class Looking : public MO_Module
{
public:
    Looking() { addInImagePort(); }
    QString keyword() const override { return QStringLiteral("LOOKING"); }
    QString baseDisplayName() const override { return QStringLiteral("Looking"); }
    void insertRenderingRequestForSrcPort(RD_ScriptContext& context, int port) override
    {
        MO_Module::insertRenderingRequestForSrcPort(context, port);
        context.insertRequest(MO_RenderingRequestService::createRenderingRequest(this, createRequestHandler()));
    }
    std::unique_ptr<MO_RenderingRequestHandler> createRequestHandler() override
    {
        return std::make_unique<Handler>(found);
    }
    Found found;

private:
    class Handler : public MO_RenderingRequestHandler
    {
    public:
        explicit Handler(Found& found) : _found(found) {}
        void processDrawing(BaseContext& context) override
        {
            ++_found.drawings;
            const auto entry =
                context.findObject(ObjectDefinition::objectDefinitionMessageId()).dynamicCast<ObjectDefinitionEntry>();
            if (entry) {
                _found.id = entry->identifier();
                _found.level = entry->objectLevel();
                _found.scaleByCoverage = entry->scaleByCoverage();
            }
            _found.disabled = context.findObject(ObjectDefinition::objectDisableMessageId()) != nullptr;
            _found.celHasMessage =
                context.drawing()->findMessage(ObjectDefinition::objectDefinitionMessageId()) != nullptr;
        }

    private:
        Found& _found;
    };
};

struct ObjectDefinitionTest : testing::Test
{
    MO_Scene scene;
    MO_ElementModule& element = scene.root().emplace<MO_ElementModule>();
    ObjectDefinition& upstream = scene.root().emplace<ObjectDefinition>();
    ObjectDefinition& downstream = scene.root().emplace<ObjectDefinition>();
    Looking& end = scene.root().emplace<Looking>();

    ObjectDefinitionTest()
    {
        element.setDrawing(QStringLiteral("1"), UT_makeShared<CELVEC_Kvd>());
        AT_ExposureSheet exposures;
        exposures.setExposure(1, QStringLiteral("1"));
        element.drawingAttr()->setExposures(exposures);
        EXPECT_TRUE(MO_Scene::connect(element, upstream).ok());
        EXPECT_TRUE(MO_Scene::connect(upstream, downstream).ok());
        EXPECT_TRUE(MO_Scene::connect(downstream, end).ok());
        upstream.objectNumber()->setLocalValue(5);
        downstream.objectNumber()->setLocalValue(2);
    }

    Found render(double frame = 1.0)
    {
        end.found = Found();
        EXPECT_TRUE(RD_SoftRenderer::render(end, frame, {.resolution = {8, 4}}).ok());
        EXPECT_EQ(end.found.drawings, 1);
        return end.found;
    }
};

TEST(ObjectDefinitionNode, HasItsAttributesWithTheirDefaultsAndOneInput)
{
    const ObjectDefinition node;
    EXPECT_EQ(node.objectNumber()->localValue(), 1);
    EXPECT_EQ(node.objectLevel()->localValue(), 1.0);
    EXPECT_EQ(node.objectLevel()->lower(), 0.0);
    EXPECT_EQ(node.objectLevel()->upper(), 1.0);
    EXPECT_FALSE(node.scaleByCoverage()->localValue());
    EXPECT_TRUE(node.objectEnabled()->localValue());
    EXPECT_EQ(node.tiltX()->localValue(), 0.0);
    EXPECT_EQ(node.tiltY()->localValue(), 0.0);
    EXPECT_EQ(node.tiltX()->lower(), -90.0);
    EXPECT_EQ(node.tiltY()->upper(), 90.0);
    EXPECT_EQ(node.rimBevel()->localValue(), 0.0);
    EXPECT_EQ(node.rimHeight()->localValue(), double{ObjectDefinition::kRimHeight});
    EXPECT_EQ(node.relief()->localValue(), 0.0);
    EXPECT_EQ(node.attrs().size(), 9U);
    EXPECT_EQ(node.nInPorts(), 1U);
    EXPECT_EQ(node.nOutPorts(), 1U);
}

TEST(ObjectDefinitionNode, IsRegisteredByItsLibrary)
{
    const auto made = MO_ModuleFactorySingleton().create(QStringLiteral("OBJECT_DEFINITION"));
    EXPECT_NE(dynamic_cast<ObjectDefinition*>(made.get()), nullptr);
}

TEST(ObjectDefinitionNode, GivesTheNumberOfTheFrame)
{
    ObjectDefinition node;
    AT_Curve curve;
    ASSERT_TRUE(curve.setKey({.frame = 1.0, .value = 3.0, .in = {}, .out = {}, .unknown = {}}));
    ASSERT_TRUE(curve.setKey({.frame = 3.0, .value = 7.0, .in = {}, .out = {}, .unknown = {}}));
    node.objectNumber()->setCurve(curve);
    EXPECT_EQ(node.objectId(1.0), 3);
    EXPECT_EQ(node.objectId(2.0), 5);
    EXPECT_EQ(ObjectDefinition::objectId(&node, 3.0), 7);
    EXPECT_EQ(ObjectDefinition::objectId(nullptr, 3.0), -1);
}

TEST(ObjectDefinitionNode, ComesBackFromXml)
{
    MO_Scene scene;
    auto& node = scene.root().emplace<ObjectDefinition>();
    node.objectNumber()->setLocalValue(12);
    node.objectLevel()->setLocalValue(0.25);
    node.scaleByCoverage()->setLocalValue(true);
    node.objectEnabled()->setLocalValue(false);
    MO_Scene other;
    auto document = PO_parseDocument(scene.toXml().toUtf8(), QStringLiteral("test"));
    ASSERT_TRUE(document.ok());
    QStringList warnings;
    ASSERT_TRUE(other.readXml(document->documentElement(), &warnings).ok());
    EXPECT_TRUE(warnings.isEmpty());
    auto* const read = dynamic_cast<ObjectDefinition*>(other.root().modules().at(0).get());
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->objectId(1.0), 12);
    EXPECT_EQ(read->objectLevel()->value(1.0), 0.25);
    EXPECT_TRUE(read->scaleByCoverage()->value());
    EXPECT_FALSE(read->objectEnabled()->value());
}

TEST_F(ObjectDefinitionTest, TheDefinitionNearestToTheDrawingCounts)
{
    upstream.objectLevel()->setLocalValue(0.5);
    upstream.scaleByCoverage()->setLocalValue(true);
    const Found found = render();
    EXPECT_EQ(found.id, 5);
    EXPECT_EQ(found.level, 0.5);
    EXPECT_TRUE(found.scaleByCoverage);
    EXPECT_FALSE(found.disabled);
    EXPECT_FALSE(found.celHasMessage) << "the definition attaches nothing to the cel itself";
}

TEST_F(ObjectDefinitionTest, ANodeThatIsNotEnabledTellsNothing)
{
    upstream.setEnabled(false);
    upstream.objectEnabled()->setLocalValue(false);
    const Found found = render();
    EXPECT_EQ(found.id, 2);
    EXPECT_EQ(found.level, 1.0);
    EXPECT_FALSE(found.disabled);
    downstream.setEnabled(false);
    EXPECT_EQ(render().id, std::nullopt);
}

TEST_F(ObjectDefinitionTest, ANodeThatIsNotEnabledInsertsNoRequestWhenAsked)
{
    upstream.setEnabled(false);
    RD_ScriptContext script({1.0}, RD_RenderJob({}));
    script.scriptPorts(upstream);
    EXPECT_TRUE(script.requests().empty());
    script.scriptPorts(downstream);
    EXPECT_EQ(script.requests().size(), 1U);
}

TEST_F(ObjectDefinitionTest, AnObjectSwitchedOffIsTold)
{
    upstream.objectEnabled()->setLocalValue(false);
    const Found found = render();
    EXPECT_TRUE(found.disabled);
    EXPECT_EQ(found.id, 5);
}

TEST_F(ObjectDefinitionTest, TheNumberIsThatOfTheRenderedFrame)
{
    AT_Curve curve;
    ASSERT_TRUE(curve.setKey({.frame = 1.0, .value = 3.0, .in = {}, .out = {}, .unknown = {}}));
    ASSERT_TRUE(curve.setKey({.frame = 5.0, .value = 7.0, .in = {}, .out = {}, .unknown = {}}));
    upstream.objectNumber()->setCurve(curve);
    EXPECT_EQ(render(1.0).id, 3);
    EXPECT_EQ(render(3.0).id, 5);
}

TEST(ObjectDefinitionMessage, CarriesItsValues)
{
    const auto message = UT_makeShared<ObjectDefinitionMessage>(4, 0.5, 2.0);
    EXPECT_EQ(message->objectId(), 4);
    EXPECT_EQ(message->low(), 0.5);
    EXPECT_EQ(message->high(), 2.0);
    EXPECT_FALSE(ObjectDefinition::objectDefinitionMessageId() == ObjectDefinition::objectDisableMessageId());
}

TEST_F(ObjectDefinitionTest, KeepsTheChosenFormInItsXmlAndWritesNoneWhereThereIsNone)
{
    MO_Scene written;
    auto& chosen = written.root().emplace<ObjectDefinition>();
    chosen.setInstanceName(QStringLiteral("Chosen"));
    chosen.setChosenForm(QStringLiteral("24:1:1.8"));
    written.root().emplace<ObjectDefinition>().setInstanceName(QStringLiteral("Plain"));
    const QString xml = written.toXml();
    EXPECT_EQ(xml.count(QStringLiteral("chosenForm=")), 1);
    QStringList warnings;
    auto document = PO_parseDocument(xml.toUtf8(), QStringLiteral("test"));
    ASSERT_TRUE(document.ok());
    MO_Scene other;
    ASSERT_TRUE(other.readXml(document->documentElement(), &warnings).ok());
    EXPECT_EQ(warnings, QStringList());
    const auto formOf = [&](const char* name) {
        return dynamic_cast<ObjectDefinition&>(*other.findModule(QLatin1String(name))).chosenForm();
    };
    EXPECT_EQ(formOf("Chosen"), QStringLiteral("24:1:1.8"));
    EXPECT_TRUE(formOf("Plain").isEmpty());
}

} // namespace
