// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Rendering requests: their order, and which drawings they receive.
#include "Host/QuarvelSceneCore/TestModules.h"

#include <gtest/gtest.h>

using namespace test_modules;

namespace {

struct RenderingRequestTest : testing::Test
{
    MO_Scene scene;
    Log log;

    LoggingModule& add(const char* name, bool requests, bool rendersPixels, unsigned inputs = 1)
    {
        return scene.root().emplace<LoggingModule>(std::string(name), log, inputs, requests, rendersPixels);
    }
    MO_ElementModule& element() { return addElement(scene.root(), rectangle(-10, -10, 10, 10)); }
    static void link(MO_Module& source, MO_Module& target, unsigned inPort = 0)
    {
        ASSERT_TRUE(MO_Scene::connect(source, target, inPort).ok());
    }
    // The entries that the handlers wrote, without the calls of render interfaces.
    Log handled(MO_Module& module)
    {
        log.clear();
        EXPECT_TRUE(RD_SoftRenderer::render(module, 1.0, {.resolution = {8, 4}}).ok());
        Log names;
        for (const std::string& line : log)
            if (line.find('.') == std::string::npos)
                names.push_back(line);
        return names;
    }
    static Log owners(const std::vector<RD_ScriptContext::Request>& requests)
    {
        Log names;
        for (const auto& request : requests)
            names.push_back(request->owner()->baseDisplayName().toStdString());
        return names;
    }
};

TEST_F(RenderingRequestTest, RequestsUpstreamStandFirst)
{
    auto& a = add("A", true, false);
    auto& b = add("B", false, false);
    auto& c = add("C", true, false);
    auto& end = add("end", false, true);
    link(element(), a);
    link(a, b);
    link(b, c);
    link(c, end);
    RD_ScriptContext script({1.0}, RD_RenderJob({}));
    script.scriptPorts(end);
    EXPECT_EQ(owners(script.requests()), (Log{"A", "C"}));
    EXPECT_EQ(owners(script.requestsFor(a, 0)), Log{"A"});
    EXPECT_EQ(owners(script.requestsFor(b, 0)), Log{});
}

TEST_F(RenderingRequestTest, ArePutDownForThePortThatIsScripted)
{
    auto& a = add("A", true, false);
    auto& both = add("both", true, true, 2);
    link(element(), a);
    link(a, both, 0);
    link(a, both, 1);
    RD_ScriptContext script({1.0}, RD_RenderJob({}));
    script.scriptPorts(both);
    EXPECT_EQ(owners(script.requests()), (Log{"A", "both", "both"})) << "a port is scripted once, whoever leads to it";
    EXPECT_EQ(script.requestsFor(both, 0).size(), 1U);
    EXPECT_EQ(script.requestsFor(both, 1).size(), 1U);
    EXPECT_NE(script.requestsFor(both, 0), script.requestsFor(both, 1));
}

TEST_F(RenderingRequestTest, OneThatIsInsertedOutsideOfScriptingCountsForEveryPort)
{
    auto& both = add("both", true, true, 2);
    RD_ScriptContext script({1.0}, RD_RenderJob({}));
    both.insertRenderingRequestForSrcPort(script, 0);
    EXPECT_EQ(script.requests().size(), 1U);
    EXPECT_EQ(script.requestsFor(both, 0), script.requests());
    EXPECT_EQ(script.requestsFor(both, 1), script.requests());
}

TEST_F(RenderingRequestTest, TheServiceMakesNoneWithoutOwnerOrHandler)
{
    auto& a = add("A", true, false);
    EXPECT_EQ(MO_RenderingRequestService::createRenderingRequest(nullptr, a.createRequestHandler()), nullptr);
    EXPECT_EQ(MO_RenderingRequestService::createRenderingRequest(&a, nullptr), nullptr);
    RD_ScriptContext script({1.0}, RD_RenderJob({}));
    script.insertRequest(nullptr);
    EXPECT_TRUE(script.requests().empty());
}

TEST_F(RenderingRequestTest, ADrawingMeetsTheNearestRequestFirst)
{
    auto& a = add("A", true, false);
    auto& b = add("B", true, false);
    auto& end = add("end", true, true);
    link(element(), a);
    link(a, b);
    link(b, end);
    EXPECT_EQ(handled(end), (Log{"A", "B", "end"}));
}

TEST_F(RenderingRequestTest, AModuleThatRendersPixelsClaimsTheDrawing)
{
    auto& a = add("A", true, false);
    auto& claims = add("claims", true, true);
    auto& b = add("B", true, false);
    auto& end = add("end", true, true);
    link(element(), a);
    link(a, claims);
    link(claims, b);
    link(b, end);
    EXPECT_EQ(handled(end), (Log{"A", "claims"}));
}

TEST_F(RenderingRequestTest, AModuleThatRendersPixelsWithoutARequestClaimsNothing)
{
    auto& a = add("A", true, false);
    auto& composite = add("composite", false, true);
    auto& end = add("end", true, true);
    link(element(), a);
    link(a, composite);
    link(composite, end);
    EXPECT_EQ(handled(end), (Log{"A", "end"}));
}

TEST_F(RenderingRequestTest, ADisabledModuleHasNone)
{
    auto& a = add("A", true, false);
    auto& off = add("off", true, true);
    auto& end = add("end", true, true);
    link(element(), a);
    link(a, off);
    link(off, end);
    off.setEnabled(false);
    EXPECT_EQ(handled(end), (Log{"A", "end"}));
}

TEST_F(RenderingRequestTest, ADrawingOnSeveralPathsIsProcessedOnEach)
{
    auto& a = add("A", true, false);
    auto& b = add("B", true, false);
    auto& end = add("end", true, true, 2);
    link(element(), a);
    link(a, end, 0);
    link(a, b);
    link(b, end, 1);
    EXPECT_EQ(handled(end), (Log{"A", "end", "A", "B", "end"}));
}

TEST_F(RenderingRequestTest, AHandlerMayRefuseDrawingsFromPortsUpstream)
{
    auto& first = add("first", true, false);
    auto& second = add("second", true, false);
    auto& joint = add("joint", false, true, 2);
    auto& end = add("end", true, true);
    link(element(), first);
    link(element(), second);
    link(first, joint, 0);
    link(second, joint, 1);
    link(joint, end);
    EXPECT_EQ(handled(end), (Log{"first", "end", "second", "end"}));
    end.refusedPort = 1;
    EXPECT_EQ(handled(end), (Log{"first", "end", "second"}));
}

TEST_F(RenderingRequestTest, AnElementThatShowsNothingIsNotProcessed)
{
    auto& end = add("end", true, true);
    link(scene.root().emplace<MO_ElementModule>(), end);
    EXPECT_EQ(handled(end), Log{});
}

TEST(RequestContext, KeepsOneObjectPerKey)
{
    static const UT_DynKey kFirst("first");
    static const UT_DynKey kSecond("second");
    class Entry : public CEL_Message
    {};
    MO_RenderingRequestHandler::BaseContext context(UT_makeShared<CEL_Cel>(), {7.0});
    EXPECT_EQ(context.frameKey().frame, 7.0);
    EXPECT_EQ(context.findObject(kFirst), nullptr);
    const UT_SharedPtr<CEL_Message> one(new Entry);
    const UT_SharedPtr<CEL_Message> two(new Entry);
    context.addObject(kFirst, one);
    EXPECT_EQ(context.findObject(kFirst), one);
    EXPECT_EQ(context.findObject(kSecond), nullptr);
    context.addObject(kFirst, two);
    EXPECT_EQ(context.findObject(kFirst), two);
}

// A drawing that a handler puts in place of another arrives downstream, ready to be rasterised.
TEST(RequestContext, AReplacedDrawingArrivesWithItsPlace)
{
    class Replacing : public MO_RenderingRequestHandler
    {
    public:
        void processDrawing(BaseContext& context) override
        {
            auto cel = UT_makeShared<CEL_Cel>();
            cel->setRepresentation(rectangle(-360, -180, 360, 180, kGreen));
            context.drawing() = cel;
        }
    };
    class Module : public PassModule
    {
    public:
        void insertRenderingRequestForSrcPort(RD_ScriptContext& context, int port) override
        {
            MO_Module::insertRenderingRequestForSrcPort(context, port);
            context.insertRequest(
                MO_RenderingRequestService::createRenderingRequest(this, std::make_unique<Replacing>()));
        }
    };
    MO_Scene scene;
    auto& module = scene.root().emplace<Module>();
    ASSERT_TRUE(MO_Scene::connect(addElement(scene.root(), rectangle(0, 0, 90, 90)), module).ok());
    const auto cel = RD_SoftRenderer::render(module, 1.0, {.resolution = {8, 4}});
    ASSERT_TRUE(cel.ok());
    const auto pixels = (*cel)->pixmap().dynamicCast<CEL_PixmapAreaRGBA16>();
    ASSERT_TRUE(pixels);
    ASSERT_NE(pixels->find(0, 0), nullptr);
    EXPECT_EQ(*pixels->find(0, 0), (CEL_PixelRGBA16{0, 32767, 0, 32767}));
}

} // namespace
