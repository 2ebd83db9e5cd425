// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Finds the subject of the change. AttributeWords.cpp reads the words for an attribute's value.
#include "jobs/scene/SetAttribute.h"

#include "QuarvelSceneCore/attributes/AT_Attr.h"
#include "QuarvelSceneCore/editing/MO_LightCommands.h"
#include "QuarvelSceneCore/editing/MO_ModuleCommands.h"
#include "QuarvelSceneCore/editing/MO_SceneCommands.h"
#include "jobs/scene/AttributeWords.h"
#include "jobs/scene/DescribeScene.h"
#include "jobs/scene/LightPresets.h"
#include "jobs/shown/NormalMapNode.h"
#include "jobs/text/NameList.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

// Null if nothing would change.
using MadeCommand = UT_Result<MO_EditCommand>;

UT_Error error(const QString& text)
{
    return UT_Error{text};
}

QStringList keysOf(const MO_Module& module)
{
    QStringList keys;
    for (const AT_Attr* attr : module.attrs())
        keys << attr->keyword();
    return keys << QStringLiteral("name") << QStringLiteral("enabled");
}

MadeCommand changeModule(MO_Module& module, const QString& key, const QString& word)
{
    if (key == QLatin1String("name"))
        return MO_EditCommand(MO_renameCmd(module, word));
    const auto enabled = truthInWord(word);
    if (!enabled)
        return enabled.error();
    return MO_EditCommand(MO_enableCmd({&module}, *enabled));
}

MadeCommand changeFrames(MO_Scene& scene, const QString& word)
{
    static const QRegularExpression range(QStringLiteral("^(-?\\d+)-(-?\\d+)$"));
    const QRegularExpressionMatch match = range.match(word);
    bool hasFirst = false;
    bool hasLast = false;
    const int first = match.captured(1).toInt(&hasFirst);
    const int last = match.captured(2).toInt(&hasLast);
    if (!hasFirst || !hasLast || !MO_Scene::mayHaveFrames(first, last))
        return error(QStringLiteral("expected the first and the last frame, as in 1-48, got \"%1\"").arg(word));
    return MO_EditCommand(MO_frameRangeCmd(scene, first, last));
}

MadeCommand changeFrameHeight(MO_Scene& scene, const QString& word)
{
    bool isNumber = false;
    const double height = word.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(height) || height <= 0.0)
        return error(QStringLiteral("expected a height in units, more than 0, got \"%1\"").arg(word));
    return MO_EditCommand(MO_frameHeightCmd(scene, height));
}

MadeCommand changeFrameRate(MO_Scene& scene, const QString& word)
{
    bool isNumber = false;
    const double rate = word.toDouble(&isNumber);
    if (!isNumber || !(rate >= MO_Scene::kSlowest && rate <= MO_Scene::kFastest))
        return error(QStringLiteral("expected frames a second from %1 to %2, got \"%3\"")
                         .arg(MO_Scene::kSlowest)
                         .arg(MO_Scene::kFastest)
                         .arg(word));
    return MO_frameRateCmd(scene, rate);
}

UT_Result<std::size_t> lightNumber(const MO_Scene& scene, const QString& word)
{
    bool isNumber = false;
    const qsizetype number = word.toLongLong(&isNumber);
    const auto count = static_cast<qsizetype>(scene.lighting().lights().size());
    if (!isNumber || number < 1 || number > count)
        return error(QStringLiteral("expected the number of a light, 1 to %1, got \"%2\"").arg(count).arg(word));
    return static_cast<std::size_t>(number - 1);
}

MadeCommand changeLights(MO_Scene& scene, const QStringList& words)
{
    const QString& word = words.first();
    if (word == QLatin1String("add") && words.size() == 1) {
        MO_EditCommand added = MO_addLightCmd(scene, {});
        return added ? MadeCommand(std::move(added))
                     : error(QStringLiteral("a scene has at most %1 lights").arg(MO_Lighting::kMaxLights));
    }
    if (word == QLatin1String("remove") && words.size() == 2) {
        const auto index = lightNumber(scene, words[1]);
        if (!index)
            return index.error();
        MO_EditCommand removed = MO_removeLightCmd(scene, *index);
        return removed ? MadeCommand(std::move(removed))
                       : error(QStringLiteral("the last light stays; switch it off with .Light1.On no"));
    }
    if (const auto preset = findLightPreset(word); preset && words.size() == 1)
        return MO_lightRigCmd(scene, QStringLiteral("Lights: ") + preset->label, preset->rig);
    QStringList presets;
    for (const LightPreset& preset : lightPresets())
        presets << preset.keyword;
    return error(QStringLiteral("expected %1, add, or remove and a light's number, got \"%2\"")
                     .arg(presets.join(QStringLiteral(", ")), words.join(u' ')));
}

// ".Light2.Intensity", ".Lights.Highlight"; std::nullopt if the subject does not have this form.
std::optional<MadeCommand> changeLight(MO_Scene& scene, const QString& subject, const QStringList& words)
{
    static const QRegularExpression form(QStringLiteral("^\\.Light(s|\\d+)\\.(\\w+)$"));
    const QRegularExpressionMatch match = form.match(subject);
    if (!match.hasMatch())
        return std::nullopt;
    std::vector<AT_Attr*> attrs;
    if (match.captured(1) == QLatin1String("s")) {
        for (AT_DoubleAttr& number : scene.lighting().numbers())
            attrs.push_back(&number);
    } else {
        const auto index = lightNumber(scene, match.captured(1));
        if (!index)
            return MadeCommand(index.error());
        attrs = scene.lighting().lights()[*index]->attrs();
    }
    const auto found = std::ranges::find(attrs, match.captured(2), &AT_Attr::keyword);
    if (found != attrs.end())
        return changeByWords(scene, **found, words);
    QStringList keys;
    for (const AT_Attr* const attr : attrs)
        keys << attr->keyword();
    return MadeCommand(error(QStringLiteral("expected one of %1 after the light, got \"%2\"")
                                 .arg(keys.join(QStringLiteral(", ")), match.captured(2))));
}

// The object table: rows that are given take the place of those of their numbers, and the other objects stay, as other
// keys of a curve do. An empty text empties the table.
MadeCommand changeObjectTable(MO_Scene& scene, MO_Module& node, AT_Attr& table, const QStringList& words)
{
    const QString text = words.join(u';');
    std::vector<NormalMapObject> rows = NormalMapNode(node).objects();
    const std::vector<NormalMapObject> given = objectsOfTable(text);
    for (const NormalMapObject& row : given)
        putRow(rows, row);
    if (!text.trimmed().isEmpty() && given.empty())
        return error(
            QStringLiteral("expected NUMBER:BEVEL:ELEVATION:SMOOTHNESS, as in 1:60:1:1, got \"%1\"").arg(text));
    return changeByWords(scene, table, {text.trimmed().isEmpty() ? QString() : objectTableText(rows)});
}

MadeCommand commandFor(MO_Scene& scene, const QString& subject, const QStringList& words)
{
    if (subject == QLatin1String("rate") && words.size() == 1)
        return changeFrameRate(scene, words.first());
    if (subject == QLatin1String("lights"))
        return changeLights(scene, words);
    if (std::optional<MadeCommand> light = changeLight(scene, subject, words))
        return std::move(*light);
    if (subject == QLatin1String("frames") && words.size() == 1)
        return changeFrames(scene, words.first());
    if (subject == QLatin1String("height") && words.size() == 1)
        return changeFrameHeight(scene, words.first());
    const QString node = AT_AttrLink::nodeOf(subject);
    const QString key = AT_AttrLink::keyOf(subject);
    MO_Module* const module = scene.findModule(node);
    AT_Attr* const named = subject.contains(u'.') ? scene.findAttr(subject) : nullptr;
    if (named && module && NormalMapNode::is(*module) && key == NormalMapNode::objectTableKey())
        return changeObjectTable(scene, *module, *named, words);
    if (named)
        return changeByWords(scene, *named, words);
    if (AT_Attr* attr =
            module && NormalMapNode::is(*module) ? module->findAttr(NormalMapNode::keyCalled(key)) : nullptr)
        return changeByWords(scene, *attr, words);
    if (!module)
        return error(QStringLiteral("expected MODULE.ATTRIBUTE, the module one of %1, got \"%2\"")
                         .arg(namesForPeople(moduleNames(scene)), subject));
    if (words.size() == 1 && (key == QLatin1String("name") || key == QLatin1String("enabled")))
        return changeModule(*module, key, words.first());
    return error(QStringLiteral("\"%1\" has no attribute \"%2\"; it has %3")
                     .arg(node, key, keysOf(*module).join(QStringLiteral(", "))));
}

} // namespace

UT_Result<bool> setInScene(MO_Scene& scene, CO_CommandStack& stack, const QString& subject, const QStringList& words)
{
    if (words.isEmpty())
        return error(QStringLiteral("expected a new value after \"%1\", got nothing").arg(subject));
    MadeCommand command = commandFor(scene, subject, words);
    if (!command)
        return command.error();
    return stack.execute(std::move(*command));
}
