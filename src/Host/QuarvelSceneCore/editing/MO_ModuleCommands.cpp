// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One kind of command adds or removes modules, and keeps those that are not in the graph. It stores links as the table
// of all links of the group.
#include "QuarvelSceneCore/editing/MO_ModuleCommands.h"

#include "QuarvelSceneCore/attributes/AT_AttrLink.h"
#include "QuarvelSceneCore/attributes/AT_SimpleAttr.h"
#include "QuarvelSceneCore/editing/private/MO_LinkTable.h"
#include "QuarvelSceneCore/editing/private/MO_StateCmd.h"
#include "QuarvelSceneCore/graph/MO_SceneCopy.h"

#include <algorithm>
#include <map>
#include <optional>

namespace {

// Attribute links find modules that came back, and drop those that were removed.
void resolveAttributeLinks(const XUGroup& group)
{
    if (auto* scene = dynamic_cast<MO_Scene*>(group.sceneCommon()))
        scene->resolveLinks();
}

// Modules of one group, which are in the graph or kept by this command.
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
    std::optional<MO_LinkTable> _links; // of the graph with the modules in it
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
    std::vector<Link> _links; // made when executed; the table of links restores them on redo
};

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
    return modules.size() == 1 ? MO_CommandTexts::tr("\"%1\"").arg(modules.front()->instanceName())
                               : MO_CommandTexts::tr("%1 Nodes").arg(modules.size());
}

} // namespace

MO_EditCommand MO_addModuleCmd(XUGroup& group, std::unique_ptr<MO_Module> module, MO_Module* source)
{
    const QString name = MO_CommandTexts::tr("Add %1").arg(module->baseDisplayName());
    MO_Module* const added = module.get();
    std::vector<Link> links;
    if (source && source->group() == &group && source->nOutPorts() > 0 && added->nInPorts() > 0)
        links.push_back({source, 0, added, 0});
    std::vector<ModulesCmd::Entry> entries;
    entries.push_back({added, XUGroup::kAtEnd, std::move(module)});
    return std::make_unique<AddModulesCmd>(name, group, std::move(entries), std::move(links));
}

MO_EditCommand MO_removeModulesCmd(const std::vector<MO_Module*>& modules)
{
    XUGroup* const group = commonGroup(modules);
    if (!group)
        return nullptr;
    return std::make_unique<RemoveModulesCmd>(MO_CommandTexts::tr("Delete %1").arg(quoted(modules)), *group,
                                              entriesOf(*group, modules));
}

namespace {

// How far from its original a copy of a module stands that somebody has placed, right and down.
constexpr double kAside = 36.0;

} // namespace

UT_Result<MO_EditCommand> MO_duplicateModulesCmd(const std::vector<MO_Module*>& modules,
                                                 std::vector<MO_Module*>* copies)
{
    XUGroup* const group = commonGroup(modules);
    if (!group)
        return MO_EditCommand();
    if (const auto room = group->mayAdd({modules.begin(), modules.end()}); !room)
        return room.error();
    std::map<const MO_Node*, MO_Module*> copyFor;
    std::vector<ModulesCmd::Entry> entries;
    for (MO_Module* module : modules) {
        UT_Result<std::unique_ptr<MO_Module>> copied = MO_copyModule(*module);
        if (!copied)
            return copied.error();
        std::unique_ptr<MO_Module>& copy = *copied;
        copyFor[module] = copy.get();
        if (const auto& place = module->graphPlace())
            copy->setGraphPlace(MO_GraphPlace{place->x + kAside, place->y + kAside});
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
    return MO_EditCommand(std::make_unique<AddModulesCmd>(MO_CommandTexts::tr("Duplicate %1").arg(quoted(modules)),
                                                          *group, std::move(entries), std::move(links)));
}

namespace {

// The scene's links whose path leads to no attribute.
std::vector<UT_SharedPtr<AT_AttrSurrogate>> linksWithoutTarget(const MO_Scene& scene)
{
    std::vector<UT_SharedPtr<AT_AttrSurrogate>> found;
    scene.forEachLinked([&found](AT_SimpleAttr& attr) {
        if (!attr.link()->target())
            found.push_back(attr.surrogate());
    });
    return found;
}

// Renames a module. The new name may make a link without target find one; undo releases that link, which would
// otherwise follow the module back to a name that it never referred to.
class RenameCmd : public CO_Command
{
public:
    RenameCmd(MO_Module& module, QString after)
        : _module(module), _before(module.instanceName()), _after(std::move(after))
    {}

    QString name() const override { return MO_CommandTexts::tr("Rename \"%1\"").arg(_before); }

    void execute() override
    {
        auto* const scene = dynamic_cast<MO_Scene*>(_module.sceneCommon());
        _found = scene ? linksWithoutTarget(*scene) : std::vector<UT_SharedPtr<AT_AttrSurrogate>>();
        _module.setInstanceName(_after);
        if (scene)
            scene->resolveLinks();
        std::erase_if(_found, [](const auto& link) { return !asLink(link).target(); });
    }

    void undo() override
    {
        for (const auto& link : _found)
            asLink(link).forgetTarget();
        _module.setInstanceName(_before);
    }

private:
    static AT_AttrLink& asLink(const UT_SharedPtr<AT_AttrSurrogate>& link) { return static_cast<AT_AttrLink&>(*link); }

    MO_Module& _module;
    QString _before;
    QString _after;
    std::vector<UT_SharedPtr<AT_AttrSurrogate>> _found; // links that found their target under the new name
};

} // namespace

MO_EditCommand MO_renameCmd(MO_Module& module, const QString& name)
{
    if (module.instanceName() == name)
        return nullptr;
    return std::make_unique<RenameCmd>(module, name);
}

MO_EditCommand MO_enableCmd(const std::vector<MO_Module*>& modules, bool enabled)
{
    std::vector<MO_Module*> changing;
    std::ranges::copy_if(modules, std::back_inserter(changing),
                         [&](const MO_Module* module) { return module->enabled() != enabled; });
    if (changing.empty())
        return nullptr;
    const QString name =
        (enabled ? MO_CommandTexts::tr("Enable %1") : MO_CommandTexts::tr("Disable %1")).arg(quoted(changing));
    return MO_makeStateCmd(name, !enabled, enabled, [changing](bool state) {
        for (MO_Module* module : changing)
            module->setEnabled(state);
    });
}

MO_EditCommand MO_placeModulesCmd(const std::vector<std::pair<MO_Module*, std::optional<MO_GraphPlace>>>& places)
{
    using Places = std::vector<std::optional<MO_GraphPlace>>;
    std::vector<MO_Module*> modules;
    Places before;
    Places after;
    for (const auto& [module, place] : places)
        if (module->graphPlace() != place) {
            modules.push_back(module);
            before.push_back(module->graphPlace());
            after.push_back(place);
        }
    if (modules.empty())
        return nullptr;
    return MO_makeStateCmd(MO_CommandTexts::tr("Move %1").arg(quoted(modules)), before, after,
                           [modules](const Places& state) {
                               for (std::size_t i = 0; i < modules.size(); ++i)
                                   modules[i]->setGraphPlace(state[i]);
                           });
}
