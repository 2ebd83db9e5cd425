// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Building the table of greys.
#include "render/DepthComputationCelColorTransform.h"

#include "render/DepthComputationColorTransform.h"

namespace VallorinLib {

namespace {

constexpr int kPlainColour = CM_Color::NORMAL_COLOR;

// Levels outside of 0 to 255 wrap, as they always have.
VS_RGBA paintOf(const VallorinAttributes::ColorInformation& record)
{
    const auto grey = static_cast<std::uint8_t>(record.value & 0xff);
    return {grey, grey, grey, 255};
}

} // namespace

DepthComputationCelColorTransform::DepthComputationCelColorTransform(
    const std::vector<VallorinAttributes::ColorInformation>& records)
    : defaultColour(UT_makeShared<CM_Color>(UT_String(), kPlainColour))
{
    colourEntries.reserve(records.size());
    for (const VallorinAttributes::ColorInformation& record : records) {
        const VS_RGBA paint = paintOf(record);
        colourEntries.emplace_back(UT_makeShared<CM_Color>(UT_String(), kPlainColour, record.colorId), paint);
        paints[record.colorId] = paint;
    }
}

DepthComputationCelColorTransform::~DepthComputationCelColorTransform() = default;

std::unique_ptr<GR_GraphicOpsColorTransform> DepthComputationCelColorTransform::createGraphicOpsTransform()
{
    return std::make_unique<DepthComputationColorTransform>(*this);
}

void DepthComputationCelColorTransform::attachedTo(const CELVEC_Kvd&) {}

} // namespace VallorinLib
