// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The limits are those of the words that values are copied as, so that whatever reads the words accepts them.
#include "studio/objects/ObjectValues.h"

#include "form/ElevationUnit.h"

#include <QLocale>

#include <cmath>

double valueOf(const NormalMapObject& values, ObjectValue value)
{
    switch (value) {
    case ObjectValue::BEVEL:
        return values.bevel;
    case ObjectValue::ELEVATION:
        return values.elevation;
    default:
        return values.smoothness;
    }
}

double valueOf(const SceneObject& object, ObjectValue value)
{
    switch (value) {
    case ObjectValue::RIM:
        return object.rim.bevel;
    case ObjectValue::TILT_RIGHT:
        return object.tilt.x;
    case ObjectValue::TILT_UP:
        return object.tilt.y;
    default:
        return valueOf(object.values, value);
    }
}

const ValueLimits& limitsOf(ObjectValue value)
{
    switch (value) {
    case ObjectValue::BEVEL:
        return ObjectLimits::kBevel;
    case ObjectValue::ELEVATION:
        return ObjectLimits::kElevation;
    case ObjectValue::SMOOTHNESS:
        return ObjectLimits::kSmoothness;
    case ObjectValue::RIM:
        return ObjectLimits::kRimBevel;
    case ObjectValue::TILT_RIGHT:
    case ObjectValue::TILT_UP:
        break;
    }
    return ObjectLimits::kTilt;
}

double clampedTo(ObjectValue value, double number)
{
    const double clamped = limitsOf(value).clamp(number);
    return value == ObjectValue::ELEVATION ? givenElevation(clamped) : clamped;
}

ObjectSettings settingsOf(const SceneObject& object)
{
    ObjectSettings settings;
    settings.bevel = object.values.bevel;
    settings.elevation = object.values.elevation;
    settings.smoothness = object.values.smoothness;
    settings.rim = object.rim;
    settings.tilt = object.tilt;
    return settings;
}

ObjectSettings clamped(ObjectSettings settings)
{
    const auto clampOne = [](std::optional<double>& number, ObjectValue value) {
        if (number)
            number = clampedTo(value, *number);
    };
    clampOne(settings.bevel, ObjectValue::BEVEL);
    clampOne(settings.elevation, ObjectValue::ELEVATION);
    clampOne(settings.smoothness, ObjectValue::SMOOTHNESS);
    if (settings.rim)
        settings.rim->bevel = clampedTo(ObjectValue::RIM, settings.rim->bevel);
    if (settings.tilt)
        settings.tilt = ObjectTilt{clampedTo(ObjectValue::TILT_RIGHT, settings.tilt->x),
                                   clampedTo(ObjectValue::TILT_UP, settings.tilt->y)};
    return settings;
}

double stepOf(ObjectValue value)
{
    return value == ObjectValue::ELEVATION || value == ObjectValue::SMOOTHNESS ? 0.1 : 1.0;
}

QString ObjectTexts::name(ObjectValue value)
{
    switch (value) {
    case ObjectValue::BEVEL:
        return tr("Bevel");
    case ObjectValue::ELEVATION:
        return tr("Elevation");
    case ObjectValue::SMOOTHNESS:
        return tr("Smoothness");
    case ObjectValue::RIM:
        return tr("Rim", "a second, narrow bevel");
    case ObjectValue::TILT_RIGHT:
        return tr("Tilt right");
    case ObjectValue::TILT_UP:
        break;
    }
    return tr("Tilt up");
}

QString ObjectTexts::explanation(ObjectValue value)
{
    switch (value) {
    case ObjectValue::BEVEL:
        return tr("How far the rounding reaches in from the outline; the picture is 720 units wide");
    case ObjectValue::ELEVATION:
        return tr("How high the object rises; 1 is 37.5 units of a picture 720 wide, negative values sink in");
    case ObjectValue::SMOOTHNESS:
        return tr("How round the profile is: 1 follows the bevel, more is fuller, less is more pointed");
    case ObjectValue::RIM:
        return tr("The width of a second, narrow bevel at the outline, like the edge of a coin; the picture is 720 "
                  "units wide, 0 is no rim");
    case ObjectValue::TILT_RIGHT:
        return tr("How many degrees the object is turned to the right; negative values turn it to the left");
    case ObjectValue::TILT_UP:
        break;
    }
    return tr("How many degrees the object is turned upwards; negative values turn it down");
}

QString ObjectTexts::tiltName()
{
    return tr("Tilt");
}

QString ObjectTexts::tilt(const ObjectTilt& tilt)
{
    return tr("%1, %2", "a tilt to the right and upwards, in degrees").arg(number(tilt.x), number(tilt.y));
}

QString ObjectTexts::number(double value)
{
    return QLocale().toString(std::round(value * 1e4) / 1e4, 'g', 6);
}

QString ObjectTexts::subject(const std::vector<SceneObject>& objects)
{
    return objects.size() == 1 ? objects.front().name : tr("%n objects", nullptr, static_cast<int>(objects.size()));
}

QString ObjectTexts::ofObjects(const QString& what, const std::vector<SceneObject>& objects)
{
    return tr("%1 of %2", "Bevel of Head").arg(what, subject(objects));
}

QString ObjectTexts::valueOf(ObjectValue value, const std::vector<SceneObject>& objects)
{
    return ofObjects(name(value), objects);
}
