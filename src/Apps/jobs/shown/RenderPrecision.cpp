// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The choice of the format, and the two corrections that float needs.
#include "jobs/shown/RenderPrecision.h"

#include "QuarvelCelCore/CELVEC_Kvd.h"
#include "QuarvelCelCore/CELVEC_SeamClosing.h"
#include "QuarvelCelCore/CEL_WithFormat.h"
#include "QuarvelSceneCore/graph/MO_Port.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneCore/interfaces/MO_RenderingRequestService.h"
#include "QuarvelSceneCore/interfaces/RD_ScriptContext.h"
#include "QuarvelVectorLanes/VL_ParallelFor.h"
#include "form/ElevationUnit.h"
#include "jobs/shown/NormalMapNode.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <set>

namespace {

constexpr double kGrain = 30000.0; // square pixels
constexpr int kMostFrames = 200;

// The largest factor from the table's bevel times elevation to bevel times height at any examined frame.
double largestFactor(const NormalMapNode& node)
{
    const MO_SceneCommon* const scene = node.module().sceneCommon();
    if (!scene)
        return kRiseOfElevation;
    const int step = std::max(1, (scene->lastFrame() - scene->firstFrame()) / kMostFrames);
    double largest = 0.0;
    for (int frame = scene->firstFrame(); frame <= scene->lastFrame(); frame += step)
        largest = std::max(largest, node.bevelFactor(frame) * std::abs(node.riseFactor(frame)));
    return largest;
}

// The largest product of bevel and height of any object, in square scene units.
double widestRise(const NormalMapNode& node)
{
    double widest = 0.0;
    for (const NormalMapObject& object : node.objects())
        widest = std::max(widest, object.bevel * std::abs(object.elevation));
    return widest * largestFactor(node);
}

// Whether every colour of the scene is listed at the full level.
bool hasFullLevels(const NormalMapNode& node)
{
    const MO_SceneCommon* const scene = node.module().sceneCommon();
    std::set<UT_Id> full;
    for (const NormalMapColour& colour : node.colours()) {
        if (colour.level != 255)
            return false;
        full.insert(colour.id);
    }
    const auto isListed = [&](const auto& colour) { return full.contains(colour->GetColorId()); };
    return scene && std::ranges::all_of(scene->palettes(), [&](const CM_SharedPtr<CM_Palette>& palette) {
               return std::ranges::all_of(palette->colors(), isListed);
           });
}

// A drawing whose float pixels have the coverage 1 - (1 - a)^2 instead of a, as if they were painted twice.
class ClosedDrawing final : public CELVEC_Kvd
{
public:
    explicit ClosedDrawing(UT_SharedPtr<CELVEC_Kvd> drawing)
        : CELVEC_Kvd(drawing->palette()), _drawing(std::move(drawing))
    {
        setArtSelector(_drawing->artSelector());
        setColorTransform(_drawing->colorTransform());
    }
    ClosedDrawing(const ClosedDrawing&) = default;

    std::span<const CELVEC_Shape> shapes(GR_Art art) const override { return _drawing->shapes(art); }
    UT_SharedPtr<CELVEC_Kvd> shareForRendering() const override { return UT_makeShared<ClosedDrawing>(*this); }

    void render(const CELVEC_RenderArgs& args, CEL_PixmapArea& target) const override
    {
        CELVEC_RenderArgs closing = args;
        closing.closesSeams = true;
        own()->render(closing, target);
        if (args.closesSeams && !colorTransform())
            CELVEC_closeSeams(target);
    }

    void addCoverage(const CELVEC_RenderArgs& args, CEL_CoverageStep step, CEL_CoveragePlane& coverage) const override
    {
        own()->addCoverage(args, step, coverage);
    }

    std::optional<Math::Box2di> renderedRect(const CELVEC_RenderArgs& args) const override
    {
        return colorTransform() ? std::nullopt : _drawing->renderedRect(args);
    }

    std::unique_ptr<CELVEC_AlphaPlane> sharedAlpha(const CELVEC_RenderArgs& args,
                                                   const CELVEC_Kvd& white) const override
    {
        if (args.closesSeams)
            return nullptr; // the seams would be closed twice
        CELVEC_RenderArgs closing = args;
        closing.closesSeams = true;
        return own()->sharedAlpha(closing, white);
    }

private:
    // The drawing with this one's settings.
    UT_SharedPtr<CELVEC_Kvd> own() const
    {
        UT_SharedPtr<CELVEC_Kvd> made = _drawing->shareForRendering();
        made->setArtSelector(artSelector());
        made->setColorTransform(colorTransform());
        return made;
    }

    UT_SharedPtr<CELVEC_Kvd> _drawing;
};

class ClosingHandler final : public MO_RenderingRequestHandler
{
public:
    void processDrawing(BaseContext& context) override
    {
        const auto drawing = context.drawing() ? context.drawing()->findBestVectorRepresentation() : nullptr;
        if (drawing)
            context.drawing()->setRepresentation(UT_makeShared<ClosedDrawing>(drawing));
    }
};

// A module before an input of a node that passes its picture on and changes the drawings behind it.
class SeamCloser final : public MO_Module
{
public:
    SeamCloser() { addInImagePort(); }

    QString keyword() const override { return QStringLiteral("SEAM_CLOSER"); }
    QString baseDisplayName() const override { return QStringLiteral("Seam-Closer"); }

    void insertRenderingRequestForSrcPort(RD_ScriptContext& context, int port) override
    {
        MO_Module::insertRenderingRequestForSrcPort(context, port);
        context.insertRequest(
            MO_RenderingRequestService::createRenderingRequest(this, std::make_unique<ClosingHandler>()));
    }
};

// Pixels without a value in any channel stay as they are, so that those that were never written to are not written
// now; -0.0 counts as none.
bool isEmpty(const CEL_PixelRGBAFloat& pixel)
{
    constexpr std::uint64_t kWithoutSigns = 0x7FFFFFFF7FFFFFFF;
    const auto [low, high] = std::bit_cast<std::array<std::uint64_t, 2>>(pixel);
    return ((low | high) & kWithoutSigns) == 0;
}

// Sets the coverage of pixels that the drawing lacks.
void uncover(std::span<CEL_PixelRGBAFloat> pixels)
{
    for (CEL_PixelRGBAFloat& pixel : pixels)
        if (!isEmpty(pixel))
            pixel.a = 0.0F;
}

float fractionOf(std::int16_t coverage)
{
    return static_cast<float>(coverage) / 32767.0F;
}
float fractionOf(const CEL_PixelRGBA16& colour)
{
    return fractionOf(colour.a);
}
float fractionOf(const CEL_PixelRGBAFloat& colour)
{
    return colour.a;
}

template<typename Colour>
void cover(std::span<CEL_PixelRGBAFloat> pixels, std::span<const Colour> colours)
{
    for (std::size_t i = 0; i < pixels.size(); ++i)
        if (!isEmpty(pixels[i]))
            pixels[i].a = fractionOf(colours[i]);
}

// @param rowOf the coverage of a row of the rectangle known
template<typename RowOf>
void takeCoverageOf(CEL_PixmapAreaRGBAFloat& picture, const Math::Box2di& known, const RowOf& rowOf)
{
    const Math::Box2di& rect = picture.allocatedRect();
    const Math::Box2di common = rect.getIntersection(known);
    VL_parallelFor(tbb::blocked_range<int>(rect.y1, rect.y2, 16), [&](const tbb::blocked_range<int>& rows) {
        for (int y = rows.begin(); y < rows.end(); ++y) {
            const std::span<CEL_PixelRGBAFloat> row = picture.row(y);
            if (common.isEmpty() || y < common.y1 || y >= common.y2) {
                uncover(row);
                continue;
            }
            const auto first = static_cast<std::size_t>(common.x1 - rect.x1);
            const auto width = static_cast<std::size_t>(common.width());
            uncover(row.first(first));
            cover(row.subspan(first, width), rowOf(y).subspan(static_cast<std::size_t>(common.x1 - known.x1), width));
            uncover(row.subspan(first + width));
        }
    });
}

} // namespace

bool needsFloat(const std::vector<MO_Module*>& nodes, const RD_RenderParameters& parameters)
{
    const double pixels = parameters.resolution.first / MO_SceneCommon::kFrameWidth;
    const auto hasGrain = [&](MO_Module* node) { return widestRise(NormalMapNode(*node)) * pixels * pixels > kGrain; };
    const auto isFull = [](MO_Module* node) { return hasFullLevels(NormalMapNode(*node)); };
    return std::ranges::any_of(nodes, hasGrain) && std::ranges::all_of(nodes, isFull);
}

void closeSeams(MO_Module& node)
{
    for (unsigned i = 0; i < node.nInPorts(); ++i) {
        const MO_Port* const source = node.inPort(i)->srcPort();
        if (!source || !source->module())
            continue;
        auto& closer = node.group()->emplace<SeamCloser>();
        (void)MO_Scene::connect(*source->module(), closer, 0, source->index());
        (void)MO_Scene::connect(closer, node, i);
    }
}

void takeCoverage(CEL_PixmapAreaRGBAFloat& picture, const CEL_PixmapArea& drawing)
{
    CEL_withFormat(drawing, [&](const auto& colours) {
        takeCoverageOf(picture, colours.allocatedRect(), [&](int y) { return colours.row(y); });
    });
}

void takeCoverage(CEL_PixmapAreaRGBAFloat& picture, const CEL_CoveragePlane& coverage)
{
    takeCoverageOf(picture, coverage.rect(), [&](int y) { return coverage.row(y); });
}
