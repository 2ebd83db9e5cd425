// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Colours count by red, green and blue alone, as GlossDrawing.h compares them.
#include "studio/export/GlossColours.h"

#include "QuarvelCelCore/CELVEC_Kvd.h"
#include "QuarvelGraphicCore/CM_Color.h"
#include "QuarvelPersistentObj/PO_XmlText.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "studio/docks/scene/ColourSwatch.h"

#include <QStringList>
#include <algorithm>
#include <cmath>
#include <map>
#include <set>

namespace {

// A sprite may have thousands of colours; a table of more than these would be no help.
constexpr std::size_t kMostOfSprites = 48;
const QString kOthers = QStringLiteral("all");

bool contains(const std::vector<DrawnColour>& colours, const QColor& colour)
{
    return std::ranges::any_of(colours, [&](const DrawnColour& one) { return one.colour.rgb() == colour.rgb(); });
}

void countPixels(const QImage& picture, std::map<QRgb, qint64>& counts)
{
    const QImage pixels = picture.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < pixels.height(); ++y) {
        const auto* const row = reinterpret_cast<const QRgb*>(pixels.constScanLine(y));
        for (const QRgb pixel : std::span(row, static_cast<std::size_t>(pixels.width())))
            if (qAlpha(pixel) > 0)
                ++counts[pixel | 0xff000000U];
    }
}

std::map<QRgb, qint64> colourCountsOfSprites(const MO_Scene& scene)
{
    std::map<QRgb, qint64> counts;
    std::set<const CELVEC_Kvd*> known;
    scene.root().forEachModule([&](const MO_Module& module) {
        const auto* const element = dynamic_cast<const MO_ElementModule*>(&module);
        if (!element)
            return;
        for (const auto& [name, drawing] : element->drawings())
            if (drawing && known.insert(drawing.get()).second)
                for (const GR_Art art : kGR_allArts)
                    for (const CELVEC_Shape& shape : drawing->shapes(art))
                        if (!shape.picture.isNull())
                            countPixels(shape.picture, counts);
    });
    return counts;
}

} // namespace

std::vector<DrawnColour> drawnColours(const MO_Scene& scene)
{
    std::vector<DrawnColour> colours;
    for (const CM_SharedPtr<CM_Palette>& palette : scene.palettes())
        for (const auto& colour : palette->colors())
            if (const QColor own = toQColor(colour->GetNominalColor()); !contains(colours, own))
                colours.push_back({own, colour->GetColorName().ToQString()});
    const std::map<QRgb, qint64> counts = colourCountsOfSprites(scene);
    std::vector<std::pair<QRgb, qint64>> sorted(counts.begin(), counts.end());
    std::ranges::stable_sort(sorted, std::ranges::greater(), &std::pair<QRgb, qint64>::second);
    sorted.resize(std::min(sorted.size(), kMostOfSprites));
    for (const auto& [colour, count] : sorted)
        if (!contains(colours, QColor(colour)))
            colours.push_back({QColor(colour), QColor(colour).name().toUpper()});
    return colours;
}

GlossSettings glossOf(const std::vector<DrawnColour>& colours, const GlossSettings& known)
{
    GlossSettings own{.colours = {}, .others = known.others};
    std::ranges::copy_if(known.colours, std::back_inserter(own.colours),
                         [&](const ColourGloss& one) { return contains(colours, one.colour); });
    return own;
}

GlossSettings withGloss(const GlossSettings& known, const std::vector<DrawnColour>& colours, const GlossSettings& set)
{
    GlossSettings all = set;
    std::ranges::copy_if(known.colours, std::back_inserter(all.colours),
                         [&](const ColourGloss& one) { return !contains(colours, one.colour); });
    return all;
}

QStringList glossTexts(const GlossSettings& gloss)
{
    const auto text = [](const QString& colour, double value) {
        return colour + QLatin1Char('=') + PO_formatDouble(value);
    };
    QStringList texts{text(kOthers, gloss.others)};
    for (const ColourGloss& one : gloss.colours)
        texts << text(one.colour.name(), one.gloss);
    return texts;
}

GlossSettings glossOfTexts(const QStringList& texts)
{
    GlossSettings gloss;
    for (const QString& text : texts) {
        bool isNumber = false;
        const double value = text.section(QLatin1Char('='), 1).toDouble(&isNumber);
        if (!isNumber || !(value >= 0.0 && value <= 1.0))
            continue;
        const QString name = text.section(QLatin1Char('='), 0, 0);
        if (name == kOthers)
            gloss.others = value;
        else if (const QColor colour(name); colour.isValid())
            gloss.colours.push_back({colour, value});
    }
    return gloss;
}
