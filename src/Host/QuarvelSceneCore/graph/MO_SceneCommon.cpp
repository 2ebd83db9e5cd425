// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Frame, camera, lights and palettes of a scene.
#include "QuarvelSceneCore/graph/MO_SceneCommon.h"

#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/graph/MO_Lighting.h"

#include <algorithm>
#include <cmath>

namespace {

const AT_DoubleAttrMeta kTruckFactorMeta(QStringLiteral("TruckFactor"),
                                         QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Truck Factor")),
                                         QStringLiteral("DBL_STEP_SCALE"), 0.001, 1000.0, 0.1, 10.0);

} // namespace

MO_SceneCommon::MO_SceneCommon()
    : _lighting(std::make_unique<MO_Lighting>())
    , _truckFactor(std::make_unique<AT_DoubleAttr>(kTruckFactorMeta, nullptr, AT_DoubleAttr::LINKABLE, 1.0, QString()))
{
    _truckFactor->addListener(*this);
}

MO_SceneCommon::~MO_SceneCommon() = default;

bool MO_SceneCommon::setFrameHeight(double height)
{
    if (!std::isfinite(height) || height <= 0.0)
        return false;
    _frameHeight = height;
    tell();
    return true;
}

int MO_SceneCommon::wholePixels(double length)
{
    return static_cast<int>(std::lround(std::clamp(length, 1.0, 1e9)));
}

bool MO_SceneCommon::mayHaveFrames(int first, int last)
{
    return first <= last && first >= -kFarthestFrame && last <= kFarthestFrame;
}

bool MO_SceneCommon::setFrameRange(int first, int last)
{
    if (!mayHaveFrames(first, last))
        return false;
    _firstFrame = first;
    _lastFrame = last;
    tell();
    return true;
}

bool MO_SceneCommon::setFrameRate(double rate)
{
    // Written so that NaN fails the comparison.
    if (!(rate >= kSlowest && rate <= kFastest))
        return false;
    _frameRate = rate;
    tell();
    return true;
}

double MO_SceneCommon::truckFactor(double frame) const
{
    return _truckFactor->value(frame);
}

QTransform MO_SceneCommon::sceneToPixel(double frame, const std::pair<int, int>& resolution) const
{
    return sceneToPixel(resolution, truckFactor(frame));
}

QTransform MO_SceneCommon::sceneToPixel(const std::pair<int, int>& resolution, double truckFactor)
{
    const double pixelsPerUnit = truckFactor * resolution.first / kFrameWidth;
    return QTransform(pixelsPerUnit, 0.0, 0.0, pixelsPerUnit, resolution.first / 2.0, resolution.second / 2.0);
}

void MO_SceneCommon::addPalette(const CM_SharedPtr<CM_Palette>& palette)
{
    if (!palette)
        return;
    _palettes.push_back(palette);
    tell();
}

void MO_SceneCommon::replacePalette(const CM_SharedPtr<CM_Palette>& old, const CM_SharedPtr<CM_Palette>& palette)
{
    const auto found = std::ranges::find(_palettes, old);
    if (found == _palettes.end())
        return;
    *found = palette;
    tell();
}

void MO_SceneCommon::removePalette(const CM_SharedPtr<CM_Palette>& palette)
{
    if (std::erase(_palettes, palette) > 0)
        tell();
}

void MO_SceneCommon::told(XUTeller&)
{
    tell();
}
