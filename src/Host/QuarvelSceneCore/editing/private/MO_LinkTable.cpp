// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Links are restored in two rounds: first every module whose links differ loses all of them, then they are made anew.
// So no link closes a circle with one that is about to be removed.
#include "QuarvelSceneCore/editing/private/MO_LinkTable.h"

#include "QuarvelSceneCore/graph/MO_Scene.h"

#include <cassert>
#include <vector>

namespace {

template<typename Function>
void forEachTarget(const XUGroup& group, const Function& function)
{
    for (const auto& module : group.modules())
        function(*module);
    function(group.exit());
}

void cutAll(MO_Module& module)
{
    // From the last port down, because cutting the last link removes the automatic ports after it.
    for (unsigned i = module.nInPorts(); i > 0; --i)
        MO_Scene::disconnect(module, i - 1);
}

} // namespace

MO_LinkTable MO_LinkTable::of(const XUGroup& group)
{
    MO_LinkTable table;
    forEachTarget(group, [&](MO_Module& target) {
        for (unsigned i = 0; i < target.nInPorts(); ++i)
            if (const MO_Port* source = target.inPort(i)->srcPort())
                table._links.insert({{&target, i}, {source->module(), source->index()}});
    });
    return table;
}

std::map<MO_LinkTable::Input, MO_LinkTable::Output> MO_LinkTable::linksTo(MO_Module& module) const
{
    return {_links.lower_bound({&module, 0}), _links.upper_bound({&module, MO_Node::kMaxPorts})};
}

void MO_LinkTable::restore(const XUGroup& group) const
{
    const MO_LinkTable now = of(group);
    std::vector<MO_Module*> different;
    forEachTarget(group, [&](MO_Module& target) {
        if (linksTo(target) != now.linksTo(target))
            different.push_back(&target);
    });
    for (MO_Module* target : different)
        cutAll(*target);
    for (MO_Module* target : different)
        for (const auto& [input, output] : linksTo(*target)) {
            [[maybe_unused]] const auto linked = MO_Scene::connect(*output.module, *target, input.port, output.port);
            assert(linked.ok());
        }
}
