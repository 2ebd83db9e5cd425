// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Every change goes through the same limits, also what is read from settings that somebody wrote by hand.
#include "studio/preview/LightModel.h"

#include "QuarvelNormalMap/NM_Srgb.h"

#include <QSettings>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

double held(double value, double low, double high, double otherwise)
{
    return std::isfinite(value) ? std::clamp(value, low, high) : otherwise;
}

StudioLight held(StudioLight light)
{
    constexpr double kFarthest = 8.0;
    const StudioLight usual;
    light.place = {held(light.place.x(), -kFarthest, kFarthest, usual.place.x()),
                   held(light.place.y(), -kFarthest, kFarthest, usual.place.y())};
    light.height = held(light.height, StudioLight::kLowest, StudioLight::kHighest, usual.height);
    light.intensity = held(light.intensity, 0.0, StudioLight::kBrightest, usual.intensity);
    if (!light.colour.isValid())
        light.colour = usual.colour;
    return light;
}

NM_Light computed(const StudioLight& light)
{
    constexpr double kDegrees = 180.0 / std::numbers::pi;
    const auto intensity = static_cast<float>(light.intensity);
    const auto linear = [&](double encoded) { return NM_linearOfSrgb(static_cast<float>(encoded)) * intensity; };
    return {.azimuth = std::atan2(light.place.y(), light.place.x()) * kDegrees,
            .height = std::atan2(light.height, std::hypot(light.place.x(), light.place.y())) * kDegrees,
            .colour = {linear(light.colour.redF()), linear(light.colour.greenF()), linear(light.colour.blueF())}};
}

} // namespace

LightModel::LightModel(QObject* parent) : QObject(parent) {}

void LightModel::setLight(int index, const StudioLight& light)
{
    if (index < 0 || index >= count())
        return;
    StudioLight& old = _lights[static_cast<std::size_t>(index)];
    const StudioLight wanted = held(light);
    if (old == wanted)
        return;
    old = wanted;
    Q_EMIT changed();
}

void LightModel::setCurrent(int index)
{
    if (index == _current || index < 0 || index >= count())
        return;
    _current = index;
    Q_EMIT currentChanged();
}

void LightModel::setAmbient(double ambient)
{
    const double wanted = held(ambient, 0.0, 1.0, kDefaultAmbient);
    if (wanted == _ambient)
        return;
    _ambient = wanted;
    Q_EMIT changed();
}

void LightModel::setHighlight(double highlight)
{
    const double wanted = held(highlight, 0.0, 1.0, 0.0);
    if (wanted == _highlight)
        return;
    _highlight = wanted;
    Q_EMIT changed();
}

bool LightModel::add(const StudioLight& light)
{
    if (count() >= kMaxLights)
        return false;
    _lights.push_back(held(light));
    _current = count() - 1;
    Q_EMIT currentChanged();
    Q_EMIT changed();
    return true;
}

void LightModel::remove(int index)
{
    if (index < 0 || index >= count() || count() == 1)
        return;
    _lights.erase(_lights.begin() + index);
    _current = std::min(_current, count() - 1);
    Q_EMIT currentChanged();
    Q_EMIT changed();
}

void LightModel::reset()
{
    _lights = {StudioLight{}};
    _current = 0;
    _ambient = kDefaultAmbient;
    _highlight = 0.0;
    Q_EMIT currentChanged();
    Q_EMIT changed();
}

NM_LightingSettings LightModel::lighting() const
{
    NM_LightingSettings settings;
    settings.lights.clear();
    for (const StudioLight& light : _lights)
        settings.lights.push_back(computed(light));
    settings.ambient.fill(static_cast<float>(_ambient));
    settings.highlight = static_cast<float>(_highlight);
    return settings;
}

void LightModel::load(QSettings& settings)
{
    settings.beginGroup(QStringLiteral("lights"));
    _ambient = held(settings.value(QStringLiteral("ambient"), kDefaultAmbient).toDouble(), 0.0, 1.0, kDefaultAmbient);
    _highlight = held(settings.value(QStringLiteral("highlight"), 0.0).toDouble(), 0.0, 1.0, 0.0);
    std::vector<StudioLight> lights;
    const int size = std::min(settings.beginReadArray(QStringLiteral("light")), kMaxLights);
    for (int i = 0; i < size; ++i) {
        settings.setArrayIndex(i);
        StudioLight light;
        light.place = {settings.value(QStringLiteral("x"), light.place.x()).toDouble(),
                       settings.value(QStringLiteral("y"), light.place.y()).toDouble()};
        light.height = settings.value(QStringLiteral("height"), light.height).toDouble();
        light.colour = QColor(settings.value(QStringLiteral("colour"), light.colour.name()).toString());
        light.intensity = settings.value(QStringLiteral("intensity"), light.intensity).toDouble();
        lights.push_back(held(light));
    }
    settings.endArray();
    settings.endGroup();
    if (!lights.empty())
        _lights = std::move(lights);
    _current = 0;
    Q_EMIT currentChanged();
    Q_EMIT changed();
}

void LightModel::save(QSettings& settings) const
{
    settings.beginGroup(QStringLiteral("lights"));
    settings.setValue(QStringLiteral("ambient"), _ambient);
    settings.setValue(QStringLiteral("highlight"), _highlight);
    settings.remove(QStringLiteral("light"));
    settings.beginWriteArray(QStringLiteral("light"), count());
    for (int i = 0; i < count(); ++i) {
        settings.setArrayIndex(i);
        const StudioLight& light = _lights[static_cast<std::size_t>(i)];
        settings.setValue(QStringLiteral("x"), light.place.x());
        settings.setValue(QStringLiteral("y"), light.place.y());
        settings.setValue(QStringLiteral("height"), light.height);
        settings.setValue(QStringLiteral("colour"), light.colour.name());
        settings.setValue(QStringLiteral("intensity"), light.intensity);
    }
    settings.endArray();
    settings.endGroup();
}
