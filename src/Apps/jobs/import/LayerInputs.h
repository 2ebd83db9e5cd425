// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LayerInputs: where the modules of new layers go among the inputs of a module, such as the normal-map node, that the
// drawing's other layers lead to already: above the highest input of a layer that lies below the new one.
#pragma once

#include "ObjectDefinition/ObjectDefinition.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "jobs/import/StepsCommand.h"

#include <functional>
#include <vector>

/// A layer that is new, and the modules that are made for it.
struct AddedLayer
{
    std::size_t layer = 0; ///< its index among the drawing's layers, bottom up
    MO_ElementModule* element = nullptr;
    ObjectDefinition* definition = nullptr; ///< null where the drawing defines no object for it
};

class LayerInputs
{
public:
    /// Which of a new layer's modules becomes an input; null for none.
    using Chosen = std::function<MO_Module*(const AddedLayer&)>;

    /// @param elements the elements that the scene has of the drawing
    /// @param match    for each layer of the drawing, bottom up, the index of its element; -1 for a new layer
    /// @param added    the new layers, bottom up
    LayerInputs(const std::vector<MO_ElementModule*>& elements, const std::vector<int>& match,
                const std::vector<AddedLayer>& added);

    /// The modules at a target's inputs after the new ones were put in; null for an input without a link.
    std::vector<MO_Module*> with(const MO_Module& target, const Chosen& chosen) const;

private:
    std::ptrdiff_t placeFor(std::size_t layer, const std::vector<MO_Module*>& inputs) const;
    bool leadsTo(std::size_t layer, const MO_Module* input) const;
    bool isAboveLowest(const MO_Module* input) const;

    const std::vector<MO_ElementModule*>& _elements;
    const std::vector<int>& _match;
    const std::vector<AddedLayer>& _added;
};

/// The steps that link a module's inputs to these modules and to nothing else.
std::vector<StepsCommand::Step> linkInputs(MO_Module& target, const std::vector<MO_Module*>& inputs);
