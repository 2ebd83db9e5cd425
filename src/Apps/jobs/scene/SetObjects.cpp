// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Makes all commands before executing the first, so that an error leaves the scene unchanged. This works because the
// commands change different attributes.
#include "jobs/scene/SetObjects.h"

#include "QuarvelPersistentObj/PO_XmlText.h"
#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "QuarvelSceneCore/attributes/AT_StringAttr.h"
#include "jobs/drawing/ObjectNames.h"
#include "jobs/scene/AttributeWords.h"
#include "jobs/scene/ObjectInputs.h"
#include "jobs/shown/NormalMapNode.h"

#include <QSet>

#include <algorithm>
#include <set>

namespace {

// An object with the names that words may call it by.
struct NamedObject
{
    MO_Module* node;
    int number;
    ObjectDefinition* definition;
    QStringList names;
};

std::vector<NamedObject> namedObjectsOf(const MO_Scene& scene)
{
    std::vector<NamedObject> objects;
    for (const ObjectInput& input : objectInputsOf(scene))
        objects.push_back({input.node, input.definition->objectId(scene.firstFrame()), input.definition,
                           input.elements + QStringList{input.definition->instanceName()}});
    return objects;
}

QString shownName(const NamedObject& object)
{
    return QStringLiteral("%1 %2").arg(object.number).arg(object.names.first());
}

UT_Result<void> checkKnown(const std::vector<NamedObject>& objects, const ObjectWishes& wishes)
{
    QStringList known;
    for (const NamedObject& object : objects)
        known << shownName(object);
    known.removeDuplicates();
    for (const auto& [number, said] : wishes.objects)
        if (std::ranges::find(objects, number, &NamedObject::number) == objects.end())
            return noSuchObject(QString::number(number), known);
    for (const auto& wish : wishes.namedObjects) {
        const auto isMeant = [&wish](const NamedObject& object) { return isNamedBy(object.names, wish.first); };
        if (std::ranges::none_of(objects, isMeant))
            return noSuchObject(QStringLiteral("called \"%1\"").arg(wish.first), known);
    }
    return {};
}

// The words of an object's values, and the values.
using ValueWords = std::vector<std::pair<QString, QString>>;

QString yesNo(bool value)
{
    return value ? QStringLiteral("yes") : QStringLiteral("no");
}

QString pair(AT_Attr& first, AT_Attr& second)
{
    return attributeInWords(first) + u',' + attributeInWords(second);
}

// The values of all objects, in the words of ObjectWords.h.
std::vector<ValueWords> valuesOf(const std::vector<NamedObject>& objects, const MO_Scene& scene)
{
    std::map<const MO_Module*, std::vector<NormalMapObject>> tables;
    std::vector<ValueWords> all;
    for (const NamedObject& object : objects) {
        const auto [table, isNew] = tables.try_emplace(object.node);
        if (isNew)
            table->second = NormalMapNode(*object.node).objects();
        const ObjectDefinition& definition = *object.definition;
        // By the number that it had, so that what cuts out from now on does not seem to lose its values as well.
        const NormalMapObject* const row = findRow(table->second, object.number);
        const auto inRow = [row](double NormalMapObject::*value) {
            return row ? PO_formatDouble(row->*value) : QStringLiteral("-");
        };
        const bool isShown = definition.objectEnabled()->localValue() || definition.relief()->localValue() != 0.0;
        all.push_back({{QStringLiteral("bevel"), inRow(&NormalMapObject::bevel)},
                       {QStringLiteral("elevation"), inRow(&NormalMapObject::elevation)},
                       {QStringLiteral("smoothness"), inRow(&NormalMapObject::smoothness)},
                       {QStringLiteral("level"), attributeInWords(*definition.objectLevel())},
                       {QStringLiteral("coverage"), attributeInWords(*definition.scaleByCoverage())},
                       {QStringLiteral("cutout"), yesNo(definition.objectId(scene.firstFrame()) == 0)},
                       {QStringLiteral("hidden"), yesNo(!isShown)},
                       {QStringLiteral("tilt"), pair(*definition.tiltX(), *definition.tiltY())},
                       {QStringLiteral("rim"), pair(*definition.rimBevel(), *definition.rimHeight())},
                       {QStringLiteral("relief"), attributeInWords(*definition.relief())}});
    }
    return all;
}

// An object that several nodes have is told once where they agree.
std::vector<ChangedValue> changesBetween(const std::vector<NamedObject>& objects, const std::vector<ValueWords>& before,
                                         const std::vector<ValueWords>& after)
{
    std::vector<ChangedValue> changes;
    QSet<QString> told;
    for (std::size_t i = 0; i < objects.size(); ++i)
        for (std::size_t j = 0; j < before[i].size(); ++j) {
            if (before[i][j] == after[i][j])
                continue;
            const ChangedValue change{QStringLiteral("object %1, %2").arg(shownName(objects[i]), before[i][j].first),
                                      before[i][j].second, after[i][j].second};
            if (const QString all = change.what + u'\n' + change.before + u'\n' + change.after; !told.contains(all)) {
                told.insert(all);
                changes.push_back(change);
            }
        }
    return changes;
}

// The commands of a change.
class Changes
{
public:
    explicit Changes(MO_Scene& scene) : _scene(scene) {}

    UT_Result<void> define(const NamedObject& object, const ObjectSettings& said)
    {
        ObjectDefinition& definition = *object.definition;
        UT_Result<void> done;
        if (said.level)
            done = set(*definition.objectLevel(), PO_formatDouble(*said.level));
        if (done && said.scaleByCoverage)
            done = set(*definition.scaleByCoverage(), yesNo(*said.scaleByCoverage));
        if (done)
            done = show(object, said);
        if (done && said.tilt)
            done = set(*definition.tiltX(), PO_formatDouble(said.tilt->x));
        if (done && said.tilt)
            done = set(*definition.tiltY(), PO_formatDouble(said.tilt->y));
        if (done && said.rim)
            done = set(*definition.rimBevel(), PO_formatDouble(said.rim->bevel));
        if (done && said.rim)
            done = set(*definition.rimHeight(), PO_formatDouble(said.rim->height));
        if (done && said.cutOut && *said.cutOut != (object.number == 0)) {
            if (!*said.cutOut)
                return UT_Error{QStringLiteral("%1 cuts out; to give it a volume, give it a number: quarvel set SCENE "
                                               "%2.ObjectNumber 7")
                                    .arg(object.names.first(), definition.instanceName())};
            done = set(*definition.objectNumber(), QStringLiteral("0"));
        }
        return done;
    }

    // What bends the surface is switched off and has a relief; hidden, it has none.
    UT_Result<void> show(const NamedObject& object, const ObjectSettings& said)
    {
        ObjectDefinition& definition = *object.definition;
        const double before = definition.relief()->localValue();
        const bool hides = said.hidden.value_or(false);
        const double relief = hides ? 0.0 : said.relief.value_or(before);
        UT_Result<void> done;
        if (relief != before)
            done = set(*definition.relief(), PO_formatDouble(relief));
        if (done && (said.hidden || said.relief))
            done = set(*definition.objectEnabled(), yesNo(!hides && relief == 0.0));
        return done;
    }

    UT_Result<void> raise(MO_Module& node, const std::map<int, ObjectSettings>& said)
    {
        std::vector<NormalMapObject> rows = NormalMapNode(node).objects();
        for (const auto& [number, settings] : said)
            if (settings.bevel || settings.elevation || settings.smoothness)
                raise(rows, number, settings);
        AT_Attr* const table = node.findAttr(NormalMapNode::objectTableKey());
        return table ? set(*table, objectTableText(rows)) : UT_Result<void>();
    }

    void execute(CO_CommandStack& stack)
    {
        for (MO_EditCommand& command : _commands)
            stack.execute(std::move(command));
    }

private:
    static void raise(std::vector<NormalMapObject>& rows, int number, const ObjectSettings& said)
    {
        const NormalMapObject* const known = findRow(rows, number);
        NormalMapObject row = known ? *known : NormalMapObject{.number = number};
        row.bevel = said.bevel.value_or(row.bevel);
        row.elevation = said.elevation.value_or(row.elevation);
        row.smoothness = said.smoothness.value_or(row.smoothness);
        putRow(rows, row);
    }

    UT_Result<void> set(AT_Attr& attr, const QString& word)
    {
        UT_Result<MO_EditCommand> command = changeByWords(_scene, attr, {word});
        if (!command)
            return command.error();
        if (*command)
            _commands.push_back(std::move(*command));
        return {};
    }

    MO_Scene& _scene;
    std::vector<MO_EditCommand> _commands;
};

} // namespace

UT_Result<std::vector<ChangedValue>> setObjectsInScene(MO_Scene& scene, CO_CommandStack& stack,
                                                       const ObjectWishes& wishes)
{
    const std::vector<NamedObject> objects = namedObjectsOf(scene);
    if (objects.empty())
        return UT_Error{
            QStringLiteral("the scene has no objects: nothing leads through an Object Definition to a node %1")
                .arg(NormalMapNode::keyword())};
    if (UT_Result<void> known = checkKnown(objects, wishes); !known)
        return known.error();
    Changes changes(scene);
    std::map<MO_Module*, std::map<int, ObjectSettings>> raised;
    std::set<const ObjectDefinition*> defined;
    for (const NamedObject& object : objects) {
        const ObjectSettings said = wishesFor(wishes, object.number, object.names);
        ObjectSettings& known = raised[object.node][object.number];
        known = merged(known, said);
        if (!defined.insert(object.definition).second)
            continue;
        if (UT_Result<void> done = changes.define(object, said); !done)
            return done.error();
    }
    for (auto& [node, said] : raised) {
        said.erase(0);
        if (UT_Result<void> done = changes.raise(*node, said); !done)
            return done.error();
    }
    const std::vector<ValueWords> before = valuesOf(objects, scene);
    changes.execute(stack);
    return changesBetween(objects, before, valuesOf(objects, scene));
}
