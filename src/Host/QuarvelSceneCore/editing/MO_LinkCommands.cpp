// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A command makes its change when it is executed, and keeps the group's earlier table of links for undo, which also
// restores the automatic ports.
#include "QuarvelSceneCore/editing/MO_LinkCommands.h"

#include "QuarvelCommand/CO_OrCommand.h"
#include "QuarvelSceneCore/editing/private/MO_LinkTable.h"
#include "QuarvelSceneCore/editing/private/MO_StateCmd.h"

#include <cassert>
#include <functional>

namespace {

// Changes the links of a group.
class LinkCmd : public CO_Command
{
public:
    LinkCmd(QString name, const XUGroup& group, std::function<void()> change)
        : _name(std::move(name)), _group(group), _change(std::move(change))
    {}

    QString name() const override { return _name; }
    void execute() override
    {
        _before = MO_LinkTable::of(_group);
        _change();
    }
    void undo() override { _before.restore(_group); }

private:
    QString _name;
    const XUGroup& _group;
    std::function<void()> _change;
    MO_LinkTable _before;
};

QString nameOf(const MO_Module& module)
{
    return module.instanceName().isEmpty() ? module.baseDisplayName() : module.instanceName();
}

} // namespace

UT_Result<MO_EditCommand> MO_connectCmd(MO_Module& source, MO_Module& target, unsigned inPort, unsigned outPort)
{
    const XUGroup* const group = target.group();
    if (!group)
        return UT_Error{MO_CommandTexts::tr("\"%1\" is not part of a scene").arg(target.instanceName())};
    if (const auto possible = MO_Scene::mayConnect(source, target, inPort, outPort); !possible)
        return possible.error();
    if (const MO_Port* const port = target.inPort(inPort); port && port->srcPort() == source.outPort(outPort))
        return MO_EditCommand();
    const QString name =
        MO_CommandTexts::tr("Connect \"%1\" to \"%2\"").arg(source.instanceName(), target.instanceName());
    return MO_EditCommand(std::make_unique<LinkCmd>(name, *group, [&source, &target, inPort, outPort] {
        [[maybe_unused]] const auto linked = MO_Scene::connect(source, target, inPort, outPort);
        assert(linked.ok());
    }));
}

MO_EditCommand MO_disconnectCmd(MO_Module& target, unsigned inPort)
{
    const XUGroup* const group = target.group();
    const MO_Port* const port = target.inPort(inPort);
    if (!group || !port || !port->srcPort())
        return nullptr;
    return std::make_unique<LinkCmd>(MO_CommandTexts::tr("Disconnect \"%1\"").arg(target.instanceName()), *group,
                                     [&target, inPort] { MO_Scene::disconnect(target, inPort); });
}

// Both links start at the same output, so a path from the new target back to it never needs the old link: the new link
// can be checked before the old one is cut.
UT_Result<MO_EditCommand> MO_moveLinkCmd(MO_Module& from, unsigned fromPort, MO_Module& to, unsigned toPort)
{
    const MO_Port* const source = from.inPort(fromPort) ? from.inPort(fromPort)->srcPort() : nullptr;
    MO_EditCommand cut = MO_disconnectCmd(from, fromPort);
    if (!cut || !source || (&from == &to && fromPort == toPort))
        return MO_EditCommand();
    UT_Result<MO_EditCommand> link = MO_connectCmd(*source->module(), to, toPort, source->index());
    if (!link)
        return link.error();
    auto both = std::make_unique<CO_OrCommand>(MO_CommandTexts::tr("Move Link to \"%1\"").arg(nameOf(to)));
    both->append(std::move(cut));
    both->append(std::move(*link));
    return MO_EditCommand(std::move(both));
}
