// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// First finds all steps; each then looks at the scene as the steps before have left it.
#include "jobs/import/UpdateDrawings.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "QuarvelSceneCore/attributes/AT_Curve.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "QuarvelSceneCore/editing/MO_AttrCommands.h"
#include "QuarvelSceneCore/editing/MO_DrawingCommands.h"
#include "QuarvelSceneCore/editing/MO_ModuleCommands.h"
#include "QuarvelSceneCore/editing/MO_PaletteCommands.h"
#include "QuarvelSceneCore/editing/MO_SceneCommands.h"
#include "QuarvelSceneCore/graph/MO_Port.h"
#include "QuarvelSceneCore/graph/MO_SceneCopy.h"
#include "QuarvelSceneCore/kinds/MO_CompositeModule.h"
#include "jobs/drawing/DrawingScene.h"
#include "jobs/import/LayerInputs.h"
#include "jobs/import/LayerMatch.h"
#include "jobs/import/SceneElements.h"
#include "jobs/import/StepsCommand.h"
#include "jobs/import/UpdateColours.h"
#include "jobs/shown/DrawingExtent.h"
#include "jobs/shown/NormalMapNode.h"

#include <QRegularExpression>

#include <algorithm>
#include <iterator>

namespace {

using Drawings = std::map<QString, UT_SharedPtr<CELVEC_Kvd>>;
using PalettePtr = CM_SharedPtr<CM_Palette>;
template<typename Module>
Module* firstOf(const MO_Scene& scene, const std::function<bool(Module&)>& isWanted)
{
    Module* found = nullptr;
    scene.root().forEachModule([&](MO_Module& module) {
        auto* const one = dynamic_cast<Module*>(&module);
        if (!found && one && isWanted(*one))
            found = one;
    });
    return found;
}

bool haveSameNames(const Drawings& one, const Drawings& other)
{
    return std::ranges::equal(one, other, {}, &Drawings::value_type::first, &Drawings::value_type::first);
}

// The drawings that change, with the new ones.
Drawings changedDrawings(const Drawings& before, const Drawings& fresh)
{
    Drawings changed;
    for (const auto& [name, drawing] : fresh) {
        const auto known = before.find(name);
        if (known == before.end() || !haveSameShapes(*known->second, *drawing))
            changed.emplace(name, drawing);
    }
    return changed;
}

bool isEmpty(const CELVEC_Kvd& drawing)
{
    return std::ranges::all_of(kGR_allArts, [&](GR_Art art) { return drawing.shapes(art).empty(); });
}

// Only copies of groups can fail.
std::unique_ptr<MO_Module> copyOf(const MO_Module& module)
{
    return std::move(*MO_copyModule(module));
}

ObjectDefinition* definitionFedBy(const MO_ElementModule& element)
{
    if (element.nOutPorts() == 0)
        return nullptr;
    for (const MO_Port* const sink : element.outPort(0)->sinks())
        if (auto* const definition = dynamic_cast<ObjectDefinition*>(sink->module()))
            return definition;
    return nullptr;
}

// Whether an import gave this name to an element of the layer: a name that is taken gets a number.
bool isNamedAfter(const QString& name, const QString& layer)
{
    static const QRegularExpression number(QStringLiteral("^(_[0-9]+)?$"));
    return !layer.isEmpty() && name.startsWith(layer) && number.match(name.mid(layer.size())).hasMatch();
}

// Finds everything that an update has to do.
class Update
{
public:
    Update(MO_Scene& scene, const std::vector<MO_ElementModule*>& elements, const MO_Scene& fresh)
        : _scene(scene), _elements(elements), _fresh(fresh)
    {
        for (const MO_ElementModule* const element : allElements(fresh))
            _layers.push_back(element);
        _match = matchLayers(elements, _layers);
        _node = nodeOf();
        _composite = compositeOf();
    }

    DrawingUpdate make(const QString& name)
    {
        DrawingUpdate update;
        unifyPalettes();
        const bool ownFrame = !_elements.empty() && _elements.size() == allElements(_scene).size();
        if (ownFrame)
            fitFrame();
        std::vector<bool> met(_elements.size(), false);
        for (std::size_t i = 0; i < _layers.size(); ++i) {
            if (_match[i] < 0) {
                update.added << _layers[i]->origin().layer;
                addLayer(i, ownFrame);
                continue;
            }
            met[static_cast<std::size_t>(_match[i])] = true;
            renew(*_elements[static_cast<std::size_t>(_match[i])], *_layers[i], ownFrame);
        }
        for (std::size_t i = 0; i < _elements.size(); ++i) {
            if (met[i])
                continue;
            if (const MO_ElementModule* const layer = layerOfCopy(*_elements[i]))
                renew(*_elements[i], *layer, ownFrame);
            else if (empty(*_elements[i]))
                update.vanished << _elements[i]->instanceName();
        }
        rename();
        wire();
        if (_node && !_newColours.empty())
            _steps.push_back(listColours(*_node, _newColours, _fresh));
        if (_fresh.lastFrame() > _scene.lastFrame())
            _steps.emplace_back([&scene = _scene, last = _fresh.lastFrame()] {
                return MO_frameRangeCmd(scene, scene.firstFrame(), last);
            });
        if (!_steps.empty())
            _steps.push_back(dropColours(_scene, coloursPaintedBy(_elements)));
        if (!_steps.empty())
            update.command = std::make_unique<StepsCommand>(name, std::move(_steps));
        return update;
    }

private:
    // An element may have been duplicated: the layer that was found for one of its layer holds for all of them.
    const MO_ElementModule* layerOfCopy(const MO_ElementModule& element) const
    {
        for (std::size_t i = 0; i < _layers.size(); ++i)
            if (_match[i] >= 0 && _elements[static_cast<std::size_t>(_match[i])]->origin() == element.origin())
                return _layers[i];
        return nullptr;
    }

    MO_Module* nodeOf() const
    {
        const auto shows = [&](const MO_Module& module) {
            for (unsigned i = 0; i < module.nInPorts(); ++i)
                for (const MO_ElementModule* const element : elementsBehind(*module.inPort(i)))
                    if (std::ranges::find(_elements, element) != _elements.end())
                        return true;
            return false;
        };
        auto* const own =
            firstOf<MO_Module>(_scene, [&](MO_Module& module) { return NormalMapNode::is(module) && shows(module); });
        return own ? own : firstOf<MO_Module>(_scene, [](MO_Module& module) { return NormalMapNode::is(module); });
    }

    // What shows the drawings as they are: a composite of elements alone.
    MO_CompositeModule* compositeOf() const
    {
        return firstOf<MO_CompositeModule>(_scene, [](MO_CompositeModule& composite) {
            bool any = false;
            for (unsigned i = 0; i < composite.nInPorts(); ++i) {
                const MO_Port* const source = composite.inPort(i)->srcPort();
                if (source && !dynamic_cast<MO_ElementModule*>(source->module()))
                    return false;
                any = any || source;
            }
            return any;
        });
    }

    // New colours join the palette that the drawings have, where colours may have been changed by hand.
    void unifyPalettes()
    {
        if (_fresh.palettes().empty())
            return;
        const PalettePtr fresh = _fresh.palettes().front();
        PalettePtr known;
        for (const MO_ElementModule* const element : _elements)
            if (!known && !element->drawings().empty())
                known = element->drawings().begin()->second->palette();
        for (const PalettePtr& palette : _scene.palettes())
            if (!known && palette->GetId() == fresh->GetId())
                known = palette;
        if (!known) {
            _palette = fresh;
            for (const auto& color : fresh->colors())
                _newColours.insert(color->GetColorId());
            _steps.emplace_back([&scene = _scene, fresh] { return MO_addPaletteCmd(scene, fresh); });
            return;
        }
        auto joined = UT_makeShared<CM_Palette>(known->GetName(), known->GetId());
        for (const auto& color : known->colors())
            joined->addColor(color);
        for (const auto& color : fresh->colors())
            if (joined->addColor(color))
                _newColours.insert(color->GetColorId());
        _palette = _newColours.empty() ? known : joined;
        if (!_newColours.empty())
            _steps.emplace_back(
                [&scene = _scene, known, joined] { return MO_replacePaletteCmd(scene, known, joined); });
    }

    // Where all drawings of the scene are read again, the frame is that of the drawing as it is now.
    void fitFrame()
    {
        if (_scene.frameHeight() != _fresh.frameHeight())
            _steps.emplace_back(
                [&scene = _scene, height = _fresh.frameHeight()] { return MO_frameHeightCmd(scene, height); });
    }

    void renew(MO_ElementModule& element, const MO_ElementModule& layer, bool ownFrame)
    {
        const Drawings changed = changedDrawings(element.drawings(), layer.drawings());
        const bool sameNames = haveSameNames(element.drawings(), layer.drawings());
        if (!changed.empty() || !sameNames)
            _steps.emplace_back([&element, changed, names = layer.drawings(), palette = _palette] {
                Drawings wanted;
                for (const auto& [name, drawing] : names) {
                    const auto found = changed.find(name);
                    wanted[name] =
                        found == changed.end() ? element.drawings().at(name) : found->second->withPalette(palette);
                }
                return MO_drawingsCmd(element, wanted);
            });
        if (!sameNames)
            _steps.emplace_back([&element, sheet = layer.drawingAttr()->exposures()] {
                return MO_exposuresCmd(*element.drawingAttr(), sheet);
            });
        if (element.origin() != layer.origin())
            followName(element, layer);
        if (element.origin() != layer.origin())
            _steps.emplace_back([&element, origin = layer.origin()] { return MO_originCmd(element, origin); });
        if (ownFrame && placingOf(element) == usualPlacing(_elements) && placingOf(element) != placingOf(layer))
            place(element, placingOf(layer));
    }

    // A name that people gave stays.
    void followName(MO_ElementModule& element, const MO_ElementModule& layer)
    {
        const QString name = element.instanceName();
        if (element.origin().layer == layer.origin().layer || !isNamedAfter(name, element.origin().layer))
            return;
        _names.emplace_back(&element, layer.instanceName());
        ObjectDefinition* const definition = definitionFedBy(element);
        const ObjectDefinition* const fresh = definitionFedBy(layer);
        if (definition && fresh && definition->instanceName() == definitionName(name))
            _names.emplace_back(definition, fresh->instanceName());
    }

    // Layers may have exchanged their names, and new ones may have names of others: all names are free before the first
    // is given, and given before anything is added.
    void rename()
    {
        std::vector<StepsCommand::Step> steps;
        for (const auto& [module, name] : _names)
            steps.emplace_back([module = module] { return MO_renameCmd(*module, QStringLiteral("*")); });
        for (const auto& [module, name] : _names)
            steps.emplace_back([module = module, name = name] { return MO_renameCmd(*module, name); });
        _steps.insert(_steps.begin(), std::make_move_iterator(steps.begin()), std::make_move_iterator(steps.end()));
    }

    void place(MO_ElementModule& element, const ElementPlacing& placing)
    {
        for (std::size_t i = 0; i < placing.size(); ++i)
            if (AT_DoubleAttr* const attr = placingAttrs(element)[i]; attr->curve().isEmpty())
                _steps.emplace_back([attr, value = placing[i]] { return MO_constantCmd(*attr, value); });
    }

    // @return whether it was not empty before
    bool empty(MO_ElementModule& element)
    {
        const bool isAlready =
            std::ranges::all_of(element.drawings(), [](const auto& entry) { return isEmpty(*entry.second); });
        if (isAlready)
            return false;
        _steps.emplace_back([&element] {
            Drawings wanted;
            for (const auto& [name, drawing] : element.drawings())
                wanted[name] = UT_makeShared<CELVEC_Kvd>(drawing->palette());
            return MO_drawingsCmd(element, wanted);
        });
        return true;
    }

    // The placing of a new element: as that of the others of the same drawing, or within the scene's frame.
    ElementPlacing placingFor(const MO_ElementModule& layer, bool ownFrame) const
    {
        ElementPlacing placing = placingOf(layer);
        if (ownFrame)
            return placing;
        if (!_elements.empty())
            return usualPlacing(_elements);
        const double fit = std::min(1.0, _scene.frameHeight() / _fresh.frameHeight());
        for (double& value : placing)
            value *= fit;
        return placing;
    }

    int nextNumber() const
    {
        int highest = 0;
        _scene.root().forEachModule([&](MO_Module& module) {
            if (const auto* const definition = dynamic_cast<ObjectDefinition*>(&module))
                highest = std::max(highest, definition->objectNumber()->localValue());
        });
        return highest + 1 + static_cast<int>(_added.size());
    }

    void addLayer(std::size_t index, bool ownFrame)
    {
        const MO_ElementModule& layer = *_layers[index];
        const int number = nextNumber();
        AddedLayer added{.layer = index};
        auto element = copyOf(layer);
        added.element = &dynamic_cast<MO_ElementModule&>(*element);
        for (const auto& [name, drawing] : layer.drawings())
            added.element->setDrawing(name, drawing->withPalette(_palette));
        const ElementPlacing placing = placingFor(layer, ownFrame);
        for (std::size_t i = 0; i < placing.size(); ++i)
            placingAttrs(*added.element)[i]->setLocalValue(placing[i]);
        add(std::move(element), nullptr);
        if (const ObjectDefinition* const known = definitionFedBy(layer)) {
            auto definition = copyOf(*known);
            added.definition = &dynamic_cast<ObjectDefinition&>(*definition);
            const int before = known->objectNumber()->localValue();
            if (before != 0)
                added.definition->objectNumber()->setLocalValue(number);
            add(std::move(definition), added.element);
            addRow(before, number);
        }
        _added.push_back(added);
    }

    void add(std::unique_ptr<MO_Module> module, MO_Module* source)
    {
        // std::function copies what it holds, so the module is held by a shared pointer.
        auto held = std::make_shared<std::unique_ptr<MO_Module>>(std::move(module));
        _steps.emplace_back(
            [&scene = _scene, held, source] { return MO_addModuleCmd(scene.root(), std::move(*held), source); });
    }

    // The row of the object table that was chosen for the new object.
    void addRow(int before, int number)
    {
        if (!_node)
            return;
        auto* const freshNode = firstOf<MO_Module>(_fresh, [](MO_Module& module) { return NormalMapNode::is(module); });
        if (!freshNode)
            return;
        for (NormalMapObject row : NormalMapNode(*freshNode).objects()) {
            if (row.number != before)
                continue;
            row.number = number;
            _steps.emplace_back([node = _node, row] {
                std::vector<NormalMapObject> rows = NormalMapNode(*node).objects();
                putRow(rows, row);
                return NormalMapNode(*node).objectsCmd(rows);
            });
        }
    }

    void wire()
    {
        if (_added.empty())
            return;
        const LayerInputs inputs(_elements, _match, _added);
        const auto link = [&](MO_Module& target, const LayerInputs::Chosen& chosen) {
            std::ranges::move(linkInputs(target, inputs.with(target, chosen)), std::back_inserter(_steps));
        };
        if (_node)
            link(*_node, [](const AddedLayer& added) -> MO_Module* { return added.definition; });
        if (_composite)
            link(*_composite, [](const AddedLayer& added) -> MO_Module* {
                const bool cuts = added.definition && added.definition->objectNumber()->localValue() == 0;
                return cuts ? nullptr : added.element;
            });
    }

    MO_Scene& _scene;
    const std::vector<MO_ElementModule*>& _elements;
    const MO_Scene& _fresh;
    std::vector<const MO_ElementModule*> _layers; // of the fresh scene, bottom up
    std::vector<int> _match;
    MO_Module* _node = nullptr;
    MO_CompositeModule* _composite = nullptr;
    PalettePtr _palette;
    std::set<CM_ColorId_t> _newColours; // for the scene
    std::vector<AddedLayer> _added;
    std::vector<std::pair<MO_Module*, QString>> _names; // that change
    std::vector<StepsCommand::Step> _steps;
};

} // namespace

DrawingUpdate updateDrawings(MO_Scene& scene, const std::vector<MO_ElementModule*>& elements, const MO_Scene& fresh,
                             const QString& name)
{
    return Update(scene, elements, fresh).make(name);
}
