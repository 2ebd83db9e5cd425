// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// An input of a node shows the object of the definition that jobs/shown/VisibleDrawing.h finds.
#include "studio/objects/SceneObjects.h"

#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/graph/MO_Port.h"
#include "jobs/drawing/ChosenForm.h"
#include "jobs/drawing/DrawingScene.h"
#include "jobs/shown/VisibleDrawing.h"

#include <algorithm>
#include <map>
#include <set>

namespace {

const QString kSuffix = definitionName({});

struct Source
{
    ObjectDefinition* definition = nullptr;
    MO_ElementModule* element = nullptr;
};

// The definition and the elements upstream of an input, those of the first inputs first. Without an element yet, the
// definition alone.
std::vector<Source> sourcesOf(const MO_Port& input)
{
    ObjectDefinition* const definition = objectDefinitionBehind(input);
    if (!definition)
        return {};
    std::vector<Source> sources;
    std::set<const MO_Module*> met;
    std::vector<const MO_Port*> open{&input};
    while (!open.empty()) {
        const MO_Port* const source = open.back()->realSrcPort();
        open.pop_back();
        if (!source || !source->module())
            continue;
        MO_Module& module = *source->module();
        if (NormalMapNode::is(module) || !met.insert(&module).second)
            continue;
        if (auto* const element = dynamic_cast<MO_ElementModule*>(&module))
            sources.push_back({definition, element});
        for (unsigned i = module.nInPorts(); i-- > 0;)
            open.push_back(module.inPort(i));
    }
    if (sources.empty())
        sources.push_back({definition, nullptr});
    return sources;
}

template<typename Item>
void addOnce(std::vector<Item>& items, const Item& item)
{
    if (std::ranges::find(items, item) == items.end())
        items.push_back(item);
}

QString nameOf(const ObjectDefinition& definition)
{
    const QString& name = definition.instanceName();
    return name.endsWith(kSuffix) && name.size() > kSuffix.size() ? name.chopped(kSuffix.size()) : name;
}

NormalMapObject valuesOf(const std::vector<NormalMapObject>& table, int number)
{
    const NormalMapObject* const row = findRow(table, number);
    return row ? *row : NormalMapObject{.number = number};
}

void addObjects(MO_Module& node, double frame, std::vector<SceneObject>& all)
{
    const std::vector<NormalMapObject> table = NormalMapNode(node).objects();
    std::vector<SceneObject> found;
    std::map<int, std::size_t> byNumber;
    std::map<const ObjectDefinition*, std::size_t> byDefinition;
    for (unsigned port = 0; port < node.nInPorts(); ++port)
        for (const Source& source : sourcesOf(*node.inPort(port))) {
            ObjectDefinition& definition = *source.definition;
            const int number = definition.objectId(frame);
            if (number < 0)
                continue;
            const auto known = byDefinition.find(&definition);
            const auto numbered = number > 0 ? byNumber.find(number) : byNumber.end();
            std::size_t index = found.size();
            if (known != byDefinition.end())
                index = known->second;
            else if (numbered != byNumber.end())
                index = numbered->second;
            else
                found.push_back({.node = &node,
                                 .name = nameOf(definition),
                                 .definitions = {},
                                 .elements = {},
                                 .ports = {},
                                 .values = valuesOf(table, number),
                                 .tilt = {definition.tiltX()->value(frame), definition.tiltY()->value(frame)},
                                 .rim = {definition.rimBevel()->value(frame), definition.rimHeight()->value(frame)},
                                 .isHidden = true});
            byDefinition.emplace(&definition, index);
            byNumber.emplace(number, index);
            SceneObject& object = found[index];
            addOnce(object.definitions, &definition);
            addOnce(object.ports, static_cast<int>(port));
            if (source.element)
                addOnce(object.elements, source.element);
            object.isHidden = object.isHidden && !definition.objectEnabled()->value(frame);
        }
    all.insert(all.end(), found.rbegin(), found.rend());
}

bool holds(const std::vector<ObjectDefinition*>& definitions, const QList<MO_Module*>& selection)
{
    return std::ranges::any_of(definitions, [&](ObjectDefinition* one) { return selection.contains(one); });
}

} // namespace

QList<MO_Module*> SceneObject::modules() const
{
    QList<MO_Module*> modules(elements.begin(), elements.end());
    for (ObjectDefinition* const definition : definitions)
        modules << definition;
    return modules;
}

std::vector<SceneObject> objectsOf(const MO_Scene& scene, double frame)
{
    std::vector<SceneObject> objects;
    scene.root().forEachModule([&](MO_Module& module) {
        if (NormalMapNode::is(module))
            addObjects(module, frame, objects);
    });
    return objects;
}

std::vector<SceneObject> selectedOf(const std::vector<SceneObject>& objects, const QList<MO_Module*>& selection)
{
    const auto isDefinedInSelection = [&](MO_ElementModule* element) {
        return std::ranges::any_of(objects, [&](const SceneObject& object) {
            return std::ranges::find(object.elements, element) != object.elements.end() &&
                   holds(object.definitions, selection);
        });
    };
    std::vector<std::pair<qsizetype, const SceneObject*>> selected;
    for (const SceneObject& object : objects) {
        qsizetype last = -1;
        for (ObjectDefinition* const definition : object.definitions)
            last = std::max(last, selection.indexOf(definition));
        if (last < 0)
            for (MO_ElementModule* const element : object.elements)
                if (!isDefinedInSelection(element))
                    last = std::max(last, selection.indexOf(element));
        if (last >= 0)
            selected.emplace_back(last, &object);
    }
    std::ranges::stable_sort(selected, {}, &std::pair<qsizetype, const SceneObject*>::first);
    std::vector<SceneObject> result;
    result.reserve(selected.size());
    for (const auto& [place, object] : selected)
        result.push_back(*object);
    return result;
}

QList<MO_Module*> modulesOf(const std::vector<SceneObject>& objects)
{
    QList<MO_Module*> modules;
    for (const SceneObject& object : objects)
        for (MO_Module* const module : object.modules()) {
            // A module that objects share is placed with the last of them, so that the current object's modules come
            // last.
            modules.removeOne(module);
            modules << module;
        }
    return modules;
}

SceneObject asChosen(const SceneObject& object)
{
    ObjectSettings form;
    for (const ObjectDefinition* const definition : object.definitions)
        if (const auto chosen = chosenFormOf(definition->chosenForm())) {
            form = *chosen;
            break;
        }
    const NormalMapObject fresh;
    SceneObject chosen = object;
    chosen.values.bevel = form.bevel.value_or(fresh.bevel);
    chosen.values.elevation = form.elevation.value_or(fresh.elevation);
    chosen.values.smoothness = form.smoothness.value_or(fresh.smoothness);
    chosen.tilt = form.tilt.value_or(ObjectTilt());
    chosen.rim = form.rim.value_or(ObjectRim{0.0, ObjectDefinition::kRimHeight});
    return chosen;
}

const SceneObject* currentOf(const std::vector<SceneObject>& objects)
{
    const auto found =
        std::find_if(objects.rbegin(), objects.rend(), [](const SceneObject& one) { return !one.isCutOut(); });
    return found == objects.rend() ? nullptr : &*found;
}

bool isSame(const SceneObject& one, const SceneObject& other)
{
    return one.node == other.node && std::ranges::any_of(one.definitions, [&](ObjectDefinition* definition) {
               return std::ranges::find(other.definitions, definition) != other.definitions.end();
           });
}
