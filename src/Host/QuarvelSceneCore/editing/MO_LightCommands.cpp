// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Two kinds of commands: one changes numbers of a light and can merge, because dragging a light changes them; the other
// replaces the list of lights.
#include "QuarvelSceneCore/editing/MO_LightCommands.h"

#include "QuarvelCommand/CO_OrCommand.h"
#include "QuarvelSceneCore/editing/private/MO_NumbersCmd.h"
#include "QuarvelSceneCore/editing/private/MO_StateCmd.h"

#include <optional>

namespace {

using Numbers = MO_NumbersCmd::Numbers;
using States = MO_NumbersCmd::States;

// The name of the changed value of a light; empty where several are changed.
struct Subject
{
    void add(const QString& what)
    {
        if (!text)
            text = what;
        else if (*text != what)
            text = QString();
    }
    std::optional<QString> text;
};

constexpr std::array<double MO_LightValues::*, MO_Light::NUMBERS> kLightNumbers = {
    &MO_LightValues::x,   &MO_LightValues::y,     &MO_LightValues::height, &MO_LightValues::reach,
    &MO_LightValues::red, &MO_LightValues::green, &MO_LightValues::blue,   &MO_LightValues::intensity};

constexpr std::array<double MO_LightingValues::*, MO_Lighting::NUMBERS> kCommonNumbers = {
    &MO_LightingValues::ambientRed, &MO_LightingValues::ambientGreen, &MO_LightingValues::ambientBlue,
    &MO_LightingValues::ambientIntensity, &MO_LightingValues::highlight};

// The three numbers of a colour count as one value.
QString subjectOf(const AT_Attr& number, std::size_t index, std::size_t firstOfColour)
{
    if (index >= firstOfColour && index < firstOfColour + 3)
        return MO_CommandTexts::tr("Colour");
    return number.label();
}

QString lightName(const MO_Lighting& lighting, const MO_Light& light, const Subject& subject)
{
    const QString what = subject.text.value_or(QString());
    return what.isEmpty() ? MO_CommandTexts::tr("Change %1").arg(lighting.titleOf(light))
                          : MO_CommandTexts::tr("%1 of %2").arg(what, lighting.titleOf(light));
}

MO_EditCommand numbersCmd(const std::shared_ptr<MO_Light>& light, const MO_Lighting& lighting, double frame,
                          const MO_LightValues& values)
{
    const MO_LightValues before = light->values(frame);
    Subject subject;
    Numbers numbers;
    States after;
    for (std::size_t i = 0; i < kLightNumbers.size(); ++i) {
        AT_DoubleAttr& number = light->number(static_cast<MO_Light::Number>(i));
        const double wanted = values.*kLightNumbers[i];
        const bool changes = wanted != before.*kLightNumbers[i];
        numbers.push_back(&number);
        after.push_back(changes ? number.stateWith(frame, wanted) : number.state());
        const bool isPlace = i == MO_Light::X || i == MO_Light::Y;
        if (changes)
            subject.add(isPlace ? MO_CommandTexts::tr("Place") : subjectOf(number, i, MO_Light::RED));
    }
    return std::make_unique<MO_NumbersCmd>(lightName(lighting, *light, subject), light, numbers, after);
}

MO_EditCommand listCmd(MO_Lighting& lighting, const QString& name, const MO_Lighting::Lights& after)
{
    return MO_makeStateCmd(name, lighting.lights(), after,
                           [&lighting](const MO_Lighting::Lights& lights) { lighting.setLights(lights); });
}

std::shared_ptr<MO_Light> copyOf(MO_Light& light)
{
    auto copy = std::make_shared<MO_Light>(light.values(0.0));
    for (std::size_t i = 0; i < MO_Light::NUMBERS; ++i) {
        const auto which = static_cast<MO_Light::Number>(i);
        copy->number(which).setState(light.number(which).state());
    }
    return copy;
}

} // namespace

MO_EditCommand MO_lightCmd(MO_Scene& scene, std::size_t index, double frame, const MO_LightValues& values)
{
    const MO_Lighting& lighting = scene.lighting();
    if (index >= lighting.lights().size())
        return nullptr;
    const std::shared_ptr<MO_Light>& light = lighting.lights()[index];
    const auto simple = [&](AT_Attr& attr, CO_Command* change) -> MO_EditCommand {
        MO_EditCommand made(change);
        if (!made)
            return nullptr;
        auto named =
            std::make_unique<CO_OrCommand>(MO_CommandTexts::tr("%1 of %2").arg(attr.label(), lighting.titleOf(*light)));
        named->append(std::move(made));
        return named;
    };
    auto whole = std::make_unique<CO_OrCommand>();
    whole->append(simple(light->name(), light->name().setValueCmd(frame, values.name)));
    whole->append(simple(light->kind(), light->kind().setValueCmd(frame, values.kind)));
    whole->append(simple(light->on(), light->on().setValueCmd(frame, values.on)));
    whole->append(simple(light->solo(), light->solo().setValueCmd(frame, values.solo)));
    if (MO_EditCommand numbers = numbersCmd(light, lighting, frame, values); numbers->hasEffect())
        whole->append(std::move(numbers));
    return whole->isEmpty() ? nullptr : std::move(whole);
}

MO_EditCommand MO_lightingCmd(MO_Scene& scene, double frame, const MO_LightingValues& values)
{
    MO_Lighting& lighting = scene.lighting();
    const MO_LightingValues before = lighting.values(frame);
    Subject subject;
    Numbers numbers;
    States after;
    for (std::size_t i = 0; i < kCommonNumbers.size(); ++i) {
        AT_DoubleAttr& number = lighting.number(static_cast<MO_Lighting::Number>(i));
        const double wanted = values.*kCommonNumbers[i];
        const bool changes = wanted != before.*kCommonNumbers[i];
        numbers.push_back(&number);
        after.push_back(changes ? number.stateWith(frame, wanted) : number.state());
        if (changes)
            subject.add(i <= MO_Lighting::AMBIENT_BLUE ? MO_CommandTexts::tr("Ambient Colour") : number.label());
    }
    const QString what = subject.text.value_or(QString());
    auto command = std::make_unique<MO_NumbersCmd>(
        MO_CommandTexts::tr("Change %1").arg(what.isEmpty() ? MO_CommandTexts::tr("Lights") : what), nullptr, numbers,
        after);
    return command->hasEffect() ? std::move(command) : nullptr;
}

MO_EditCommand MO_addLightCmd(MO_Scene& scene, const MO_LightValues& values)
{
    MO_Lighting::Lights lights = scene.lighting().lights();
    if (lights.size() >= MO_Lighting::kMaxLights)
        return nullptr;
    lights.push_back(std::make_shared<MO_Light>(values));
    return listCmd(scene.lighting(), MO_CommandTexts::tr("Add Light"), lights);
}

MO_EditCommand MO_duplicateLightCmd(MO_Scene& scene, std::size_t index)
{
    MO_Lighting::Lights lights = scene.lighting().lights();
    if (index >= lights.size() || lights.size() >= MO_Lighting::kMaxLights)
        return nullptr;
    const QString name = MO_CommandTexts::tr("Duplicate %1").arg(scene.lighting().titleOf(*lights[index]));
    lights.insert(lights.begin() + static_cast<std::ptrdiff_t>(index) + 1, copyOf(*lights[index]));
    return listCmd(scene.lighting(), name, lights);
}

MO_EditCommand MO_removeLightCmd(MO_Scene& scene, std::size_t index)
{
    MO_Lighting::Lights lights = scene.lighting().lights();
    if (index >= lights.size() || lights.size() == 1)
        return nullptr;
    const QString name = MO_CommandTexts::tr("Remove %1").arg(scene.lighting().titleOf(*lights[index]));
    lights.erase(lights.begin() + static_cast<std::ptrdiff_t>(index));
    return listCmd(scene.lighting(), name, lights);
}

MO_EditCommand MO_lightRigCmd(MO_Scene& scene, const QString& name, const MO_LightRig& rig)
{
    if (rig.lights.empty())
        return nullptr;
    MO_Lighting& lighting = scene.lighting();
    MO_Lighting::Lights lights;
    for (const MO_LightValues& values : rig.lights)
        lights.push_back(std::make_shared<MO_Light>(values));
    Numbers numbers;
    States after;
    for (std::size_t i = 0; i < kCommonNumbers.size(); ++i) {
        numbers.push_back(&lighting.number(static_cast<MO_Lighting::Number>(i)));
        after.push_back({rig.common.*kCommonNumbers[i], AT_Curve()});
    }
    auto whole = std::make_unique<CO_OrCommand>(name);
    whole->append(listCmd(lighting, name, lights));
    whole->append(std::make_unique<MO_NumbersCmd>(name, nullptr, numbers, after));
    return whole;
}
