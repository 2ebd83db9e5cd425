// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "jobs/scene/ObjectInputs.h"

#include "QuarvelSceneCore/graph/MO_Port.h"
#include "jobs/shown/DrawingExtent.h"
#include "jobs/shown/NormalMapNode.h"
#include "jobs/shown/VisibleDrawing.h"

std::vector<ObjectInput> objectInputsOf(const MO_Scene& scene)
{
    std::vector<ObjectInput> inputs;
    scene.root().forEachModule([&](MO_Module& module) {
        if (!NormalMapNode::is(module))
            return;
        for (unsigned i = 0; i < module.nInPorts(); ++i) {
            ObjectDefinition* const definition = objectDefinitionBehind(*module.inPort(i));
            if (!definition)
                continue;
            inputs.push_back({&module, module.inPort(i), definition, {}});
            for (const MO_ElementModule* const element : elementsBehind(*module.inPort(i))) {
                inputs.back().elements << element->instanceName();
                if (const QString& reason = element->origin().reason; !reason.isEmpty())
                    inputs.back().reasons << reason;
            }
            inputs.back().reasons.removeDuplicates();
        }
    });
    return inputs;
}
