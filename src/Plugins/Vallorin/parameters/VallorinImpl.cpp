// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The attributes' metadata, each defined once per process, and the making of a node's attributes.
#include "parameters/VallorinImpl.h"

#include "QuarvelSceneCore/AT_BoolAttr.h"
#include "QuarvelSceneCore/AT_DoubleAttr.h"
#include "QuarvelSceneCore/AT_StringAttr.h"
#include "parameters/NormalQuality.h"

#include <QCoreApplication>

namespace {

constexpr double kDefaultStep = AT_DoubleAttrMetaContainer::kDefaultValueStep;

/// A label, translated by the host when it is shown.
QString label(const char* text)
{
    return QString::fromLatin1(text);
}

const AT_AttrMeta kColorInformationMeta(QStringLiteral("ColorInformation"),
                                        label(QT_TRANSLATE_NOOP("AT_AttrMeta", "Colour Information")));
const AT_AttrMeta kObjectListMeta(QStringLiteral("ObjectList"),
                                  label(QT_TRANSLATE_NOOP("AT_AttrMeta", "Volume Creation")));
const AT_DoubleAttrMeta kBlurScaleMeta(QStringLiteral("BlurScale"),
                                       label(QT_TRANSLATE_NOOP("AT_AttrMeta", "Bevel Multiplier")),
                                       QStringLiteral("DBL_STEP_BLURRINESS"), 0.0, 10.0, 0.0, 10.0, kDefaultStep);
const AT_DoubleAttrMeta kElevationScaleMeta(QStringLiteral("ElevationScale"),
                                            label(QT_TRANSLATE_NOOP("AT_AttrMeta", "Elevation Multiplier")),
                                            QStringLiteral("DBL_STEP_SCALEATTR_Z"), 0.0, 10.0, 0.0, 10.0, kDefaultStep);
// A smoothness of 0 would be linear, like 1, so this multiplier stays above 0.
const AT_DoubleAttrMeta
    kElevationSmoothnessMeta(QStringLiteral("ElevationSmoothness"),
                             label(QT_TRANSLATE_NOOP("AT_AttrMeta", "Elevation Smoothness Multiplier")),
                             QStringLiteral("DBL_STEP_SCALEATTR_Z"), 0.1, 128.0, 0.1, 128.0, kDefaultStep);
const AT_AttrMeta kGenerateNormalsMeta(QStringLiteral("GenerateNormals"),
                                       label(QT_TRANSLATE_NOOP("AT_AttrMeta", "Generate Normals")));
const AT_AttrMeta kUseTruckFactorMeta(QStringLiteral("UseTruckFactor"),
                                      label(QT_TRANSLATE_NOOP("AT_AttrMeta", "Consider Truck Factor")));
const AT_AttrMeta kDepthInBlueMeta(QStringLiteral("DepthInBlue"),
                                   label(QT_TRANSLATE_NOOP("AT_AttrMeta", "Output Elevation in Blue Channel")));
const AT_AttrMeta
    kClipBlurredWithGeometryMeta(QStringLiteral("ClipBlurredWithGeometry"),
                                 label(QT_TRANSLATE_NOOP("AT_AttrMeta", "Clip Blurred Image with Geometry")));
const AT_AttrMeta kNormalQualityMeta(QStringLiteral("NormalQuality"),
                                     label(QT_TRANSLATE_NOOP("AT_AttrMeta", "Normal Map Quality")));

std::unique_ptr<AT_DoubleAttr> makeMultiplier(const AT_DoubleAttrMeta& meta)
{
    return std::make_unique<AT_DoubleAttr>(meta, nullptr, AT_DoubleAttr::LINKABLE, 1.0, QString());
}

} // namespace

Vallorin::Impl::Impl(MO_Node& owner) : node(&owner)
{
    auto newColorInformation = std::make_unique<AT_StringAttr>(kColorInformationMeta, QString(), false, false);
    auto newObjectList = std::make_unique<AT_StringAttr>(kObjectListMeta, QString(), false, false);
    auto newBlurScale = makeMultiplier(kBlurScaleMeta);
    auto newElevationScale = makeMultiplier(kElevationScaleMeta);
    auto newElevationSmoothness = makeMultiplier(kElevationSmoothnessMeta);
    auto newGenerateNormals = std::make_unique<AT_BoolAttr>(kGenerateNormalsMeta, true);
    auto newUseTruckFactor = std::make_unique<AT_BoolAttr>(kUseTruckFactorMeta, false);
    auto newDepthInBlue = std::make_unique<AT_BoolAttr>(kDepthInBlueMeta, false);
    auto newClipBlurredWithGeometry = std::make_unique<AT_BoolAttr>(kClipBlurredWithGeometryMeta, true);
    auto newNormalQuality = std::make_unique<NormalQuality>(kNormalQualityMeta);

    const auto append = [&owner]<typename Attr>(std::unique_ptr<Attr> attr) {
        Attr* const appended = attr.release();
        owner.registerAttr(appended, -1);
        return appended;
    };
    objectList = append(std::move(newObjectList));
    depthInBlue = append(std::move(newDepthInBlue));
    blurScale = append(std::move(newBlurScale));
    clipBlurredWithGeometry = append(std::move(newClipBlurredWithGeometry));
    elevationScale = append(std::move(newElevationScale));
    elevationSmoothness = append(std::move(newElevationSmoothness));
    generateNormals = append(std::move(newGenerateNormals));
    normalQuality = append(std::move(newNormalQuality));
    useTruckFactor = append(std::move(newUseTruckFactor));
    colorInformation = append(std::move(newColorInformation));
}
