// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Numbers are written so that reading gives the same double.
#include "jobs/drawing/ChosenForm.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "QuarvelPersistentObj/PO_XmlText.h"

#include <QStringList>

#include <cmath>

namespace {

constexpr qsizetype kShort = 3; // bevel, elevation, smoothness
constexpr qsizetype kLong = 7;  // and the tilt's and the rim's two numbers

const ObjectRim kNoRim{0.0, ObjectDefinition::kRimHeight};

} // namespace

QString chosenFormText(const ObjectSettings& form)
{
    const ObjectTilt tilt = form.tilt.value_or(ObjectTilt());
    const ObjectRim rim = form.rim.value_or(kNoRim);
    std::vector<double> numbers{form.bevel.value(), form.elevation.value(), form.smoothness.value()};
    if (tilt != ObjectTilt() || rim.bevel != 0.0)
        numbers.insert(numbers.end(), {tilt.x, tilt.y, rim.bevel, rim.height});
    QStringList fields;
    for (const double number : numbers)
        fields << PO_formatDouble(number);
    return fields.join(QLatin1Char(':'));
}

std::optional<ObjectSettings> chosenFormOf(const QString& text)
{
    std::vector<double> numbers;
    for (const QString& field : text.split(QLatin1Char(':'))) {
        bool isNumber = false;
        numbers.push_back(field.toDouble(&isNumber));
        if (!isNumber || !std::isfinite(numbers.back()))
            return std::nullopt;
    }
    if (numbers.size() != kShort && numbers.size() != kLong)
        return std::nullopt;
    ObjectSettings form;
    form.bevel = numbers[0];
    form.elevation = numbers[1];
    form.smoothness = numbers[2];
    const bool isLong = numbers.size() == kLong;
    form.tilt = isLong ? ObjectTilt{numbers[3], numbers[4]} : ObjectTilt();
    form.rim = isLong ? ObjectRim{numbers[5], numbers[6]} : kNoRim;
    return form;
}
