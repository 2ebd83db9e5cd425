// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "node/ObjectColours.h"

#include <utility>

namespace {

std::vector<VallorinAttributes::ColorInformation> decoded(const QString& table)
{
    std::vector<VallorinAttributes::ColorInformation> records;
    VallorinAttributes::getColorInformation(table, records);
    return records;
}

} // namespace

ObjectColours::ObjectColours(std::vector<VallorinAttributes::ColorInformation> records)
    : _records(std::move(records)), _greys(UT_makeShared<VallorinLib::DepthComputationCelColorTransform>(_records))
{}

ObjectColours::ObjectColours(const QString& table) : ObjectColours(decoded(table)) {}

std::shared_ptr<const ObjectColours> LatestColours::of(const QString& table) const
{
    return _latest.of(table, [](const QString& text) { return std::make_shared<const ObjectColours>(text); });
}
