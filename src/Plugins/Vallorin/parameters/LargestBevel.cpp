// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
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
    return _latest.of(table, largestBevel);
}
