// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/choice/JoinedParts.h"

#include <algorithm>

namespace {

std::size_t placeOf(int index)
{
    return static_cast<std::size_t>(index);
}

void wear(Part& part, const WornShape& worn)
{
    const auto same = std::ranges::find(part.worn, worn.shape, &WornShape::shape);
    if (same == part.worn.end()) {
        part.worn.push_back(worn);
        return;
    }
    same->whole = same->whole || worn.whole;
    same->reach = std::max(same->reach, worn.reach);
}

void join(Part& part, const Part& next)
{
    part.body.insert(part.body.end(), next.body.begin(), next.body.end());
    for (const WornShape& worn : next.worn)
        wear(part, worn);
    part.region.unite(next.region);
    part.border = std::max(part.border, next.border);
    part.ink = part.ink && next.ink;
    part.translucent = part.translucent || next.translucent;
}

} // namespace

FoundParts joinedParts(FoundParts found, std::span<const int> home, const QString& reason)
{
    std::vector<int> renamed(found.parts.size(), PartMap::kNone);
    std::vector<Part> parts;
    for (const int index : found.order) {
        Part& part = found.parts[placeOf(index)];
        if (home[placeOf(index)] == index) {
            renamed[placeOf(index)] = static_cast<int>(parts.size());
            parts.push_back(std::move(part));
            continue;
        }
        const int joined = renamed[placeOf(home[placeOf(index)])];
        renamed[placeOf(index)] = joined;
        join(parts[placeOf(joined)], part);
        parts[placeOf(joined)].reason = reason;
    }
    found.parts = std::move(parts);
    found.order.resize(found.parts.size());
    for (std::size_t i = 0; i < found.order.size(); ++i)
        found.order[i] = static_cast<int>(i);
    found.map.rename(renamed);
    return found;
}
