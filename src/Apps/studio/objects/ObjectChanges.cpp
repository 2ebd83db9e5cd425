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

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

namespace {

// The node treats an object of elevation 0 as empty.
constexpr double kLeastElevation = 1e-4;
constexpr double kMostTilt = 90.0;

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

const SceneObject* currentOf(const std::vector<SceneObject>& objects)
{
    const auto found =
        std::find_if(objects.rbegin(), objects.rend(), [](const SceneObject& one) { return !one.isCutOut(); });
    return found == objects.rend() ? nullptr : &*found;
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

QString ObjectTexts::name(ObjectValue value)
{
    switch (value) {
    case ObjectValue::BEVEL:
        return tr("Bevel");
    case ObjectValue::ELEVATION:
        return tr("Elevation");
    case ObjectValue::SMOOTHNESS:
        break;
    }
    return tr("Smoothness");
}

QString ObjectTexts::explanation(ObjectValue value)
{
    switch (value) {
    case ObjectValue::BEVEL:
        return tr("How far the rounding reaches in from the outline; the picture is 720 units wide");
    case ObjectValue::ELEVATION:
        return tr("How high the object rises; 1 is 37.5 units of a picture 720 wide, negative values sink in");
    case ObjectValue::SMOOTHNESS:
        break;
    }
    return tr("How round the profile is: 1 follows the bevel, more is fuller, less is more pointed");
}

QString ObjectTexts::tiltName()
{
    return tr("Tilt");
}

QString ObjectTexts::tilt(const ObjectTilt& tilt)
{
    return tr("%1, %2", "a tilt to the right and upwards, in degrees").arg(number(tilt.x), number(tilt.y));
}

QString ObjectTexts::number(double value)
{
    return QLocale().toString(std::round(value * 1e4) / 1e4, 'g', 6);
}

QString ObjectTexts::subject(const std::vector<SceneObject>& objects)
{
    return objects.size() == 1 ? objects.front().name : tr("%n objects", nullptr, static_cast<int>(objects.size()));
}

QString ObjectTexts::ofObjects(const QString& what, const std::vector<SceneObject>& objects)
{
    return tr("%1 of %2", "Bevel of Head").arg(what, subject(objects));
}

QString ObjectTexts::valueOf(ObjectValue value, const std::vector<SceneObject>& objects)
{
    return ofObjects(name(value), objects);
}

double valueOf(const NormalMapObject& values, ObjectValue value)
{
    switch (value) {
    case ObjectValue::BEVEL:
        return values.bevel;
    case ObjectValue::ELEVATION:
        return values.elevation;
    case ObjectValue::SMOOTHNESS:
        break;
    }
    return values.smoothness;
}

void setValue(NormalMapObject& values, ObjectValue value, double number)
{
    switch (value) {
    case ObjectValue::BEVEL:
        values.bevel = std::max(0.0, number);
        break;
    case ObjectValue::ELEVATION:
        values.elevation = std::abs(number) < kLeastElevation ? kLeastElevation : number;
        break;
    case ObjectValue::SMOOTHNESS:
        values.smoothness = std::max(0.0, number);
        break;
    }
}

MO_EditCommand changeValueCmd(const std::vector<SceneObject>& objects, ObjectValue value,
                              const std::function<double(const SceneObject&)>& change)
{
    const auto changed = [&](const SceneObject& object) {
        NormalMapObject values = object.values;
        setValue(values, value, change(object));
        return values;
    };
    const SceneObject* const current = currentOf(objects);
    if (!current)
        return nullptr;
    return named(tablesCmd(objects, changed),
                 {ObjectTexts::valueOf(value, objects), ObjectTexts::number(valueOf(current->values, value)),
                  ObjectTexts::number(valueOf(changed(*current), value))});
}

MO_EditCommand giveValuesCmd(const std::vector<SceneObject>& objects, const QString& name, const Change& values)
{
    return named(tablesCmd(objects, values), {name.arg(ObjectTexts::subject(objects)), {}, {}});
}

MO_EditCommand tiltCmd(const std::vector<SceneObject>& objects, double frame,
                       const std::function<ObjectTilt(const SceneObject&)>& change)
{
    const SceneObject* const current = currentOf(objects);
    if (!current)
        return nullptr;
    const auto changed = [&](const SceneObject& object) {
        const ObjectTilt tilt = change(object);
        return ObjectTilt{std::clamp(tilt.x, -kMostTilt, kMostTilt), std::clamp(tilt.y, -kMostTilt, kMostTilt)};
    };
    std::vector<MO_NumberChange> numbers;
    for (const SceneObject& object : objects) {
        if (object.isCutOut())
            continue;
        const ObjectTilt tilt = changed(object);
        for (const ObjectDefinition* const definition : object.definitions) {
            numbers.push_back({definition->tiltX(), tilt.x});
            numbers.push_back({definition->tiltY(), tilt.y});
        }
    }
    const QString what = ObjectTexts::ofObjects(ObjectTexts::tiltName(), objects);
    return MO_namedCmd(MO_numbersCmd(what, frame, numbers),
                       {what, ObjectTexts::tilt(current->tilt), ObjectTexts::tilt(changed(*current))});
}

MO_EditCommand carveCmd(const std::vector<SceneObject>& objects, bool carve)
{
    return giveValuesCmd(objects, carve ? ObjectTexts::tr("Carve %1") : ObjectTexts::tr("Raise %1"),
                         [carve](const SceneObject& object) {
                             NormalMapObject values = object.values;
                             values.elevation = carve ? -std::abs(values.elevation) : std::abs(values.elevation);
                             return values;
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
