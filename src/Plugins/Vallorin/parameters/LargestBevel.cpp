// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Keeps the latest table and its largest bevel. A text that shares its data with that table is recognised without a
// comparison.
#include "parameters/LargestBevel.h"

#include "parameters/VallorinAttributes.h"

#include <cmath>

namespace {

double largestBevel(const QString& table)
{
    std::vector<VallorinAttributes::ObjectInformation> objects;
    VallorinAttributes::getObjectInformation(table, objects);
    double largest = 0.0;
    for (const VallorinAttributes::ObjectInformation& object : objects)
        if (std::isfinite(object.bevelSize) && object.bevelSize > largest)
            largest = object.bevelSize;
    return largest;
}

} // namespace

double LargestBevel::of(const QString& table) const
{
    const std::lock_guard lock(_mutex);
    const bool isShared = table.constData() == _table.constData() && table.size() == _table.size();
    if (!isShared && table != _table)
        _largest = largestBevel(table);
    _table = table;
    return _largest;
}
