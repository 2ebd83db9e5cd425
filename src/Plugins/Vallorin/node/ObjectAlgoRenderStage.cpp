// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The object's level in each of the two formats, and the merging of a drawing's greys into its coverage.
#include "node/ObjectAlgoRenderStage.h"

#include "QuarvelCelCore/CEL_PixmapFactory.h"
#include "render/DepthComputationCelColorTransform.h"
#include "render/LevelMerge.h"

#include <cmath>
#include <limits>
#include <type_traits>

namespace {

/// A level that a conversion is defined for; one that is not finite or beyond the limit counts as 0.
double convertible(double level, double limit)
{
    return std::abs(level) < limit ? level : 0.0;
}

/// The level of a 16-bit picture: quantised to 8 bits, of which a level outside of 0 to 1 keeps the low ones.
std::int16_t levelOf(double objectLevel, std::type_identity<CEL_PixelRGBA16>)
{
    const double scaled = convertible(objectLevel * 255.0, std::numeric_limits<std::int32_t>::max());
    const int quantised = static_cast<std::int32_t>(scaled) & 0xFF;
    return static_cast<std::int16_t>(quantised * 32767 / 255);
}

/// The level of a float picture, as it is.
float levelOf(double objectLevel, std::type_identity<CEL_PixelRGBAFloat>)
{
    return static_cast<float>(convertible(objectLevel, std::numeric_limits<float>::max()));
}

/// Merges when both pixmaps are in this pixel's format. @return whether they are
template<typename Pixel>
bool mergeAs(CEL_PixmapArea& target, const CEL_PixmapArea& source, double objectLevel, bool scaleByCoverage)
{
    auto* const typedTarget = dynamic_cast<CEL_PixmapOf<Pixel>*>(&target);
    const auto* const typedSource = dynamic_cast<const CEL_PixmapOf<Pixel>*>(&source);
    if (!typedTarget || !typedSource)
        return false;
    mergeLevel<Pixel>(*typedTarget, *typedSource, levelOf(objectLevel, std::type_identity<Pixel>()), scaleByCoverage);
    return true;
}

} // namespace

VallorinRequestHandler::ObjectAlgoRenderStage::ObjectAlgoRenderStage(
    double frame, std::int32_t objectId, bool scaleByCoverage, double objectLevel,
    std::vector<VallorinAttributes::ColorInformation> colorInformation)
    : _frame(frame)
    , _objectId(objectId)
    , _scaleByCoverage(scaleByCoverage)
    , _objectLevel(objectLevel)
    , _colorInformation(std::move(colorInformation))
{}

VallorinRequestHandler::ObjectAlgoRenderStage::~ObjectAlgoRenderStage() = default;

void VallorinRequestHandler::ObjectAlgoRenderStage::render(const MultiStageKvd& drawing, const CELVEC_RenderArgs& args,
                                                           CEL_PixmapArea& target) const
{
    const UT_SharedPtr<CEL_PixmapArea> source = CEL_PixmapFactory::create2d(target.format(), args.size, args.canvas);
    if (!source)
        return;
    const UT_SharedPtr<CELVEC_Kvd> greys = drawing.primary()->shareForRendering();
    greys->setArtSelector(GR_ArtSelector());
    greys->setColorTransform(UT_makeShared<VallorinLib::DepthComputationCelColorTransform>(_colorInformation));
    greys->render(args, *source);

    if (!mergeAs<CEL_PixelRGBA16>(target, *source, _objectLevel, _scaleByCoverage))
        mergeAs<CEL_PixelRGBAFloat>(target, *source, _objectLevel, _scaleByCoverage);
}
