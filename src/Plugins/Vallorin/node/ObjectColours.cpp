// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Keeps the latest table and its colours. A text that shares its data with that table is recognised without a
// comparison.
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
    const std::lock_guard lock(_mutex);
    const bool isShared = table.constData() == _table.constData() && table.size() == _table.size();
    if (!_colours || (!isShared && table != _table))
        _colours = std::make_shared<ObjectColours>(table);
    _table = table;
    return _colours;
}
