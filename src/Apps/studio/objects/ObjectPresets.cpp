// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A bevel of four times half the object's breadth blurs across the whole object; only then the profile is round up to
// the middle.
#include "studio/objects/ObjectPresets.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "jobs/drawing/ObjectWords.h"
#include "studio/objects/ObjectValues.h"

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
        settings.setValue(QStringLiteral("values"), objectWords(preset.values));
    }
    settings.endArray();
}

// Earlier versions stored three numbers instead of words.
QString storedWords(const QSettings& settings)
{
    QString words = settings.value(QStringLiteral("values")).toString();
    const auto number = [&](const char* key) { return settings.value(QLatin1String(key)).toString(); };
    if (!words.isEmpty())
        return words;
    return QStringLiteral("bevel=%1:elevation=%2:smoothness=%3")
        .arg(number("bevel"), number("elevation"), number("smoothness"));
}

// A form without a rim. It leaves the object facing where it does.
ObjectPreset builtIn(const QString& name, double bevelOfBreadth, double bevel, double elevation, double smoothness)
{
    ObjectPreset preset{name, bevelOfBreadth, {}};
    preset.values.bevel = bevel;
    preset.values.elevation = elevation;
    preset.values.smoothness = smoothness;
    preset.values.rim = ObjectRim{0.0, ObjectDefinition::kRimHeight};
    return preset;
}

} // namespace

std::vector<ObjectPreset> builtInPresets()
{
    return {builtIn(ObjectTexts::tr("Soft Pillow"), 2.6, 0.0, 1.2, 1.8),
            builtIn(ObjectTexts::tr("Hard Chamfer"), 0.0, 14.0, 0.8, 1.0),
            builtIn(ObjectTexts::tr("Coin"), 0.0, 8.0, 0.25, 1.6),
            builtIn(ObjectTexts::tr("Paper"), 0.0, 2.0, 0.06, 1.0),
            builtIn(ObjectTexts::tr("Balloon"), 4.0, 0.0, 2.4, 3.4)};
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
        // Settings may have been edited by hand, so invalid words are ignored.
        for (const QString& word : storedWords(settings).split(u':'))
            (void)takeObjectWord(preset.values, word);
        if (!preset.name.isEmpty())
            presets.push_back(preset);
    }
    settings.endArray();
    return presets;
}

void saveOwnPreset(const QString& name, const ObjectSettings& values)
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

ObjectSettings valuesOf(const ObjectPreset& preset, double breadth)
{
    ObjectSettings values = preset.values;
    if (preset.bevelOfBreadth > 0.0) {
        const double half = (breadth > 0.0 ? breadth : kMiddlingBreadth) / 2.0;
        values.bevel = std::round(preset.bevelOfBreadth * half * 10.0) / 10.0;
    }
    return values;
}
