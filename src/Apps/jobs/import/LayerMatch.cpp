// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Compares all pairs; a scene has at most 320 objects.
#include "jobs/import/LayerMatch.h"

#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "jobs/shown/DrawingExtent.h"

#include <algorithm>

namespace {

struct Layer
{
    QString name;
    const CELVEC_Kvd* drawing = nullptr; // the first
    QRectF extent;
};

Layer layerOf(const MO_ElementModule& element)
{
    const QString& known = element.origin().layer;
    Layer layer{known.isEmpty() ? element.drawingAttr()->getElementName() : known, nullptr, {}};
    if (!element.drawings().empty())
        layer.drawing = element.drawings().begin()->second.get();
    if (layer.drawing)
        layer.extent = extentOf(*layer.drawing);
    return layer;
}

double areaOf(const QRectF& rectangle)
{
    return rectangle.width() * rectangle.height();
}

double overlapOf(const QRectF& one, const QRectF& other)
{
    const double shared = areaOf(one & other);
    const double all = areaOf(one) + areaOf(other) - shared;
    return all > 0.0 ? shared / all : 0.0;
}

struct Pair
{
    double score;
    std::size_t before;
    std::size_t fresh;
};

// The score of a pair; 0 for layers that are different ones.
double scoreOf(const Layer& before, const Layer& fresh)
{
    const double overlap = overlapOf(before.extent, fresh.extent);
    const bool named = before.name == fresh.name;
    if (!named && overlap < kSamePlace)
        return 0.0;
    const bool same = before.drawing && fresh.drawing && before.extent == fresh.extent &&
                      haveSameShapes(*before.drawing, *fresh.drawing);
    return overlap + (named ? 0.5 : 0.0) + (same ? 0.5 : 0.0);
}

} // namespace

bool haveSameShapes(const CELVEC_Kvd& one, const CELVEC_Kvd& other)
{
    return std::ranges::all_of(kGR_allArts,
                               [&](GR_Art art) { return std::ranges::equal(one.shapes(art), other.shapes(art)); });
}

std::vector<int> matchLayers(const std::vector<MO_ElementModule*>& before,
                             const std::vector<const MO_ElementModule*>& fresh)
{
    std::vector<Layer> known;
    known.reserve(before.size());
    for (const MO_ElementModule* const element : before)
        known.push_back(layerOf(*element));
    const bool isOne = !known.empty() &&
                       std::ranges::all_of(known, [&](const Layer& layer) { return layer.name == known.front().name; });
    if (isOne && fresh.size() == 1)
        return {0};
    std::vector<Pair> pairs;
    for (std::size_t f = 0; f < fresh.size(); ++f) {
        const Layer layer = layerOf(*fresh[f]);
        for (std::size_t b = 0; b < known.size(); ++b)
            if (const double score = scoreOf(known[b], layer); score > 0.0)
                pairs.push_back({score, b, f});
    }
    std::ranges::stable_sort(pairs, std::greater(), &Pair::score);
    std::vector<int> found(fresh.size(), -1);
    std::vector<bool> taken(before.size(), false);
    for (const Pair& pair : pairs)
        if (found[pair.fresh] < 0 && !taken[pair.before]) {
            found[pair.fresh] = static_cast<int>(pair.before);
            taken[pair.before] = true;
        }
    return found;
}
