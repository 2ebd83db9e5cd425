// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The node is rendered once; a second time only when the elevation is wanted and the blue channel, where it comes from,
// is to hold something else in the first.
#include "jobs/drawing/NormalMapJob.h"

#include "QuarvelSceneCore/rendering/RD_SoftRenderer.h"
#include "jobs/limits/JobLimits.h"

namespace {

// At the worst moment an input, its clone, an accumulator, the mask, the blur, the depth, a result, its smoothed copy
// and the output exist at once, and a picture of what is written.
constexpr double kPixelsHeldAtOnce = 10.0;

UT_Result<void> checkMemory(const std::pair<int, int>& resolution, const RD_RenderParameters& parameters)
{
    const auto [width, height] = resolution;
    if (width > RD_RenderParameters::kMaxResolution || height > RD_RenderParameters::kMaxResolution)
        return UT_Error{
            QStringLiteral("a picture of %1 x %2 pixels is too large; at most %3 on either side are possible")
                .arg(width)
                .arg(height)
                .arg(RD_RenderParameters::kMaxResolution)};
    constexpr double kGigabyte = 1e9;
    const double bytes =
        parameters.celFormat() == CEL_FORMAT_RGBA16 ? sizeof(CEL_PixelRGBA16) : sizeof(CEL_PixelRGBAFloat);
    const double needed = kPixelsHeldAtOnce * bytes * width * height;
    const double present = jobLimits().memory;
    if (needed > present)
        return UT_Error{
            QStringLiteral("a picture of %1 x %2 pixels needs about %3 GB of memory and this machine has %4 GB; "
                           "choose a smaller size")
                .arg(width)
                .arg(height)
                .arg(needed / kGigabyte, 0, 'f', 1)
                .arg(present / kGigabyte, 0, 'f', 1)};
    return {};
}

UT_Result<UT_SharedPtr<CEL_PixmapArea>> render(MO_Module& module, const MO_Scene& scene,
                                               const RD_RenderParameters& parameters, double from, double to,
                                               const JobProgress& progress)
{
    const auto part = [&](double done) { return !progress || progress(from + (to - from) * done); };
    const UT_Result<CA_CelRef> cel = RD_SoftRenderer::render(module, scene.firstFrame(), parameters, part);
    if (!cel)
        return cel.error();
    return (*cel)->pixmap();
}

template<typename Pixel>
UT_SharedPtr<CEL_PixmapArea> blueAsRed(const CEL_PixmapOf<Pixel>& node)
{
    auto elevation = UT_makeShared<CEL_PixmapOf<Pixel>>(node.size(), node.canvasRect());
    elevation->realloc(node.allocatedRect(), false);
    for (int y = node.allocatedRect().y1; y < node.allocatedRect().y2; ++y) {
        const auto source = node.row(y);
        const auto target = elevation->row(y);
        for (std::size_t i = 0; i < source.size(); ++i) {
            // What is not covered has no elevation, whatever an empty pixel of the node holds in blue.
            const auto height = source[i].a > 0 ? source[i].b : typename CEL_PixelTraits<Pixel>::Channel{};
            target[i] = {height, height, height, source[i].a};
        }
    }
    return elevation;
}

UT_SharedPtr<CEL_PixmapArea> elevationOf(const UT_SharedPtr<CEL_PixmapArea>& node, const NormalMapSettings& settings)
{
    if (!settings.generateNormals)
        return node;
    if (const auto node16 = node.dynamicCast<CEL_PixmapAreaRGBA16>())
        return blueAsRed<CEL_PixelRGBA16>(*node16);
    return blueAsRed<CEL_PixelRGBAFloat>(*node.dynamicCast<CEL_PixmapAreaRGBAFloat>());
}

// Scales the drawing's pixels down to the node's coverage, which is smaller only where a cut-out cuts.
template<typename Pixel>
void cut(CEL_PixmapOf<Pixel>& drawing, const CEL_PixmapOf<Pixel>& node)
{
    using Channel = typename CEL_PixelTraits<Pixel>::Channel;
    for (int y = drawing.allocatedRect().y1; y < drawing.allocatedRect().y2; ++y)
        for (int x = drawing.allocatedRect().x1; x < drawing.allocatedRect().x2; ++x) {
            Pixel& pixel = drawing.at(x, y);
            const Pixel* coverage = node.find(x, y);
            const double left = coverage ? std::max<double>(coverage->a, 0.0) : 0.0;
            if (!(pixel.a > 0) || left >= pixel.a)
                continue;
            const double scale = left / pixel.a;
            pixel = {static_cast<Channel>(pixel.r * scale), static_cast<Channel>(pixel.g * scale),
                     static_cast<Channel>(pixel.b * scale), static_cast<Channel>(pixel.a * scale)};
        }
}

void cutDrawing(CEL_PixmapArea& drawing, const CEL_PixmapArea& node)
{
    if (auto* const drawing16 = dynamic_cast<CEL_PixmapAreaRGBA16*>(&drawing))
        cut<CEL_PixelRGBA16>(*drawing16, dynamic_cast<const CEL_PixmapAreaRGBA16&>(node));
    else if (auto* const drawingFloat = dynamic_cast<CEL_PixmapAreaRGBAFloat*>(&drawing))
        cut<CEL_PixelRGBAFloat>(*drawingFloat, dynamic_cast<const CEL_PixmapAreaRGBAFloat&>(node));
}

bool hasCutOuts(const NormalMapSettings& settings)
{
    const auto isCutOut = [](const auto& object) { return object.second.cutOut.value_or(false); };
    return std::ranges::any_of(settings.objects, isCutOut);
}

} // namespace

UT_Result<RenderedPictures> renderNormalMap(const LayeredDrawing& drawing, const NormalMapSettings& settings,
                                            const WantedPictures& wanted, const JobProgress& progress)
{
    const std::pair<int, int> resolution = pictureSize(drawing.size, settings);
    const RD_RenderParameters parameters{settings.renderInFloat ? RD_RenderParameters::IMAGE_PROCESSING_FLOAT
                                                                : RD_RenderParameters::IMAGE_PROCESSING_16BIT,
                                         resolution};
    if (UT_Result<void> fits = checkMemory(resolution, parameters); !fits)
        return fits.error();

    NormalMapSettings forNode = settings;
    const bool elevationInBlue = wanted.elevation && settings.generateNormals;
    const bool secondRender = elevationInBlue && wanted.blueAsSet && !settings.depthInBlue;
    forNode.depthInBlue = settings.depthInBlue || (elevationInBlue && !secondRender);
    UT_Result<DrawingScene> scene = DrawingScene::build(drawing, forNode);
    if (!scene)
        return scene.error();

    const double nodeEnds = secondRender ? 0.45 : 0.8;
    RenderedPictures pictures;
    pictures.frame = Math::Box2di(0, 0, resolution.first, resolution.second);
    const auto node = render(scene->normalMap(), scene->scene(), parameters, 0.0, nodeEnds, progress);
    if (!node)
        return node.error();
    pictures.node = *node;
    if (secondRender) {
        forNode.depthInBlue = true;
        scene = DrawingScene::build(drawing, forNode);
        if (!scene)
            return scene.error();
        const auto again = render(scene->normalMap(), scene->scene(), parameters, nodeEnds, 0.8, progress);
        if (!again)
            return again.error();
        pictures.elevation = elevationOf(*again, settings);
    } else if (wanted.elevation)
        pictures.elevation = elevationOf(pictures.node, settings);
    if (wanted.drawing) {
        const auto flat = render(scene->flatDrawing(), scene->scene(), parameters, 0.8, 1.0, progress);
        if (!flat)
            return flat.error();
        pictures.drawing = hasCutOuts(settings) ? (*flat)->clone() : *flat;
        if (hasCutOuts(settings) && settings.generateNormals)
            cutDrawing(*pictures.drawing, *pictures.node);
    }
    return pictures;
}
