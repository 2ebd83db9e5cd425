// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/ReliefLayers.h"

#include "QuarvelDrawingIO/DIO_Palette.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

// Slopes of up to 38 degrees: the surface is bent clearly, and no side of a groove turns away from the light
// altogether.
constexpr double kRelief = 0.5;

} // namespace

double reliefCalled(const QString& name)
{
    static const QRegularExpression pattern(QStringLiteral("(?:^|/)(crease|ridge)s?[ _-]*\\d*$"),
                                            QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = pattern.match(name.trimmed());
    if (!match.hasMatch())
        return 0.0;
    return match.captured(1).compare(QLatin1String("crease"), Qt::CaseInsensitive) == 0 ? -kRelief : kRelief;
}

bool bendsTheSurface(const DIO_Layer& layer)
{
    double relief = layer.declared ? reliefCalled(layer.name) : 0.0;
    for (const QString& value : layer.values) {
        const QString key = value.section(u'=', 0, 0).trimmed().toLower();
        const QString said = value.section(u'=', 1).trimmed();
        if (key == u"role")
            relief = reliefCalled(said);
        else if (key == u"relief")
            relief = said.toDouble();
    }
    return relief != 0.0;
}

std::vector<DIO_Layer> takeReliefLayers(DIO_Drawing& drawing, std::vector<std::size_t>& places)
{
    if (std::ranges::all_of(drawing.layers, bendsTheSurface))
        return {};
    std::vector<DIO_Layer> taken;
    std::vector<DIO_Layer> others;
    for (std::size_t i = 0; i < drawing.layers.size(); ++i) {
        const bool takes = bendsTheSurface(drawing.layers[i]);
        if (takes)
            places.push_back(i);
        (takes ? taken : others).push_back(std::move(drawing.layers[i]));
    }
    drawing.layers = std::move(others);
    return taken;
}

void addReliefLayers(const std::vector<DIO_Layer>& layers, const std::vector<std::size_t>& places,
                     const std::vector<DIO_Paint>& palette, ChosenObjects& chosen)
{
    for (std::size_t i = 0; i < layers.size(); ++i) {
        DIO_Layer layer = layers[i];
        for (DIO_Shape& shape : layer.shapes)
            shape.paint = DIO_paintIndex(chosen.drawing.palette, palette[static_cast<std::size_t>(shape.paint)]);
        ChosenObject object;
        object.name = layer.name;
        object.reason = QStringLiteral("bends the surface below it");
        object.role = ObjectRole::RELIEF;
        object.values = layer.values;
        const auto place = static_cast<std::ptrdiff_t>(places.empty() ? chosen.objects.size() : places[i]);
        chosen.objects.insert(chosen.objects.begin() + place, std::move(object));
        chosen.drawing.layers.insert(chosen.drawing.layers.begin() + place, std::move(layer));
    }
}
