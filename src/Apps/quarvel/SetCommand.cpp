// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Loads, changes, saves. A change that changes nothing is not saved.
#include "SetCommand.h"

#include "ExitCodes.h"
#include "FormOptions.h"
#include "OpenScene.h"
#include "QuarvelSceneIO/SIO_SceneFolder.h"
#include "Report.h"
#include "StopSignal.h"
#include "jobs/scene/SetAttribute.h"
#include "jobs/scene/SetObjects.h"

#include <algorithm>
#include <optional>

namespace {

bool isObjectOption(const QString& word)
{
    return word == u"--object" || word.startsWith(u"--object=");
}

// How often a change is made again because others saved the scene first.
constexpr int kAttempts = 100;

using Changes = std::vector<ChangedValue>;

QString inWords(const ChangedValue& change)
{
    // An empty value is written as a shell takes it.
    const auto shown = [](const QString& value) { return value.isEmpty() ? QStringLiteral("''") : value; };
    return QStringLiteral("%1: %2 -> %3").arg(change.what, shown(change.before), shown(change.after));
}

void tellChanges(const QString& folder, const Changes& changes, Report& report)
{
    QJsonArray values;
    QStringList lines;
    for (const ChangedValue& change : changes) {
        values.append(QJsonObject{{QStringLiteral("what"), change.what},
                                  {QStringLiteral("before"), change.before},
                                  {QStringLiteral("after"), change.after}});
        lines << inWords(change);
    }
    QString text;
    for (const QString& line : lines.isEmpty() ? QStringList(QStringLiteral("nothing to change")) : lines)
        text += QStringLiteral("%1: %2\n").arg(folder, line);
    report.result({{QStringLiteral("scene"), folder},
                   {QStringLiteral("changed"), !changes.empty()},
                   {QStringLiteral("change"), lines.join(u'\n')},
                   {QStringLiteral("changes"), values}},
                  text);
}

bool goOn(double)
{
    return !StopSignal::came();
}

// @return the exit code; nothing when somebody else saved the scene after it was loaded
template<typename Change>
std::optional<int> tryChange(const SIO_LoadedScene& opened, const QString& folder, const Change& change, Report& report)
{
    CO_CommandStack stack;
    const UT_Result<Changes> changed = change(*opened.scene, stack);
    if (!changed) {
        report.error(changed.error(), folder);
        return kWrongUsage;
    }
    if (StopSignal::came())
        return StopSignal::leaveUnchanged(folder, report);
    if (changed->empty()) {
        tellChanges(folder, *changed, report);
        return 0;
    }
    const auto saved = SIO_saveSceneOver(opened.state, *opened.scene, folder, &goOn);
    if (!saved && saved.error().kind == UT_ErrorKind::STOPPED)
        return StopSignal::leaveUnchanged(folder, report);
    if (!saved) {
        report.error(saved.error());
        return kFailed;
    }
    if (!*saved)
        return std::nullopt;
    tellChanges(folder, *changed, report);
    if (!StopSignal::came())
        return 0;
    // The signal came when the save had taken effect.
    report.error(QStringLiteral("stopped; the change of %1 is saved").arg(folder));
    return StopSignal::exitCode();
}

// @param change gets the scene and a stack; gives an error, or what it changed
template<typename Change>
int changeScene(const QString& folder, const Change& change, Report& report)
{
    auto opened = openScene(folder, report);
    for (int attempt = 0; opened && attempt < kAttempts; ++attempt) {
        if (const auto exitCode = tryChange(*opened, folder, change, report))
            return *exitCode;
        // Another program saved the scene meanwhile: its change counts, and this one is made on top of it.
        opened = SIO_loadScene(folder, &goOn);
    }
    if (!opened && opened.error().kind == UT_ErrorKind::STOPPED)
        return StopSignal::leaveUnchanged(folder, report);
    report.error(opened ? UT_Error{QStringLiteral("other programs save the scene again and again; try later")}
                        : opened.error(),
                 folder);
    return kFailed;
}

int setAttribute(const QStringList& words, Report& report)
{
    const auto change = [&](MO_Scene& scene, CO_CommandStack& stack) {
        return setInScene(scene, stack, words[1], words.sliced(2));
    };
    return changeScene(words.first(), change, report);
}

int setObjects(const QStringList& words, Report& report)
{
    ObjectWishes wishes;
    const std::vector<OptionRow<ObjectWishes>> table{
        objectOptionRow<ObjectWishes>([](ObjectWishes& all) -> ObjectWishes& { return all; })};
    const UT_Result<QStringList> rest = takeOptions(QStringLiteral("set"), words, table, wishes);
    if (!rest) {
        report.error(rest.error());
        return kWrongUsage;
    }
    if (rest->size() != 1) {
        report.error(QStringLiteral(
            "set --object wants one scene, such as walk.scene; attributes are set by a call of their own"));
        return kWrongUsage;
    }
    const auto change = [&](MO_Scene& scene, CO_CommandStack& stack) {
        return setObjectsInScene(scene, stack, wishes);
    };
    return changeScene(rest->first(), change, report);
}

// An attribute's value may look like any option, so that this one stands before the scene or at the end.
bool takeQuiet(QStringList& words)
{
    const auto isQuiet = [](const QString& word) { return word == u"-q" || word == u"--quiet"; };
    if (!words.isEmpty() && isQuiet(words.first())) {
        words.removeFirst();
        return true;
    }
    if (words.size() > 3 && isQuiet(words.last())) {
        words.removeLast();
        return true;
    }
    return false;
}

} // namespace

int runSetCommand(const QStringList& typed, Report& report)
{
    if (typed.contains(QStringLiteral("--help"))) {
        report.help(setHelp());
        return 0;
    }
    QStringList words = typed;
    if (takeQuiet(words))
        report.beQuiet();
    const bool setsObjects = std::ranges::any_of(words, &isObjectOption);
    if (!setsObjects && words.size() < 3) {
        report.error(QStringLiteral("set wants a scene, what to change and its new value, as in:\n"
                                    "  quarvel set walk.scene Normal-Map.bevel-multiplier 1:0.5 24:2.0\n"
                                    "  quarvel set walk.scene --object head:bevel=40"));
        return kWrongUsage;
    }
    return setsObjects ? setObjects(words, report) : setAttribute(words, report);
}

QString setHelp()
{
    return QStringLiteral(
        "quarvel set - changes one thing of a scene, or values of single objects\n"
        "\n"
        "  quarvel set SCENE WHAT VALUE...\n"
        "  quarvel set SCENE --object N:...\n"
        "\n"
        "\"quarvel inspect SCENE\" lists the nodes and their attributes.\n"
        "\n"
        "Values of single objects\n"
        "      --object N:...   sets one object's values, in the words of quarvel normalmap; all other objects stay\n"
        "  -q, --quiet          nothing on standard output; before the scene or at the end\n"
        "      --json           the change as JSON on standard output, with warnings and errors\n"
        "  -h, --help           this text\n"
        "\n"
        "Examples\n"
        "  quarvel set walk.scene --object head:bevel=40 --object 'eye*:elevation=0.5'\n"
        "  quarvel set walk.scene Normal-Map.bevel-multiplier 1.5       one value for all frames\n"
        "  quarvel set walk.scene Normal-Map.BlurScale 1:0.5 24:2.0     keys at frames 1 and 24; others stay\n"
        "  quarvel set walk.scene Normal-Map.BlurScale 1:0.5:hold       it stays until the next key\n"
        "  quarvel set walk.scene Normal-Map.BlurScale 1:0:bezier 24:2  it leaves and arrives softly\n"
        "  quarvel set walk.scene Normal-Map.BlurScale =Hero.ScaleX     reads another attribute; = alone ends that\n"
        "  quarvel set walk.scene Normal-Map.NormalQuality HIGH_NORMAL_QUALITY\n"
        "  quarvel set walk.scene Normal-Map.ObjectList 1:60:1:1        object 1: bevel, elevation, smoothness; others "
        "stay;\n"
        "                                                               '' takes all out\n"
        "  quarvel set walk.scene Hero.Drawing 1:walk_1 3:walk_2 9:     drawings from frames on; none from 9 on\n"
        "  quarvel set walk.scene Hero.name Heroine                     a node's name\n"
        "  quarvel set walk.scene Hero.enabled no                       its switch\n"
        "  quarvel set walk.scene .TruckFactor 1:1 48:1.4               the camera\n"
        "  quarvel set walk.scene .Light1.Intensity 1:0 12:1.5          a light, counted from 1\n"
        "  quarvel set walk.scene .Lights.AmbientIntensity 0.2          what the lights have in common\n"
        "  quarvel set walk.scene lights sunset                         other lights: standard, key-and-rim, sunset, "
        "torch;\n"
        "                                                               or add, or remove 2\n"
        "  quarvel set walk.scene rate 25                               the frames a second\n"
        "  quarvel set walk.scene frames 1-48                           the frames of the scene\n"
        "  quarvel set walk.scene height 405                            the frame's height; it is 720 wide\n"
        "\n"
        "Exit code: 0 when the change is saved, or the scene was like this already; 1 when the scene could not be read "
        "or\n"
        "saved; 2 when the change made no sense; 130 or 143 when a signal stopped it (Ctrl-C, SIGTERM): then the last "
        "line\n"
        "says whether the change is saved.\n");
}
