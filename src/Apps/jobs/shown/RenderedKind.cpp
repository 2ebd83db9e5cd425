// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Walks upstream and visits every module once, however many paths lead to it.
#include "jobs/shown/RenderedKind.h"

#include "QuarvelSceneCore/graph/MO_GroupBorderModule.h"
#include "QuarvelSceneCore/graph/MO_Port.h"
#include "QuarvelSceneCore/graph/XUGroup.h"
#include "QuarvelSceneCore/kinds/MO_CompositeModuleBase.h"
#include "QuarvelSceneCore/kinds/MO_GlueModule.h"
#include "jobs/shown/NormalMapNode.h"

#include <algorithm>
#include <unordered_set>

namespace {

class Walk
{
public:
    PictureSource run(MO_Module& module)
    {
        visit(start(module));
        PictureSource source;
        if (_nodes.empty() || _sawOther)
            return source;
        const auto makesNormals = [](MO_Module* node) { return NormalMapNode(*node).generatesNormals(); };
        const auto count = std::ranges::count_if(_nodes, makesNormals);
        if (count != 0 && count != std::ssize(_nodes))
            return source;
        source.kind = count == 0 ? RenderedKind::ELEVATION : RenderedKind::NORMALS;
        source.nodes = std::move(_nodes);
        return source;
    }

private:
    static MO_Module* behind(const MO_Module& module, unsigned port)
    {
        const MO_Port* const in = module.inPort(port);
        const MO_Port* const source = in ? in->realSrcPort() : nullptr;
        return source ? source->module() : nullptr;
    }

    // The module that delivers the picture when `module` is rendered: for a group, the module behind its first output;
    // for a disabled module, the one behind its first input.
    static MO_Module* start(MO_Module& module)
    {
        if (!module.enabled())
            return behind(module, 0);
        if (const auto* group = dynamic_cast<const XUGroup*>(&module))
            return behind(group->exit(), 0);
        return &module;
    }

    void visit(MO_Module* first)
    {
        std::vector<MO_Module*> open{first};
        while (!open.empty()) {
            MO_Module* const module = open.back();
            open.pop_back();
            if (!module || !_met.insert(module).second)
                continue;
            if (NormalMapNode::is(*module)) {
                _nodes.push_back(module);
                continue;
            }
            if (module->nInPorts() == 0) {
                _sawOther = true;
                continue;
            }
            const bool joins =
                dynamic_cast<MO_GlueModule*>(module) != nullptr || dynamic_cast<MO_CompositeModuleBase*>(module);
            for (unsigned port = joins ? module->nInPorts() : 1; port-- > 0;)
                open.push_back(behind(*module, port));
        }
    }

    std::unordered_set<MO_Module*> _met;
    std::vector<MO_Module*> _nodes;
    bool _sawOther = false;
};

} // namespace

PictureSource pictureSourceOf(MO_Module& module)
{
    return Walk().run(module);
}
