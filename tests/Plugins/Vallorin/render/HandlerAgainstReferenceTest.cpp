// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The whole render, through the handler as a host drives it, against the slow reference: random inputs, objects and
// parameters, with the same blur on both sides. And the same bytes for any number of threads and any split of the rows.
#include "RandomPictures.h"
#include "ReferenceFormat.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "ObjectDefinition/ObjectDefinitionMessage.h"
#include "render/Composition.h"
#include "render/VallorinRenderHandler.h"

#include <gtest/gtest.h>
#include <tbb/global_control.h>
#include <tbb/task_arena.h>

#include <barrier>
#include <thread>

namespace {

constexpr std::uint32_t kRenders = 700;

struct Parameters
{
    std::vector<reference::RefObjectRecord> records;
    reference::RefRenderParameters of;
};

template<typename Pixel>
struct Scene
{
    std::vector<int> ids;
    std::vector<UT_SharedPtr<CEL_PixmapOf<Pixel>>> inputs; // null: no cel
    Parameters parameters;
    std::pair<int, int> resolution;
    Math::Box2di outputRect; // the requested pixels: the canvas, more or less
};

QString objectListOf(const std::vector<reference::RefObjectRecord>& records)
{
    QStringList entries;
    for (const auto& record : records)
        entries.append(QStringLiteral("%1:%2:%3:%4")
                           .arg(record.objectId)
                           .arg(record.bevelSize, 0, 'g', 17)
                           .arg(record.elevation, 0, 'g', 17)
                           .arg(record.smoothness, 0, 'g', 17));
    return entries.join(QLatin1Char(';'));
}

template<typename Pixel>
Scene<Pixel> randomScene(std::uint32_t seed)
{
    RandomPictures random(seed);
    Scene<Pixel> scene;
    scene.resolution = {random.whole(1, 40), random.whole(1, 30)};
    const Math::Box2di canvas(0, 0, scene.resolution.first, scene.resolution.second);
    scene.outputRect = canvas;
    if (random.chance(3)) {
        const int x = random.whole(-20, 20);
        const int y = random.whole(-20, 20);
        scene.outputRect = {x, y, x + random.whole(1, 60), y + random.whole(1, 50)};
    }
    for (int port = random.whole(0, 5); port > 0; --port) {
        scene.ids.push_back(random.chance(8) ? random.whole(-2, 40000) : random.whole(-1, 3));
        scene.inputs.push_back(random.chance(8) ? nullptr : random.picture<Pixel>(random.box(8, 36), canvas));
    }
    for (int records = random.whole(1, 4); records > 0; --records)
        scene.parameters.records.push_back({random.whole(1, 3), random.chance(4) ? 0.0 : random.real(-5.0, 200.0),
                                            random.real(-1.5, 2.0), random.real(-0.5, 4.0)});
    reference::RefRenderParameters& p = scene.parameters.of;
    p.blurScale = random.real(0.0, 2.0);
    p.elevationScale = random.real(0.0, 2.0);
    p.elevationSmoothness = random.real(0.1, 3.0);
    p.generateNormals = !random.chance(3);
    p.depthInBlue = random.chance(2);
    p.clipBlurredWithGeometry = random.chance(2);
    p.normalQuality = random.whole(0, 2);
    p.resolutionX = scene.resolution.first;
    p.outputRect = toRef(scene.outputRect);
    return scene;
}

template<typename Pixel>
RD_RenderJob jobOf(const Scene<Pixel>& scene)
{
    const auto format = CEL_PixelTraits<Pixel>::kFormat == CEL_FORMAT_RGBA16
                            ? RD_RenderParameters::IMAGE_PROCESSING_16BIT
                            : RD_RenderParameters::IMAGE_PROCESSING_FLOAT;
    return RD_RenderJob({format, scene.resolution});
}

UT_SharedPtr<VallorinRenderHandler> handlerFor(const Parameters& parameters, std::size_t ports)
{
    UT_SharedPtr<VallorinRenderHandler> handler(
        new VallorinRenderHandler(1.0, MO_CompositeModuleBitmapHandler::CompositeModuleInterface{},
                                  std::vector<node_render::PortRenderInfo>(ports)));
    handler->objectInformation = objectListOf(parameters.records);
    handler->blurScale = parameters.of.blurScale;
    handler->elevationScale = parameters.of.elevationScale;
    handler->elevationSmoothness = parameters.of.elevationSmoothness;
    handler->generateNormals = parameters.of.generateNormals;
    handler->depthInBlue = parameters.of.depthInBlue;
    handler->clipBlurredWithGeometry = parameters.of.clipBlurredWithGeometry;
    handler->normalQuality = parameters.of.normalQuality;
    return handler;
}

template<typename Pixel>
CA_CelRef celOf(const UT_SharedPtr<CEL_PixmapOf<Pixel>>& pixmap, int objectId)
{
    if (!pixmap)
        return nullptr;
    auto cel = UT_makeShared<CEL_Cel>();
    cel->setRepresentation(pixmap);
    cel->addMessage(ObjectDefinition::objectDefinitionMessageId(),
                    UT_makeShared<ObjectDefinitionMessage>(objectId, 0.0, 0.0));
    return cel;
}

// What the host does: one call for each port, then the end.
template<typename Pixel>
UT_SharedPtr<CEL_PixmapOf<Pixel>> render(const Scene<Pixel>& scene, const std::optional<Math::Box2di>& shown = {})
{
    const RD_RenderJob job = jobOf(scene);
    MO_SoftContext context(job, MO_FrameKey{1.0}, nullptr, scene.outputRect);
    if (shown)
        context.setShownRect(*shown);
    const auto handler = handlerFor(scene.parameters, scene.inputs.size());
    for (std::size_t port = 0; port < scene.inputs.size(); ++port) {
        const auto index = static_cast<int>(port);
        context.setInputCel(index, celOf<Pixel>(scene.inputs[port], scene.ids[port]));
        handler->softRender(context, index);
        context.setInputCel(index, nullptr);
    }
    handler->finish(context);
    return context.outputCel()->pixmap().template dynamicCast<CEL_PixmapOf<Pixel>>();
}

template<typename Pixel>
RefPictureOf<Pixel> expectedOf(const Scene<Pixel>& scene)
{
    std::vector<typename ReferenceFormat<Pixel>::Input> inputs;
    bool anyDelivered = false;
    for (std::size_t port = 0; port < scene.inputs.size(); ++port) {
        auto& input = inputs.emplace_back();
        if (!scene.inputs[port])
            continue;
        // A number travels with the cel, so a port without a cel keeps the graph's number, here none.
        input.objectId = scene.ids[port];
        input.image = toRef<Pixel>(*scene.inputs[port]);
        anyDelivered = true;
    }
    const Math::Box2di canvas = jobOf(scene).canvas();
    const RefPictureOf<Pixel> blank({}, toRef(canvas), canvas.width(), canvas.height());
    if (!anyDelivered)
        return blank;
    const auto rendered = ReferenceFormat<Pixel>::render(inputs, scene.parameters.records, scene.parameters.of, blank,
                                                         productionBlur<Pixel>);
    return rendered.output.value_or(blank);
}

template<typename Pixel>
class Render : public testing::Test
{};

using Formats = testing::Types<CEL_PixelRGBA16, CEL_PixelRGBAFloat>;
TYPED_TEST_SUITE(Render, Formats);

} // namespace

TYPED_TEST(Render, AgreesWithTheReferenceWhateverTheParameters)
{
    for (std::uint32_t seed = 0; seed < kRenders; ++seed) {
        SCOPED_TRACE(seed);
        const Scene<TypeParam> scene = randomScene<TypeParam>(seed);
        const auto rendered = render(scene);
        ASSERT_TRUE(rendered);
        ASSERT_TRUE(agrees<TypeParam>(expectedOf(scene), *rendered, kNormalsInFloat));
    }
}

// Results of more rows than are held at once.
TYPED_TEST(Render, AgreesWithTheReferenceInTallPictures)
{
    for (std::uint32_t seed = 0; seed < 12; ++seed) {
        SCOPED_TRACE(seed);
        Scene<TypeParam> scene = randomScene<TypeParam>(seed);
        RandomPictures random(seed);
        const Math::Box2di canvas(0, 0, 9, 600);
        scene.resolution = {canvas.width(), canvas.height()};
        scene.outputRect = canvas;
        scene.ids = {1, 2, 3, 2};
        scene.inputs.clear();
        for (std::size_t i = 0; i < scene.ids.size(); ++i)
            scene.inputs.push_back(
                random.picture<TypeParam>({0, random.whole(0, 20), 9, random.whole(520, 600)}, canvas));
        scene.parameters.of.resolutionX = canvas.width();
        scene.parameters.of.outputRect = toRef(canvas);
        const auto rendered = render(scene);
        ASSERT_TRUE(rendered);
        ASSERT_TRUE(agrees<TypeParam>(expectedOf(scene), *rendered, kNormalsInFloat));
    }
}

TYPED_TEST(Render, GivesTheSameBytesWhereAPartOfThePictureIsShown)
{
    for (std::uint32_t seed = 0; seed < kRenders; ++seed) {
        SCOPED_TRACE(seed);
        const Scene<TypeParam> scene = randomScene<TypeParam>(seed);
        RandomPictures random(seed);
        const Math::Box2di shown = random.box(10, 30);
        const auto whole = render(scene);
        const auto part = render(scene, shown);
        ASSERT_TRUE(whole && part);
        const Math::Box2di kept = whole->allocatedRect().getIntersection(shown);
        if (kept.isEmpty()) {
            ASSERT_TRUE(part->allocatedRect().isEmpty());
            continue;
        }
        ASSERT_EQ(part->allocatedRect(), kept);
        for (int y = kept.y1; y < kept.y2; ++y)
            for (int x = kept.x1; x < kept.x2; ++x)
                ASSERT_EQ(part->at(x, y), whole->at(x, y)) << x << ' ' << y;
    }
}

TYPED_TEST(Render, GivesTheSameBytesWithOneTwoAndSevenThreads)
{
    Scene<TypeParam> scene = randomScene<TypeParam>(3);
    RandomPictures random(4);
    scene.resolution = {64, 1200};
    scene.outputRect = {0, 0, 64, 1200};
    scene.parameters.of.resolutionX = 64;
    scene.parameters.of.outputRect = toRef(scene.outputRect);
    scene.parameters.records = {{1, 40.0, 1.0, 1.0}, {2, 0.0, 0.5, 2.0}};
    scene.ids = {1, 2, 0, 1};
    scene.inputs.clear();
    for (int port = 0; port < 4; ++port)
        scene.inputs.push_back(random.picture<TypeParam>({0, 0, 64, 1200}, {0, 0, 64, 1200}));
    // More threads than cores have to be requested.
    const auto withThreads = [&](int threads) {
        const tbb::global_control limit(tbb::global_control::max_allowed_parallelism,
                                        static_cast<std::size_t>(threads));
        return tbb::task_arena(threads).execute([&] {
            EXPECT_EQ(tbb::this_task_arena::max_concurrency(), threads);
            return toRef<TypeParam>(*render(scene)).pixels;
        });
    };
    const auto one = withThreads(1);
    EXPECT_GE(one.size(), 64U * 1200U);
    EXPECT_EQ(one, withThreads(2));
    EXPECT_EQ(one, withThreads(7));
}

TYPED_TEST(Render, GivesTheSameBytesForAnySplitOfTheRows)
{
    for (std::uint32_t seed = 0; seed < 50; ++seed) {
        SCOPED_TRACE(seed);
        RandomPictures random(seed);
        const Math::Box2di canvas(0, 0, 30, 20);
        VallorinRenderHandler::PixmapMap inputs;
        VallorinRenderHandler::PixmapMap results;
        const auto handler = handlerFor({{}, randomScene<TypeParam>(seed).parameters.of}, 4);
        handler->portObjectIds = {1, 2, 0, 1};
        handler->elevationRanges = {{1, {0.0F, 1.0F}}, {2, {0.25F, 2.0F}}};
        for (int port = 0; port < 4; ++port)
            inputs[port] = random.picture<TypeParam>(random.box(5, 30), canvas);
        for (const int id : {1, 2})
            results[id] = random.picture<TypeParam>(random.box(5, 30), canvas);
        const auto composed = [&](std::initializer_list<int> cuts) {
            auto output = UT_makeShared<CEL_PixmapOf<TypeParam>>(Math::Size2di{30, 20}, canvas);
            output->realloc(canvas, true);
            std::vector<ColumnSpan> written(20);
            const VallorinRenderHandler::BasicAccumFunctor<TypeParam> functor(*handler, *output, inputs, results,
                                                                              written);
            int from = 0;
            for (const int cut : cuts) {
                functor(tbb::blocked_range<int>(from, cut));
                from = cut;
            }
            return toRef<TypeParam>(*output).pixels;
        };
        // Seven threads, with three rows each except the last, which all start together.
        const auto composedAtOnce = [&] {
            auto output = UT_makeShared<CEL_PixmapOf<TypeParam>>(Math::Size2di{30, 20}, canvas);
            output->realloc(canvas, true);
            std::vector<ColumnSpan> written(20);
            const VallorinRenderHandler::BasicAccumFunctor<TypeParam> functor(*handler, *output, inputs, results,
                                                                              written);
            std::barrier start(7);
            std::vector<std::jthread> threads;
            for (int from = 0; from < 20; from += 3)
                threads.emplace_back([&, from] {
                    start.arrive_and_wait();
                    functor(tbb::blocked_range<int>(from, std::min(from + 3, 20)));
                });
            threads.clear();
            return toRef<TypeParam>(*output).pixels;
        };
        const auto whole = composed({20});
        ASSERT_EQ(whole, composed({1, 2, 3, 10, 20}));
        ASSERT_EQ(whole, composed({7, 13, 20}));
        ASSERT_EQ(whole, composedAtOnce());
    }
}
