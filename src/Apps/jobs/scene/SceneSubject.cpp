// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One function for each kind of subject.
#include "jobs/scene/SceneSubject.h"

#include "QuarvelPersistentObj/PO_XmlText.h"
#include "QuarvelSceneCore/attributes/AT_Attr.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/editing/MO_LightCommands.h"
#include "QuarvelSceneCore/editing/MO_ModuleCommands.h"
#include "QuarvelSceneCore/editing/MO_SceneCommands.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "jobs/scene/AttributeWords.h"
#include "jobs/scene/DescribeScene.h"
#include "jobs/scene/LightPresets.h"
#include "jobs/shown/NormalMapNode.h"
#include "jobs/text/NameList.h"
#include "jobs/text/NearestWord.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

using Found = UT_Result<SceneSubject>;
using MadeCommand = UT_Result<MO_EditCommand>;

UT_Error error(const QString& text)
{
    return UT_Error{text};
}

// "did you mean Hero? There is Hero, Sky", or without a word that is near "there is Hero, Sky".
QString proposal(const QString& typed, const QStringList& words, const QString& thereIs)
{
    const QString nearest = nearestWord(typed, words);
    const QString list = thereIs + u' ' + namesForPeople(words);
    return nearest.isEmpty() ? list
                             : QStringLiteral("did you mean %1? %2%3").arg(nearest, list.at(0).toUpper(), list.mid(1));
}

SceneSubject ofOneWord(std::function<QString()> inWords, std::function<MadeCommand(const QString&)> change)
{
    return {std::move(inWords), [change = std::move(change)](const QStringList& words) -> MadeCommand {
                if (words.size() > 1)
                    return error(QStringLiteral("expected one value, got %1").arg(words.size()));
                return change(words.first());
            }};
}

SceneSubject frames(MO_Scene& scene)
{
    const auto inWords = [&scene] { return QStringLiteral("%1-%2").arg(scene.firstFrame()).arg(scene.lastFrame()); };
    return ofOneWord(inWords, [&scene](const QString& word) -> MadeCommand {
        static const QRegularExpression range(QStringLiteral("^(-?\\d+)-(-?\\d+)$"));
        const QRegularExpressionMatch match = range.match(word);
        bool hasFirst = false;
        bool hasLast = false;
        const int first = match.captured(1).toInt(&hasFirst);
        const int last = match.captured(2).toInt(&hasLast);
        if (!hasFirst || !hasLast || !MO_Scene::mayHaveFrames(first, last))
            return error(QStringLiteral("expected the first and the last frame, as in 1-48, got \"%1\"").arg(word));
        return MO_EditCommand(MO_frameRangeCmd(scene, first, last));
    });
}

SceneSubject frameHeight(MO_Scene& scene)
{
    const auto inWords = [&scene] { return PO_formatDouble(scene.frameHeight()); };
    return ofOneWord(inWords, [&scene](const QString& word) -> MadeCommand {
        bool isNumber = false;
        const double height = word.toDouble(&isNumber);
        if (!isNumber || !std::isfinite(height) || height <= 0.0)
            return error(QStringLiteral("expected a height in units, more than 0, got \"%1\"").arg(word));
        return MO_EditCommand(MO_frameHeightCmd(scene, height));
    });
}

SceneSubject frameRate(MO_Scene& scene)
{
    const auto inWords = [&scene] { return PO_formatDouble(scene.frameRate()); };
    return ofOneWord(inWords, [&scene](const QString& word) -> MadeCommand {
        bool isNumber = false;
        const double rate = word.toDouble(&isNumber);
        if (!isNumber || !(rate >= MO_Scene::kSlowest && rate <= MO_Scene::kFastest))
            return error(QStringLiteral("expected frames a second from %1 to %2, got \"%3\"")
                             .arg(MO_Scene::kSlowest)
                             .arg(MO_Scene::kFastest)
                             .arg(word));
        return MO_frameRateCmd(scene, rate);
    });
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

// Their value in words are their titles.
SceneSubject lights(MO_Scene& scene)
{
    const auto inWords = [&scene] {
        QStringList titles;
        for (const auto& light : scene.lighting().lights())
            titles << scene.lighting().titleOf(*light);
        return titles.join(QStringLiteral(", "));
    };
    return {inWords, [&scene](const QStringList& words) { return changeLights(scene, words); }};
}

SceneSubject attribute(MO_Scene& scene, AT_Attr& attr)
{
    return {[&attr] { return attributeInWords(attr); },
            [&scene, &attr](const QStringList& words) { return changeByWords(scene, attr, words); }};
}

// ".Light2.Intensity", ".Lights.Highlight"; std::nullopt if the subject does not have this form.
std::optional<Found> lightAttribute(MO_Scene& scene, const QString& subject)
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
            return Found(index.error());
        attrs = scene.lighting().lights()[*index]->attrs();
    }
    const auto found = std::ranges::find(attrs, match.captured(2), &AT_Attr::keyword);
    if (found != attrs.end())
        return attribute(scene, **found);
    QStringList keys;
    for (const AT_Attr* const attr : attrs)
        keys << attr->keyword();
    return Found(error(QStringLiteral("the light has no attribute \"%1\"; %2")
                           .arg(match.captured(2), proposal(match.captured(2), keys, QStringLiteral("it has")))));
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

// Drawings that the element does not have would show nothing.
UT_Result<void> checkDrawings(const MO_ElementModule& element, const QStringList& words)
{
    QStringList names;
    for (const auto& drawing : element.drawings())
        names << drawing.first;
    for (const QString& word : words) {
        const QString name = word.section(u':', 1);
        if (!name.isEmpty() && !names.contains(name))
            return error(QStringLiteral("there is no drawing \"%1\"; there is %2").arg(name, namesForPeople(names)));
    }
    return {};
}

SceneSubject moduleAttribute(MO_Scene& scene, MO_Module& module, AT_Attr& attr)
{
    SceneSubject subject = attribute(scene, attr);
    if (NormalMapNode::is(module) && attr.keyword() == NormalMapNode::objectTableKey())
        subject.change = [&](const QStringList& words) { return changeObjectTable(scene, module, attr, words); };
    const auto* const element = dynamic_cast<const MO_ElementModule*>(&module);
    if (element && &attr == element->drawingAttr())
        subject.change = [&scene, &attr, element](const QStringList& words) -> MadeCommand {
            const UT_Result<void> known = checkDrawings(*element, words);
            return known ? changeByWords(scene, attr, words) : MadeCommand(known.error());
        };
    return subject;
}

SceneSubject moduleName(MO_Module& module)
{
    return ofOneWord(
        [&module] { return module.instanceName(); },
        [&module](const QString& word) -> MadeCommand { return MO_EditCommand(MO_renameCmd(module, word)); });
}

SceneSubject moduleSwitch(MO_Module& module)
{
    const auto inWords = [&module] { return module.enabled() ? QStringLiteral("yes") : QStringLiteral("no"); };
    return ofOneWord(inWords, [&module](const QString& word) -> MadeCommand {
        const auto enabled = truthInWord(word);
        if (!enabled)
            return enabled.error();
        return MO_EditCommand(MO_enableCmd({&module}, *enabled));
    });
}

Found ofModule(MO_Scene& scene, MO_Module& module, const QString& key)
{
    if (AT_Attr* const attr = module.findAttr(key))
        return moduleAttribute(scene, module, *attr);
    if (AT_Attr* const attr = NormalMapNode::is(module) ? module.findAttr(NormalMapNode::keyCalled(key)) : nullptr)
        return moduleAttribute(scene, module, *attr);
    if (key == QLatin1String("name"))
        return moduleName(module);
    if (key == QLatin1String("enabled"))
        return moduleSwitch(module);
    QStringList keys;
    for (const AT_Attr* const attr : module.attrs())
        keys << attr->keyword();
    keys << QStringLiteral("name") << QStringLiteral("enabled");
    return error(QStringLiteral("\"%1\" has no attribute \"%2\"; %3")
                     .arg(module.instanceName(), key, proposal(key, keys, QStringLiteral("it has"))));
}

UT_Error unknownSubject(const MO_Scene& scene, const QString& subject, const QString& node)
{
    const QStringList modules = moduleNames(scene);
    if (!node.isEmpty())
        return error(QStringLiteral("there is no node \"%1\"; %2")
                         .arg(node, proposal(node, modules, QStringLiteral("there is"))));
    return error(QStringLiteral("expected NODE.ATTRIBUTE, the node one of %1, or lights, rate, frames, height, "
                                ".TruckFactor or an attribute of the lights such as .Light1.Intensity, got \"%2\"")
                     .arg(namesForPeople(modules), subject));
}

} // namespace

UT_Result<SceneSubject> findSubject(MO_Scene& scene, const QString& subject)
{
    if (subject == QLatin1String("rate"))
        return frameRate(scene);
    if (subject == QLatin1String("frames"))
        return frames(scene);
    if (subject == QLatin1String("height"))
        return frameHeight(scene);
    if (subject == QLatin1String("lights"))
        return lights(scene);
    if (std::optional<Found> light = lightAttribute(scene, subject))
        return std::move(*light);
    const QString node = AT_AttrLink::nodeOf(subject);
    // The ports of groups have no names; nothing is set on them.
    if (MO_Module* const module = node.isEmpty() ? nullptr : scene.findModule(node))
        return ofModule(scene, *module, AT_AttrLink::keyOf(subject));
    if (AT_Attr* const attr = subject.contains(u'.') ? scene.findAttr(subject) : nullptr)
        return attribute(scene, *attr);
    return unknownSubject(scene, subject, node);
}
