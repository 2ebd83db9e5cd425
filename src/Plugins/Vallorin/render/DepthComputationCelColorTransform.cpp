// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Building the table of greys.
#include "render/DepthComputationCelColorTransform.h"

#include "render/DepthComputationColorTransform.h"

namespace VallorinLib {

namespace {

constexpr int kPlainColour = CM_Color::NORMAL_COLOR;

// Of levels outside 0 to 255, the low byte counts.
VS_RGBA greyOf(const VallorinAttributes::ColorInformation& record)
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
    firstEntries.reserve(records.size());
    for (const VallorinAttributes::ColorInformation& record : records) {
        const VS_RGBA paint = greyOf(record);
        colourEntries.emplace_back(UT_makeShared<CM_Color>(UT_String(), kPlainColour, record.colorId), paint);
        firstEntries.try_emplace(record.colorId, colourEntries.size() - 1);
        paints[record.colorId] = paint;
    }
}

DepthComputationCelColorTransform::~DepthComputationCelColorTransform() = default;

std::unique_ptr<GR_GraphicOpsColorTransform> DepthComputationCelColorTransform::createGraphicOpsTransform()
{
    return std::make_unique<DepthComputationColorTransform>(*this);
}

CM_Color* DepthComputationCelColorTransform::listedColour(const CM_ColorId_t& id) const
{
    const auto found = firstEntries.find(id);
    return found == firstEntries.end() ? nullptr : colourEntries[found->second].first.get();
}

VS_RGBA DepthComputationCelColorTransform::paintOf(const CM_ColorId_t& id) const
{
    const auto found = paints.find(id);
    return found == paints.end() ? VS_RGBA{} : found->second;
}

void DepthComputationCelColorTransform::attachedTo(const CELVEC_Kvd&) {}

} // namespace VallorinLib
