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
#include "jobs/text/NameList.h"

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
    const auto unknown = [&](const QString& what) {
        return UT_Error{QStringLiteral("there is no object %1; the objects are %2").arg(what, namesForPeople(known))};
    };
    for (const auto& [number, said] : wishes.objects)
        if (std::ranges::find(objects, number, &NamedObject::number) == objects.end())
            return unknown(QString::number(number));
    for (const auto& wish : wishes.namedObjects) {
        const auto isMeant = [&wish](const NamedObject& object) { return isNamedBy(object.names, wish.first); };
        if (std::ranges::none_of(objects, isMeant))
            return unknown(QStringLiteral("called \"%1\"").arg(wish.first));
    }
    return {};
}

// The commands, and the numbers of the objects whose values they change.
class Changes
{
public:
    explicit Changes(MO_Scene& scene) : _scene(scene) {}

    UT_Result<void> define(const NamedObject& object, const ObjectSettings& said)
    {
        ObjectDefinition& definition = *object.definition;
        UT_Result<void> done;
        if (said.level)
            done = set(*definition.objectLevel(), PO_formatDouble(*said.level), object.number);
        if (done && said.scaleByCoverage)
            done = set(*definition.scaleByCoverage(), yesNo(*said.scaleByCoverage), object.number);
        if (done)
            done = show(object, said);
        if (done && said.tilt)
            done = set(*definition.tiltX(), PO_formatDouble(said.tilt->x), object.number);
        if (done && said.tilt)
            done = set(*definition.tiltY(), PO_formatDouble(said.tilt->y), object.number);
        if (done && said.rim)
            done = set(*definition.rimBevel(), PO_formatDouble(said.rim->bevel), object.number);
        if (done && said.rim)
            done = set(*definition.rimHeight(), PO_formatDouble(said.rim->height), object.number);
        if (done && said.cutOut && *said.cutOut != (object.number == 0)) {
            if (!*said.cutOut)
                return UT_Error{QStringLiteral("%1 cuts out; to give it a volume, give it a number: quarvel set SCENE "
                                               "%2.ObjectNumber 7")
                                    .arg(object.names.first(), definition.instanceName())};
            done = set(*definition.objectNumber(), QStringLiteral("0"), object.number);
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
            done = set(*definition.relief(), PO_formatDouble(relief), object.number);
        if (done && (said.hidden || said.relief))
            done = set(*definition.objectEnabled(), yesNo(!hides && relief == 0.0), object.number);
        return done;
    }

    UT_Result<void> raise(MO_Module& node, const std::map<int, ObjectSettings>& said)
    {
        std::vector<NormalMapObject> rows = NormalMapNode(node).objects();
        for (const auto& [number, settings] : said)
            if (settings.bevel || settings.elevation || settings.smoothness)
                raise(rows, number, settings);
        AT_Attr* const table = node.findAttr(NormalMapNode::objectTableKey());
        return table ? add(*table, objectTableText(rows)) : UT_Result<void>();
    }

    std::vector<int> execute(CO_CommandStack& stack)
    {
        for (MO_EditCommand& command : _commands)
            stack.execute(std::move(command));
        return {_changed.begin(), _changed.end()};
    }

private:
    static QString yesNo(bool value) { return value ? QStringLiteral("yes") : QStringLiteral("no"); }

    void raise(std::vector<NormalMapObject>& rows, int number, const ObjectSettings& said)
    {
        const NormalMapObject* const known = findRow(rows, number);
        const NormalMapObject before = known ? *known : NormalMapObject{.number = number};
        NormalMapObject row = before;
        row.bevel = said.bevel.value_or(row.bevel);
        row.elevation = said.elevation.value_or(row.elevation);
        row.smoothness = said.smoothness.value_or(row.smoothness);
        putRow(rows, row);
        if (row != before)
            _changed.insert(row.number);
    }

    UT_Result<void> set(AT_Attr& attr, const QString& word, int number)
    {
        const std::size_t before = _commands.size();
        UT_Result<void> done = add(attr, word);
        if (_commands.size() > before)
            _changed.insert(number);
        return done;
    }

    UT_Result<void> add(AT_Attr& attr, const QString& word)
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
    std::set<int> _changed;
};

} // namespace

UT_Result<std::vector<int>> setObjectsInScene(MO_Scene& scene, CO_CommandStack& stack, const ObjectWishes& wishes)
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
    return changes.execute(stack);
}
