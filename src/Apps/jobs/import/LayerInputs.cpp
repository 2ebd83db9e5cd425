// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A layer leads to an input by its element, by a module that was made for it, or by whatever lies between.
#include "jobs/import/LayerInputs.h"

#include "QuarvelSceneCore/editing/MO_LinkCommands.h"
#include "QuarvelSceneCore/graph/MO_Port.h"
#include "jobs/shown/DrawingExtent.h"

#include <algorithm>
#include <iterator>

LayerInputs::LayerInputs(const std::vector<MO_ElementModule*>& elements, const std::vector<int>& match,
                         const std::vector<AddedLayer>& added)
    : _elements(elements), _match(match), _added(added)
{}

std::vector<MO_Module*> LayerInputs::with(const MO_Module& target, const Chosen& chosen) const
{
    std::vector<MO_Module*> inputs;
    for (unsigned i = 0; i < target.nInPorts(); ++i)
        inputs.push_back(target.inPort(i)->srcPort() ? target.inPort(i)->srcPort()->module() : nullptr);
    while (!inputs.empty() && !inputs.back())
        inputs.pop_back();
    for (const AddedLayer& added : _added)
        if (MO_Module* const own = chosen(added))
            inputs.insert(inputs.begin() + placeFor(added.layer, inputs), own);
    return inputs;
}

// At the top where no lower layer has an input; at the bottom where the layer is the drawing's lowest.
std::ptrdiff_t LayerInputs::placeFor(std::size_t layer, const std::vector<MO_Module*>& inputs) const
{
    for (std::size_t lower = layer; lower-- > 0;) {
        const auto highest =
            std::find_if(inputs.rbegin(), inputs.rend(), [&](const MO_Module* input) { return leadsTo(lower, input); });
        if (highest != inputs.rend())
            return inputs.rend() - highest;
    }
    if (_elements.empty() || layer > 0)
        return std::ssize(inputs);
    const auto lowest = std::ranges::find_if(inputs, [&](const MO_Module* input) { return isAboveLowest(input); });
    return lowest - inputs.begin();
}

// Whether another layer than the drawing's lowest leads to the input.
bool LayerInputs::isAboveLowest(const MO_Module* input) const
{
    for (std::size_t upper = 1; upper < _match.size(); ++upper)
        if (leadsTo(upper, input))
            return true;
    return false;
}

// False for an input without a link.
bool LayerInputs::leadsTo(std::size_t layer, const MO_Module* input) const
{
    if (!input)
        return false;
    for (const AddedLayer& added : _added)
        if (added.layer == layer)
            return added.element == input || added.definition == input;
    if (_match[layer] < 0)
        return false;
    const MO_ElementModule* const element = _elements[static_cast<std::size_t>(_match[layer])];
    if (element == input)
        return true;
    for (unsigned i = 0; i < input->nInPorts(); ++i) {
        const auto behind = elementsBehind(*input->inPort(i));
        if (std::ranges::find(behind, element) != behind.end())
            return true;
    }
    return false;
}

// Wrong links go first, from the last port on: a module that keeps one free port at its end removes ports with them.
std::vector<StepsCommand::Step> linkInputs(MO_Module& target, const std::vector<MO_Module*>& inputs)
{
    std::vector<StepsCommand::Step> steps;
    for (unsigned port = target.nInPorts(); port-- > 0;)
        steps.emplace_back([&target, port, inputs]() -> MO_EditCommand {
            const MO_Port* const source = port < target.nInPorts() ? target.inPort(port)->srcPort() : nullptr;
            const MO_Module* const wanted = port < inputs.size() ? inputs[port] : nullptr;
            return source && source->module() != wanted ? MO_disconnectCmd(target, port) : nullptr;
        });
    for (unsigned port = 0; port < inputs.size(); ++port)
        if (MO_Module* const source = inputs[port])
            steps.emplace_back([&target, source, port]() -> MO_EditCommand {
                auto linked = MO_connectCmd(*source, target, port);
                return linked ? std::move(*linked) : nullptr;
            });
    return steps;
}
