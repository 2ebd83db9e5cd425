// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Loads, changes, saves. What would change nothing is not saved.
#include "SetCommand.h"

#include "OpenScene.h"
#include "QuarvelSceneIO/SIO_SceneFolder.h"
#include "Say.h"
#include "jobs/scene/SetAttribute.h"

#include <cstdio>

namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

} // namespace

int runSetCommand(const QStringList& words)
{
    if (words.contains(QStringLiteral("--help"))) {
        std::fputs(qPrintable(setHelp()), stdout);
        return 0;
    }
    if (words.size() < 3) {
        say(QStringLiteral("set wants a scene, what to change and its new value, as in:\n"
                           "  quarvel set walk.scene Normal-Map.BlurScale 1:0.5 24:2.0"));
        return kWrongUsage;
    }
    const QString& folder = words.first();
    const auto opened = openScene(folder);
    if (!opened) {
        say(opened.error().sentence());
        return kFailed;
    }
    CO_CommandStack stack;
    const auto changed = setInScene(*opened->scene, stack, words[1], words.sliced(2));
    if (!changed) {
        say(QStringLiteral("%1: %2").arg(folder, changed.error().sentence()));
        return kWrongUsage;
    }
    if (!*changed) {
        writeText(stdout, QStringLiteral("%1: nothing to change\n").arg(folder));
        return 0;
    }
    if (const auto saved = SIO_saveScene(*opened->scene, folder); !saved) {
        say(saved.error().sentence());
        return kFailed;
    }
    writeText(stdout, QStringLiteral("%1: %2\n").arg(folder, stack.undoName()));
    return 0;
}

QString setHelp()
{
    return QStringLiteral(
        "quarvel set - changes one thing of a scene\n"
        "\n"
        "  quarvel set SCENE WHAT VALUE...\n"
        "\n"
        "\"quarvel inspect SCENE\" lists the modules and their attributes.\n"
        "\n"
        "Examples\n"
        "  quarvel set walk.scene Normal-Map.BlurScale 1.5              one value for all frames\n"
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
