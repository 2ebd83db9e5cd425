// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Loads, changes, saves. What would change nothing is not saved.
#include "SetCommand.h"

#include "FormOptions.h"
#include "OpenScene.h"
#include "QuarvelSceneIO/SIO_SceneFolder.h"
#include "Say.h"
#include "jobs/scene/SetAttribute.h"
#include "jobs/scene/SetObjects.h"

#include <algorithm>
#include <cstdio>
#include <optional>

namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

bool isObjectOption(const QString& word)
{
    return word == u"--object" || word.startsWith(u"--object=");
}

// How often a change is made again because others saved the scene first.
constexpr int kAttempts = 100;

// @return the exit code; nothing when somebody else saved the scene after it was loaded
template<typename Change>
std::optional<int> tryChange(const SIO_LoadedScene& opened, const QString& folder, const Change& change)
{
    CO_CommandStack stack;
    const UT_Result<QString> changed = change(*opened.scene, stack);
    if (!changed) {
        say(QStringLiteral("%1: %2").arg(folder, changed.error().sentence()));
        return kWrongUsage;
    }
    if (changed->isEmpty()) {
        writeText(stdout, QStringLiteral("%1: nothing to change\n").arg(folder));
        return 0;
    }
    const auto saved = SIO_saveSceneOver(opened.state, *opened.scene, folder);
    if (!saved) {
        say(saved.error().sentence());
        return kFailed;
    }
    if (!*saved)
        return std::nullopt;
    writeText(stdout, QStringLiteral("%1: %2\n").arg(folder, *changed));
    return 0;
}

// @param change gets the scene and a stack; gives an error, or what it changed in words: nothing when nothing
template<typename Change>
int changeScene(const QString& folder, const Change& change)
{
    auto opened = openScene(folder);
    for (int attempt = 0; opened && attempt < kAttempts; ++attempt) {
        if (const auto exitCode = tryChange(*opened, folder, change))
            return *exitCode;
        // Another program saved the scene meanwhile: its change counts, and this one is made on top of it.
        opened = SIO_loadScene(folder);
    }
    say(opened ? QStringLiteral("%1: other programs save the scene again and again; try later").arg(folder)
               : opened.error().sentence());
    return kFailed;
}

int setAttribute(const QStringList& words)
{
    return changeScene(words.first(), [&](MO_Scene& scene, CO_CommandStack& stack) -> UT_Result<QString> {
        const UT_Result<bool> changed = setInScene(scene, stack, words[1], words.sliced(2));
        if (!changed)
            return changed.error();
        return *changed ? stack.undoName() : QString();
    });
}

int setObjects(const QStringList& words)
{
    ObjectWishes wishes;
    const std::vector<OptionRow<ObjectWishes>> table{
        objectOptionRow<ObjectWishes>([](ObjectWishes& all) -> ObjectWishes& { return all; })};
    const UT_Result<QStringList> rest = takeOptions(QStringLiteral("set"), words, table, wishes);
    if (!rest) {
        say(rest.error().sentence());
        return kWrongUsage;
    }
    if (rest->size() != 1) {
        say(QStringLiteral(
            "set --object wants one scene, such as walk.scene; attributes are set by a call of their own"));
        return kWrongUsage;
    }
    return changeScene(rest->first(), [&](MO_Scene& scene, CO_CommandStack& stack) -> UT_Result<QString> {
        const UT_Result<std::vector<int>> changed = setObjectsInScene(scene, stack, wishes);
        if (!changed)
            return changed.error();
        QStringList numbers;
        for (const int number : *changed)
            numbers << QString::number(number);
        return numbers.isEmpty() ? QString() : QStringLiteral("changed: object ") + numbers.join(QStringLiteral(", "));
    });
}

} // namespace

int runSetCommand(const QStringList& words)
{
    if (words.contains(QStringLiteral("--help"))) {
        std::fputs(qPrintable(setHelp()), stdout);
        return 0;
    }
    const bool setsObjects = std::ranges::any_of(words, &isObjectOption);
    if (!setsObjects && words.size() < 3) {
        say(QStringLiteral("set wants a scene, what to change and its new value, as in:\n"
                           "  quarvel set walk.scene Normal-Map.bevel-multiplier 1:0.5 24:2.0\n"
                           "  quarvel set walk.scene --object head:bevel=40"));
        return kWrongUsage;
    }
    return setsObjects ? setObjects(words) : setAttribute(words);
}

QString setHelp()
{
    return QStringLiteral(
        "quarvel set - changes one thing of a scene, or values of single objects\n"
        "\n"
        "  quarvel set SCENE WHAT VALUE...\n"
        "  quarvel set SCENE --object N:...\n"
        "\n"
        "\"quarvel inspect SCENE\" lists the modules and their attributes.\n"
        "\n"
        "Values of single objects\n"
        "      --object N:...   sets one object's values, in the words of quarvel normalmap; all other objects stay\n"
        "\n"
        "Examples\n"
        "  quarvel set walk.scene --object head:bevel=40 --object 'eye*:elevation=0.5'\n"
        "  quarvel set walk.scene Normal-Map.bevel-multiplier 1.5       one value for all frames\n"
        "  quarvel set walk.scene Normal-Map.BlurScale 1:0.5 24:2.0     keys at frames 1 and 24; others stay\n"
        "  quarvel set walk.scene Normal-Map.BlurScale 1:0.5:hold       it stays until the next key\n"
        "  quarvel set walk.scene Normal-Map.BlurScale 1:0:bezier 24:2  it leaves and arrives softly\n"
        "  quarvel set walk.scene Normal-Map.BlurScale =Hero.ScaleX     reads another attribute; = alone ends that\n"
        "  quarvel set walk.scene Normal-Map.NormalQuality HIGH_NORMAL_QUALITY\n"
        "  quarvel set walk.scene Hero.Drawing 1:walk_1 3:walk_2 9:     drawings from frames on; none from 9 on\n"
        "  quarvel set walk.scene Hero.name Heroine                     a module's name\n"
        "  quarvel set walk.scene Hero.enabled no                       its switch\n"
        "  quarvel set walk.scene .TruckFactor 1:1 48:1.4               the camera\n"
        "  quarvel set walk.scene .Light1.Intensity 1:0 12:1.5          a light, counted from 1\n"
        "  quarvel set walk.scene .Lights.AmbientIntensity 0.2          what the lights have in common\n"
        "  quarvel set walk.scene lights sunset                         other lights: standard, key-and-rim, sunset, "
        "torch;\n"
        "                                                               or add, or remove 2\n"
        "  quarvel set walk.scene rate 25                               the frames a second\n"
        "  quarvel set walk.scene frames 1-48                           the frames of the scene\n"
        "  quarvel set walk.scene height 405                            the frame's height; it is 720 wide\n");
}
