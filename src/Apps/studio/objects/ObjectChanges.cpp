// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Changes values in the tables of the nodes, with one command for each node, and numbers and switches in the
// definitions.
#include "studio/objects/ObjectChanges.h"

#include "QuarvelCommand/CO_OrCommand.h"
#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "QuarvelSceneCore/editing/MO_AttrCommands.h"
#include "QuarvelSceneCore/editing/MO_NamedChange.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <set>

namespace {

using Change = std::function<NormalMapObject(const SceneObject&)>;

MO_EditCommand named(std::unique_ptr<CO_OrCommand> changes, const MO_ChangeWords& words)
{
    return changes->isEmpty() ? nullptr : MO_namedCmd(std::move(changes), words);
}

// Changes the objects' values in the tables; cut-outs have no values.
std::unique_ptr<CO_OrCommand> tablesCmd(const std::vector<SceneObject>& objects, const Change& change)
{
    std::map<MO_Module*, std::map<int, NormalMapObject>> tables;
    std::vector<MO_Module*> nodes;
    for (const SceneObject& object : objects) {
        if (object.isCutOut())
            continue;
        auto [table, isNew] = tables.try_emplace(object.node);
        if (isNew) {
            nodes.push_back(object.node);
            for (const NormalMapObject& row : NormalMapNode(*object.node).objects())
                table->second[row.number] = row;
        }
        NormalMapObject values = change(object);
        values.number = object.number();
        // An object without a row has the values of a new one.
        if (values != object.values || table->second.contains(values.number))
            table->second[values.number] = values;
    }
    auto all = std::make_unique<CO_OrCommand>();
    for (MO_Module* const node : nodes) {
        std::vector<NormalMapObject> rows;
        for (const auto& [number, row] : tables[node])
            rows.push_back(row);
        all->append(NormalMapNode(*node).objectsCmd(rows));
    }
    return all;
}

// An object's row in the table with one other value.
NormalMapObject rowWith(const SceneObject& object, ObjectValue value,
                        const std::function<double(const SceneObject&)>& change)
{
    NormalMapObject row = object.values;
    (value == ObjectValue::BEVEL       ? row.bevel
     : value == ObjectValue::ELEVATION ? row.elevation
                                       : row.smoothness) = change(object);
    return row;
}

// The row with the values that are set.
NormalMapObject rowWith(const SceneObject& object, const ObjectSettings& settings)
{
    NormalMapObject row = object.values;
    row.bevel = settings.bevel.value_or(row.bevel);
    row.elevation = settings.elevation.value_or(row.elevation);
    row.smoothness = settings.smoothness.value_or(row.smoothness);
    return row;
}

AT_AnimatableAttr* numberOf(const ObjectDefinition& definition, ObjectValue value)
{
    switch (value) {
    case ObjectValue::RIM:
        return definition.rimBevel();
    case ObjectValue::TILT_RIGHT:
        return definition.tiltX();
    default:
        return definition.tiltY();
    }
}

// The numbers of the objects' definitions; cut-outs have no values.
std::vector<MO_NumberChange> numbersOf(const std::vector<SceneObject>& objects, ObjectValue value,
                                       const std::function<double(const SceneObject&)>& change)
{
    std::vector<MO_NumberChange> numbers;
    for (const SceneObject& object : objects)
        if (!object.isCutOut())
            for (const ObjectDefinition* const definition : object.definitions)
                numbers.push_back({numberOf(*definition, value), change(object)});
    return numbers;
}

// Only the numbers that are different, because an animated one would get a key even for the value that it has.
std::vector<MO_NumberChange> numbersThatChange(const std::vector<SceneObject>& objects, double frame,
                                               const std::function<ObjectSettings(const SceneObject&)>& values)
{
    std::vector<MO_NumberChange> numbers;
    const auto add = [&](AT_DoubleAttr* number, double value) {
        if (number->value(frame) != value)
            numbers.push_back({number, value});
    };
    for (const SceneObject& object : objects) {
        const ObjectSettings given = object.isCutOut() ? ObjectSettings() : values(object);
        for (const ObjectDefinition* const definition : object.definitions) {
            if (given.tilt) {
                add(definition->tiltX(), given.tilt->x);
                add(definition->tiltY(), given.tilt->y);
            }
            if (given.rim) {
                add(definition->rimBevel(), given.rim->bevel);
                add(definition->rimHeight(), given.rim->height);
            }
        }
    }
    return numbers;
}

bool contains(const std::vector<SceneObject>& objects, const SceneObject& object)
{
    return std::ranges::any_of(objects, [&](const SceneObject& one) { return isSame(one, object); });
}

void appendHiding(CO_OrCommand& command, const SceneObject& object, bool hidden)
{
    for (ObjectDefinition* const definition : object.definitions)
        command.append(definition->objectEnabled()->setValueCmd(0.0, !hidden));
}

// Gives out unused numbers: first those that have a row in the table but no object, in ascending order, then numbers
// after the highest one.
class FreeNumbers
{
public:
    FreeNumbers(MO_Module& node, const std::vector<SceneObject>& all)
    {
        for (const NormalMapObject& row : NormalMapNode(node).objects())
            _known.insert(row.number);
        int highest = _known.empty() ? 0 : *_known.rbegin();
        for (const SceneObject& object : all)
            if (object.node == &node) {
                _known.erase(object.number());
                highest = std::max(highest, object.number());
            }
        _next = highest + 1;
    }

    int take()
    {
        if (_known.empty())
            return _next++;
        return _known.extract(_known.begin()).value();
    }

private:
    std::set<int> _known;
    int _next = 1;
};

} // namespace

MO_EditCommand changeValueCmd(const std::vector<SceneObject>& objects, ObjectValue value, double frame,
                              const std::function<double(const SceneObject&)>& change)
{
    const SceneObject* const current = currentOf(objects);
    if (!current)
        return nullptr;
    const auto changed = [&](const SceneObject& object) { return clampedTo(value, change(object)); };
    const QString what = ObjectTexts::valueOf(value, objects);
    const MO_ChangeWords words{what, ObjectTexts::number(valueOf(*current, value)),
                               ObjectTexts::number(changed(*current))};
    if (isInTable(value))
        return named(tablesCmd(objects, [&](const SceneObject& object) { return rowWith(object, value, changed); }),
                     words);
    return MO_namedCmd(MO_numbersCmd(what, frame, numbersOf(objects, value, changed)), words);
}

MO_EditCommand giveValuesCmd(const std::vector<SceneObject>& objects, double frame, const QString& name,
                             const std::function<ObjectSettings(const SceneObject&)>& values)
{
    const auto given = [&](const SceneObject& object) { return clamped(values(object)); };
    auto changes = tablesCmd(objects, [&](const SceneObject& object) { return rowWith(object, given(object)); });
    const QString words = name.arg(ObjectTexts::subject(objects));
    changes->append(MO_numbersCmd(words, frame, numbersThatChange(objects, frame, given)));
    return named(std::move(changes), {words, {}, {}});
}

MO_EditCommand tiltCmd(const std::vector<SceneObject>& objects, double frame,
                       const std::function<ObjectTilt(const SceneObject&)>& change)
{
    const SceneObject* const current = currentOf(objects);
    if (!current)
        return nullptr;
    const auto changed = [&](const SceneObject& object) {
        ObjectSettings settings;
        settings.tilt = change(object);
        return *clamped(settings).tilt;
    };
    std::vector<MO_NumberChange> numbers =
        numbersOf(objects, ObjectValue::TILT_RIGHT, [&](const SceneObject& object) { return changed(object).x; });
    std::ranges::copy(
        numbersOf(objects, ObjectValue::TILT_UP, [&](const SceneObject& object) { return changed(object).y; }),
        std::back_inserter(numbers));
    const QString what = ObjectTexts::ofObjects(ObjectTexts::tiltName(), objects);
    return MO_namedCmd(MO_numbersCmd(what, frame, numbers),
                       {what, ObjectTexts::tilt(current->tilt), ObjectTexts::tilt(changed(*current))});
}

MO_EditCommand carveCmd(const std::vector<SceneObject>& objects, double frame, bool carve)
{
    return giveValuesCmd(objects, frame, carve ? ObjectTexts::tr("Carve %1") : ObjectTexts::tr("Raise %1"),
                         [carve](const SceneObject& object) {
                             const double rise = std::abs(object.values.elevation);
                             ObjectSettings settings;
                             settings.elevation = carve ? -rise : rise;
                             return settings;
                         });
}

MO_EditCommand cutOutCmd(const std::vector<SceneObject>& objects, const std::vector<SceneObject>& all, bool cutOut,
                         double frame)
{
    auto changes = std::make_unique<CO_OrCommand>();
    std::map<MO_Module*, FreeNumbers> free;
    for (const SceneObject& object : objects) {
        if (object.isCutOut() == cutOut)
            continue;
        const int number = cutOut ? 0 : free.try_emplace(object.node, *object.node, all).first->second.take();
        for (ObjectDefinition* const definition : object.definitions)
            changes->append(definition->objectNumber()->setValueCmd(frame, number));
    }
    const QString name = cutOut ? ObjectTexts::tr("Cut out %1") : ObjectTexts::tr("Make %1 an object");
    return named(std::move(changes), {name.arg(ObjectTexts::subject(objects)), {}, {}});
}

MO_EditCommand joinCmd(const std::vector<SceneObject>& objects, double frame)
{
    const SceneObject* const current = currentOf(objects);
    if (!current)
        return nullptr;
    std::vector<SceneObject> joined;
    for (const SceneObject& object : objects)
        if (object.node == current->node && !object.isCutOut())
            joined.push_back(object);
    if (joined.size() < 2)
        return nullptr;
    ObjectSettings facing;
    facing.tilt = current->tilt;
    facing.rim = current->rim;
    const QString name = ObjectTexts::tr("Join %1").arg(ObjectTexts::subject(joined));
    auto changes = std::make_unique<CO_OrCommand>();
    for (const SceneObject& object : joined)
        if (object.number() != current->number())
            for (ObjectDefinition* const definition : object.definitions)
                changes->append(definition->objectNumber()->setValueCmd(frame, current->number()));
    changes->append(
        MO_numbersCmd(name, frame, numbersThatChange(joined, frame, [&](const SceneObject&) { return facing; })));
    return named(std::move(changes), {name, {}, {}});
}

MO_EditCommand separateCmd(const std::vector<SceneObject>& objects, const std::vector<SceneObject>& all, double frame)
{
    auto changes = std::make_unique<CO_OrCommand>();
    std::map<MO_Module*, FreeNumbers> free;
    std::vector<SceneObject> separated; // with the values of new rows
    std::vector<SceneObject> parts;
    for (const SceneObject& object : objects) {
        if (object.isCutOut() || object.definitions.size() < 2)
            continue;
        separated.push_back(object);
        for (std::size_t i = 1; i < object.definitions.size(); ++i) {
            SceneObject part = object;
            part.values = {.number = free.try_emplace(object.node, *object.node, all).first->second.take()};
            changes->append(object.definitions[i]->objectNumber()->setValueCmd(frame, part.number()));
            parts.push_back(part);
        }
    }
    changes->append(tablesCmd(parts, [&](const SceneObject& part) {
        return std::ranges::find_if(separated, [&](const SceneObject& one) { return isSame(one, part); })->values;
    }));
    return named(std::move(changes), {ObjectTexts::tr("Separate %1").arg(ObjectTexts::subject(separated)), {}, {}});
}

MO_EditCommand hideCmd(const std::vector<SceneObject>& objects, bool hidden)
{
    auto changes = std::make_unique<CO_OrCommand>();
    for (const SceneObject& object : objects)
        appendHiding(*changes, object, hidden);
    const QString name = hidden ? ObjectTexts::tr("Hide %1") : ObjectTexts::tr("Show %1");
    return named(std::move(changes), {name.arg(ObjectTexts::subject(objects)), {}, {}});
}

MO_EditCommand soloCmd(const std::vector<SceneObject>& objects, const std::vector<SceneObject>& all, bool solo)
{
    auto changes = std::make_unique<CO_OrCommand>();
    for (const SceneObject& object : all) {
        const bool concerned =
            std::ranges::any_of(objects, [&](const SceneObject& one) { return one.node == object.node; });
        if (concerned)
            appendHiding(*changes, object, solo && !contains(objects, object));
    }
    if (!solo)
        return named(std::move(changes), {ObjectTexts::tr("Show all objects"), {}, {}});
    return named(std::move(changes), {ObjectTexts::tr("Show %1 alone").arg(ObjectTexts::subject(objects)), {}, {}});
}

bool areSolo(const std::vector<SceneObject>& objects, const std::vector<SceneObject>& all)
{
    bool others = false;
    for (const SceneObject& object : all) {
        const bool concerned =
            std::ranges::any_of(objects, [&](const SceneObject& one) { return one.node == object.node; });
        if (!concerned)
            continue;
        const bool isOne = contains(objects, object);
        if (object.isHidden == isOne)
            return false;
        others = others || !isOne;
    }
    return others;
}
