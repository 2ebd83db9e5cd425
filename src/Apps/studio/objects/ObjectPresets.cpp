// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A bevel of four times half the object's breadth blurs across the whole object; only then the profile is round up to
// the middle.
#include "studio/objects/ObjectPresets.h"

#include "studio/objects/ObjectChanges.h"

#include <QSettings>

#include <algorithm>
#include <cmath>

namespace {

const QString kArray = QStringLiteral("objectPresets");
constexpr double kMiddlingBreadth = 120.0;

void write(const std::vector<ObjectPreset>& presets)
{
    QSettings settings;
    settings.remove(kArray);
    settings.beginWriteArray(kArray);
    int index = 0;
    for (const ObjectPreset& preset : presets) {
        settings.setArrayIndex(index++);
        settings.setValue(QStringLiteral("name"), preset.name);
        settings.setValue(QStringLiteral("bevel"), preset.values.bevel);
        settings.setValue(QStringLiteral("elevation"), preset.values.elevation);
        settings.setValue(QStringLiteral("smoothness"), preset.values.smoothness);
    }
    settings.endArray();
}

double finite(const QVariant& value, double otherwise)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? number : otherwise;
}

} // namespace

std::vector<ObjectPreset> builtInPresets()
{
    return {{ObjectTexts::tr("Soft Pillow"), 2.6, {0, 0.0, 1.2, 1.8}},
            {ObjectTexts::tr("Hard Chamfer"), 0.0, {0, 14.0, 0.8, 1.0}},
            {ObjectTexts::tr("Coin"), 0.0, {0, 8.0, 0.25, 1.6}},
            {ObjectTexts::tr("Paper"), 0.0, {0, 2.0, 0.06, 1.0}},
            {ObjectTexts::tr("Balloon"), 4.0, {0, 0.0, 2.4, 3.4}}};
}

std::vector<ObjectPreset> ownPresets()
{
    std::vector<ObjectPreset> presets;
    QSettings settings;
    const int count = settings.beginReadArray(kArray);
    for (int i = 0; i < count; ++i) {
        settings.setArrayIndex(i);
        ObjectPreset preset;
        preset.name = settings.value(QStringLiteral("name")).toString();
        // Settings may have been edited by hand, so invalid values are replaced.
        setValue(preset.values, ObjectValue::BEVEL, finite(settings.value(QStringLiteral("bevel")), 5.0));
        setValue(preset.values, ObjectValue::ELEVATION, finite(settings.value(QStringLiteral("elevation")), 1.0));
        setValue(preset.values, ObjectValue::SMOOTHNESS, finite(settings.value(QStringLiteral("smoothness")), 1.0));
        if (!preset.name.isEmpty())
            presets.push_back(preset);
    }
    settings.endArray();
    return presets;
}

void saveOwnPreset(const QString& name, const NormalMapObject& values)
{
    std::vector<ObjectPreset> presets = ownPresets();
    const auto found = std::ranges::find(presets, name, &ObjectPreset::name);
    ObjectPreset& preset = found == presets.end() ? presets.emplace_back() : *found;
    preset = {name, 0.0, values};
    write(presets);
}

void removeOwnPreset(const QString& name)
{
    std::vector<ObjectPreset> presets = ownPresets();
    std::erase_if(presets, [&](const ObjectPreset& preset) { return preset.name == name; });
    write(presets);
}

NormalMapObject valuesOf(const ObjectPreset& preset, double breadth)
{
    NormalMapObject values = preset.values;
    if (preset.bevelOfBreadth > 0.0) {
        const double half = (breadth > 0.0 ? breadth : kMiddlingBreadth) / 2.0;
        values.bevel = std::round(preset.bevelOfBreadth * half * 10.0) / 10.0;
    }
    return values;
}
