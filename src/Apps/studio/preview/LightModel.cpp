// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The model gives out a copy of the scene's values at the frame, and refreshes it whenever they may have changed.
#include "studio/preview/LightModel.h"

#include "QuarvelCommand/CO_OrCommand.h"
#include "QuarvelSceneCore/editing/MO_KeyCommands.h"
#include "QuarvelSceneCore/editing/MO_LightCommands.h"
#include "jobs/shown/SceneLighting.h"
#include "studio/document/StudioDocument.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace {

constexpr int kTurningTick = 33;
constexpr double kTurnSeconds = 6.0;

StudioLight studioLight(const MO_LightValues& values)
{
    const auto channel = [](double value) { return static_cast<float>(value / 255.0); };
    return {.place = {values.x, values.y},
            .height = values.height,
            .colour = QColor::fromRgbF(channel(values.red), channel(values.green), channel(values.blue)),
            .intensity = values.intensity,
            .kind = values.kind,
            .reach = values.reach,
            .on = values.on,
            .solo = values.solo,
            .name = values.name};
}

// A colour that was not edited keeps its exact values.
MO_LightValues valuesOf(const StudioLight& light, const MO_LightValues& before)
{
    MO_LightValues values{.name = light.name,
                          .kind = light.kind,
                          .on = light.on,
                          .solo = light.solo,
                          .x = light.place.x(),
                          .y = light.place.y(),
                          .height = light.height,
                          .reach = light.reach,
                          .red = before.red,
                          .green = before.green,
                          .blue = before.blue,
                          .intensity = light.intensity};
    if (light.colour.isValid() && light.colour != studioLight(before).colour) {
        values.red = light.colour.red();
        values.green = light.colour.green();
        values.blue = light.colour.blue();
    }
    return values;
}

} // namespace

LightModel::LightModel(StudioDocument& document, QObject* parent) : QObject(parent), _document(document)
{
    _timer.setInterval(kTurningTick);
    connect(&_timer, &QTimer::timeout, this, &LightModel::turn);
    connect(&document, &StudioDocument::lightsChanged, this, &LightModel::refresh);
    connect(&document, &StudioDocument::currentFrameChanged, this, &LightModel::refresh);
    connect(&document, &StudioDocument::sceneReplaced, this, [this] {
        // Only after the new scene's lights are known may anybody hear of another current one.
        const bool isOther = std::exchange(_current, 0) != 0;
        setTurning(false);
        refresh();
        if (isOther)
            Q_EMIT currentChanged();
    });
    refresh();
}

QString LightModel::titleOf(int index) const
{
    const MO_Lighting& lighting = _document.scene().lighting();
    return lighting.titleOf(*lighting.lights().at(static_cast<std::size_t>(index)));
}

void LightModel::refresh()
{
    const MO_LightRig rig = _document.scene().lighting().rig(_document.currentFrame());
    std::vector<StudioLight> lights;
    std::ranges::transform(rig.lights, std::back_inserter(lights), studioLight);
    const int count = static_cast<int>(lights.size());
    const int current = std::min(_current, count - 1);
    if (isTurning())
        lights[static_cast<std::size_t>(current)].place = turned(lights[static_cast<std::size_t>(current)].place);
    const bool others = count != this->count() || current != _current;
    const bool differ = lights != _lights || rig.common != _common;
    _lights = std::move(lights);
    _common = rig.common;
    _current = current;
    if (others)
        Q_EMIT currentChanged();
    if (differ)
        Q_EMIT changed();
}

void LightModel::setLight(int index, const StudioLight& light)
{
    if (index < 0 || index >= count())
        return;
    const bool isMoved = light.place != _lights[static_cast<std::size_t>(index)].place;
    setTurning(false);
    MO_Scene& scene = _document.scene();
    const auto place = static_cast<std::size_t>(index);
    const int frame = _document.currentFrame();
    const MO_LightValues before = scene.lighting().lights()[place]->values(frame);
    MO_LightValues values = valuesOf(light, before);
    // The momentary place of a turning light must not be stored.
    if (!isMoved) {
        values.x = before.x;
        values.y = before.y;
    }
    _document.execute(MO_lightCmd(scene, place, frame, values));
    refresh();
}

void LightModel::setCurrent(int index)
{
    if (index == _current || index < 0 || index >= count())
        return;
    setTurning(false);
    _current = index;
    Q_EMIT currentChanged();
}

void LightModel::setCommon(const MO_LightingValues& common)
{
    _document.execute(MO_lightingCmd(_document.scene(), _document.currentFrame(), common));
}

bool LightModel::add(const StudioLight& light)
{
    setTurning(false);
    if (!_document.execute(MO_addLightCmd(_document.scene(), valuesOf(light, {}))))
        return false;
    setCurrent(count() - 1);
    return true;
}

bool LightModel::duplicate(int index)
{
    setTurning(false);
    if (index < 0 || !_document.execute(MO_duplicateLightCmd(_document.scene(), static_cast<std::size_t>(index))))
        return false;
    setCurrent(index + 1);
    return true;
}

void LightModel::remove(int index)
{
    setTurning(false);
    if (index >= 0)
        _document.execute(MO_removeLightCmd(_document.scene(), static_cast<std::size_t>(index)));
}

void LightModel::use(const QString& name, const MO_LightRig& rig)
{
    setTurning(false);
    if (!_document.execute(MO_lightRigCmd(_document.scene(), name, rig)))
        return;
    setCurrent(0);
}

void LightModel::reset()
{
    use(tr("Reset Lights"), {});
}

void LightModel::endChange()
{
    _document.commands().endMerging();
}

MO_Light& LightModel::currentLight() const
{
    return *_document.scene().lighting().lights().at(static_cast<std::size_t>(_current));
}

bool LightModel::hasKey(MO_Light::Number number) const
{
    return currentLight().number(number).curve().keyAt(_document.currentFrame());
}

bool LightModel::hasKey(MO_Lighting::Number number) const
{
    return _document.scene().lighting().number(number).curve().keyAt(_document.currentFrame());
}

void LightModel::toggleLightKey(const std::vector<MO_Light::Number>& numbers)
{
    std::vector<AT_AnimatableAttr*> attrs;
    attrs.reserve(numbers.size());
    for (const MO_Light::Number number : numbers)
        attrs.push_back(&currentLight().number(number));
    toggleKeys(attrs);
}

void LightModel::toggleCommonKey(const std::vector<MO_Lighting::Number>& numbers)
{
    std::vector<AT_AnimatableAttr*> attrs;
    attrs.reserve(numbers.size());
    for (const MO_Lighting::Number number : numbers)
        attrs.push_back(&_document.scene().lighting().number(number));
    toggleKeys(attrs);
}

void LightModel::toggleKeys(const std::vector<AT_AnimatableAttr*>& numbers)
{
    setTurning(false);
    const int frame = _document.currentFrame();
    const bool removes = numbers.front()->curve().keyAt(frame);
    auto command = std::make_unique<CO_OrCommand>(removes ? tr("Remove Key of Light") : tr("Set Key of Light"));
    for (AT_AnimatableAttr* const number : numbers)
        command->append(removes ? MO_removeKeyCmd(*number, frame) : MO_addKeyCmd(*number, frame));
    _document.execute(std::move(command));
    // A key does not change a value, but the panel shows whether there is one.
    Q_EMIT changed();
}

void LightModel::setTurning(bool isTurning)
{
    if (isTurning == this->isTurning())
        return;
    _angle = 0.0;
    if (isTurning) {
        _sinceTurning.start();
        _timer.start();
    } else {
        _timer.stop();
    }
    refresh();
    Q_EMIT turningChanged(isTurning);
}

void LightModel::turn()
{
    _angle = static_cast<double>(_sinceTurning.elapsed()) / 1000.0 / kTurnSeconds * 2.0 * std::numbers::pi;
    refresh();
}

QPointF LightModel::turned(const QPointF& place) const
{
    // A light above the centre would not move.
    constexpr double kLeast = 0.3;
    const double distance = std::max(std::hypot(place.x(), place.y()), kLeast);
    const double angle = std::atan2(place.y(), place.x()) + _angle;
    return {distance * std::cos(angle), distance * std::sin(angle)};
}

NM_LightingSettings LightModel::lighting() const
{
    MO_LightRig rig = _document.scene().lighting().rig(_document.currentFrame());
    if (isTurning()) {
        MO_LightValues& light = rig.lights.at(static_cast<std::size_t>(_current));
        const QPointF place = turned({light.x, light.y});
        light.x = place.x();
        light.y = place.y();
    }
    return lightingOf(rig);
}
