// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Two kinds of commands do all of it: one adds or removes modules, keeping those that are not in the graph, and one
// changes values that have a getter and a setter. What happens to links is kept as the table of all links of the group,
// before and after.
#include "QuarvelSceneCore/editing/MO_EditCommands.h"

#include "QuarvelSceneCore/editing/private/MO_LinkTable.h"
#include "QuarvelSceneCore/graph/MO_SceneCopy.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("MO_EditCommands", text);
}

// Links of attributes find those that came back, and let go of those that went.
void resolveAttributeLinks(const XUGroup& group)
{
    if (auto* scene = dynamic_cast<MO_Scene*>(group.sceneCommon()))
        scene->resolveLinks();
}

// Modules of one group that are in the graph at one time and kept here at the other.
class ModulesCmd : public CO_Command
{
public:
    struct Entry
    {
        MO_Module* module;
        std::size_t place;
        std::unique_ptr<MO_Module> kept; // null while it is in the graph
    };

    ModulesCmd(QString name, XUGroup& group, std::vector<Entry> entries) // by their places
        : _name(std::move(name)), _group(group), _entries(std::move(entries))
    {}

    QString name() const override { return _name; }

protected:
    void takeOut()
    {
        _links = MO_LinkTable::of(_group);
        for (auto entry = _entries.rbegin(); entry != _entries.rend(); ++entry)
            entry->kept = _group.take(*entry->module);
        resolveAttributeLinks(_group);
    }

    void putIn()
    {
        for (Entry& entry : _entries)
            _group.add(std::move(entry.kept), entry.place);
        if (_links)
            _links->restore(_group);
        resolveAttributeLinks(_group);
    }

    XUGroup& group() const { return _group; }

private:
    QString _name;
    XUGroup& _group;
    std::vector<Entry> _entries;
    std::optional<MO_LinkTable> _links; // of the graph with the modules
};

class RemoveModulesCmd : public ModulesCmd
{
public:
    using ModulesCmd::ModulesCmd;
    void execute() override { takeOut(); }
    void undo() override { putIn(); }
};

struct Link
{
    MO_Module* source;
    unsigned outPort;
    MO_Module* target;
    unsigned inPort;
};

class AddModulesCmd : public ModulesCmd
{
public:
    AddModulesCmd(const QString& name, XUGroup& group, std::vector<Entry> entries, std::vector<Link> links)
        : ModulesCmd(name, group, std::move(entries)), _links(std::move(links))
    {}

    void execute() override
    {
        putIn();
        for (const Link& link : _links)
            (void)MO_Scene::connect(*link.source, *link.target, link.inPort, link.outPort);
    }
    void undo() override { takeOut(); }
    void redo() override { putIn(); }

private:
    std::vector<Link> _links; // made once; from then on the table of links has them
};

class LinksCmd : public CO_Command
{
public:
    LinksCmd(QString name, XUGroup& group, MO_LinkTable before, MO_LinkTable after)
        : _name(std::move(name)), _group(group), _before(std::move(before)), _after(std::move(after))
    {}

    QString name() const override { return _name; }
    void execute() override { _after.restore(_group); }
    void undo() override { _before.restore(_group); }

private:
    QString _name;
    XUGroup& _group;
    MO_LinkTable _before;
    MO_LinkTable _after;
};

// A change that a function makes, given the state of before or after.
template<typename State, typename Setter>
class StateCmd : public CO_Command
{
public:
    StateCmd(QString name, State before, State after, Setter set)
        : _name(std::move(name)), _before(std::move(before)), _after(std::move(after)), _set(std::move(set))
    {}

    QString name() const override { return _name; }
    void execute() override { _set(_after); }
    void undo() override { _set(_before); }

private:
    QString _name;
    State _before;
    State _after;
    Setter _set;
};

template<typename State, typename Setter>
MO_EditCommand makeStateCmd(const QString& name, State before, State after, Setter set)
{
    return std::make_unique<StateCmd<State, Setter>>(name, std::move(before), std::move(after), std::move(set));
}

XUGroup* commonGroup(const std::vector<MO_Module*>& modules)
{
    XUGroup* const group = modules.empty() ? nullptr : modules.front()->group();
    const bool same = std::ranges::all_of(modules, [&](const MO_Module* module) { return module->group() == group; });
    return same ? group : nullptr;
}

// The modules with their places in the group, in the group's order.
std::vector<ModulesCmd::Entry> entriesOf(const XUGroup& group, const std::vector<MO_Module*>& modules)
{
    std::vector<ModulesCmd::Entry> entries;
    for (std::size_t place = 0; place < group.modules().size(); ++place) {
        MO_Module* const module = group.modules()[place].get();
        if (std::ranges::find(modules, module) != modules.end())
            entries.push_back({module, place, nullptr});
    }
    return entries;
}

QString quoted(const std::vector<MO_Module*>& modules)
{
    return modules.size() == 1 ? translated("\"%1\"").arg(modules.front()->instanceName())
                               : translated("%1 Modules").arg(modules.size());
}

} // namespace

MO_EditCommand MO_addModuleCmd(XUGroup& group, std::unique_ptr<MO_Module> module)
{
    const QString name = translated("Add %1").arg(module->baseDisplayName());
    MO_Module* const added = module.get();
    std::vector<ModulesCmd::Entry> entries;
    entries.push_back({added, XUGroup::kAtEnd, std::move(module)});
    return std::make_unique<AddModulesCmd>(name, group, std::move(entries), std::vector<Link>());
}

MO_EditCommand MO_removeModulesCmd(const std::vector<MO_Module*>& modules)
{
    XUGroup* const group = commonGroup(modules);
    if (!group)
        return nullptr;
    return std::make_unique<RemoveModulesCmd>(translated("Delete %1").arg(quoted(modules)), *group,
                                              entriesOf(*group, modules));
}

MO_EditCommand MO_duplicateModulesCmd(const std::vector<MO_Module*>& modules, std::vector<MO_Module*>* copies)
{
    XUGroup* const group = commonGroup(modules);
    if (!group)
        return nullptr;
    std::map<const MO_Node*, MO_Module*> copyFor;
    std::vector<ModulesCmd::Entry> entries;
    for (MO_Module* module : modules) {
        std::unique_ptr<MO_Module> copy = MO_copyModule(*module);
        copyFor[module] = copy.get();
        if (copies)
            copies->push_back(copy.get());
        entries.push_back({copy.get(), XUGroup::kAtEnd, std::move(copy)});
    }
    std::vector<Link> links;
    for (MO_Module* module : modules)
        for (unsigned i = 0; i < module->nInPorts(); ++i) {
            const MO_Port* const source = module->inPort(i)->srcPort();
            if (source && copyFor.contains(source->node()))
                links.push_back({copyFor[source->node()], source->index(), copyFor[module], i});
        }
    return std::make_unique<AddModulesCmd>(translated("Duplicate %1").arg(quoted(modules)), *group, std::move(entries),
                                           std::move(links));
}

UT_Result<MO_EditCommand> MO_connectCmd(MO_Module& source, MO_Module& target, unsigned inPort, unsigned outPort)
{
    XUGroup* const group = target.group();
    if (!group)
        return UT_Error{translated("\"%1\" is not part of a scene").arg(target.instanceName())};
    const MO_LinkTable before = MO_LinkTable::of(*group);
    if (const auto linked = MO_Scene::connect(source, target, inPort, outPort); !linked)
        return linked.error();
    const MO_LinkTable after = MO_LinkTable::of(*group);
    before.restore(*group);
    if (before == after)
        return MO_EditCommand();
    const QString name = translated("Connect \"%1\" to \"%2\"").arg(source.instanceName(), target.instanceName());
    return MO_EditCommand(std::make_unique<LinksCmd>(name, *group, before, after));
}

MO_EditCommand MO_disconnectCmd(MO_Module& target, unsigned inPort)
{
    XUGroup* const group = target.group();
    const MO_Port* const port = target.inPort(inPort);
    if (!group || !port || !port->srcPort())
        return nullptr;
    const MO_LinkTable before = MO_LinkTable::of(*group);
    MO_Scene::disconnect(target, inPort);
    const MO_LinkTable after = MO_LinkTable::of(*group);
    before.restore(*group);
    return std::make_unique<LinksCmd>(translated("Disconnect \"%1\"").arg(target.instanceName()), *group, before,
                                      after);
}

MO_EditCommand MO_renameCmd(MO_Module& module, const QString& name)
{
    if (module.instanceName() == name)
        return nullptr;
    return makeStateCmd(translated("Rename \"%1\"").arg(module.instanceName()), module.instanceName(), name,
                        [&module](const QString& wanted) { module.setInstanceName(wanted); });
}

MO_EditCommand MO_enableCmd(const std::vector<MO_Module*>& modules, bool enabled)
{
    std::vector<MO_Module*> changing;
    std::ranges::copy_if(modules, std::back_inserter(changing),
                         [&](const MO_Module* module) { return module->enabled() != enabled; });
    if (changing.empty())
        return nullptr;
    const QString name = (enabled ? translated("Enable %1") : translated("Disable %1")).arg(quoted(changing));
    return makeStateCmd(name, !enabled, enabled, [changing](bool state) {
        for (MO_Module* module : changing)
            module->setEnabled(state);
    });
}

MO_EditCommand MO_frameRangeCmd(MO_Scene& scene, int first, int last)
{
    const std::pair before(scene.firstFrame(), scene.lastFrame());
    const std::pair after(first, last);
    if (before == after || last < first)
        return nullptr;
    return makeStateCmd(translated("Change Frames"), before, after,
                        [&scene](const std::pair<int, int>& range) { scene.setFrameRange(range.first, range.second); });
}

MO_EditCommand MO_frameHeightCmd(MO_Scene& scene, double height)
{
    const double before = scene.frameHeight();
    if (before == height || !(height > 0.0) || std::isinf(height))
        return nullptr;
    return makeStateCmd(translated("Change Frame Height"), before, height,
                        [&scene](double wanted) { scene.setFrameHeight(wanted); });
}

MO_EditCommand MO_drawingCmd(MO_ElementModule& element, const QString& name, const UT_SharedPtr<CELVEC_Kvd>& drawing)
{
    const auto found = element.drawings().find(name);
    const UT_SharedPtr<CELVEC_Kvd> before = found == element.drawings().end() ? nullptr : found->second;
    if (before == drawing)
        return nullptr;
    return makeStateCmd(translated("Change Drawing \"%1\"").arg(name), before, drawing,
                        [&element, name](const UT_SharedPtr<CELVEC_Kvd>& wanted) { element.setDrawing(name, wanted); });
}

MO_EditCommand MO_addPaletteCmd(MO_Scene& scene, const CM_SharedPtr<CM_Palette>& palette)
{
    if (!palette || std::ranges::find(scene.palettes(), palette) != scene.palettes().end())
        return nullptr;
    return makeStateCmd(translated("Add Palette"), false, true, [&scene, palette](bool isThere) {
        if (isThere)
            scene.addPalette(palette);
        else
            scene.removePalette(palette);
    });
}
