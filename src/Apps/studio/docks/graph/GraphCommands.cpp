// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The commands of groups' ports add and remove the last port only, which no link may use, so that undo brings back
// exactly what was there.
#include "studio/docks/graph/GraphCommands.h"

#include "QuarvelCommand/CO_OrCommand.h"

#include <QCoreApplication>

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("GraphCommands", text);
}

class GroupPortCmd : public CO_Command
{
public:
    GroupPortCmd(XUGroup& group, bool isInput, bool isAdding) : _group(group), _isInput(isInput), _isAdding(isAdding) {}

    QString name() const override
    {
        if (_isAdding)
            return _isInput ? translated("Add Input Port") : translated("Add Output Port");
        return _isInput ? translated("Remove Input Port") : translated("Remove Output Port");
    }
    void execute() override { change(_isAdding); }
    void undo() override { change(!_isAdding); }

private:
    void change(bool add)
    {
        if (add)
            static_cast<void>(_isInput ? _group.addInPort() : _group.addOutPort());
        else
            static_cast<void>(_isInput ? _group.removeLastInPort() : _group.removeLastOutPort());
    }

    XUGroup& _group;
    bool _isInput;
    bool _isAdding;
};

} // namespace

UT_Result<MO_EditCommand> moveLinkCmd(MO_Module& from, unsigned fromPort, MO_Module& to, unsigned toPort)
{
    const MO_Port* const source = from.inPort(fromPort) ? from.inPort(fromPort)->srcPort() : nullptr;
    MO_EditCommand cut = MO_disconnectCmd(from, fromPort);
    if (!cut || !source || (&from == &to && fromPort == toPort))
        return MO_EditCommand();
    MO_Module& sourceModule = *source->module();
    const unsigned outPort = source->index();
    // The second step is planned on what the first one leaves.
    cut->execute();
    UT_Result<MO_EditCommand> link = MO_connectCmd(sourceModule, to, toPort, outPort);
    cut->undo();
    if (!link)
        return link.error();
    auto both = std::make_unique<CO_OrCommand>(
        translated("Move Link to \"%1\"").arg(to.instanceName().isEmpty() ? to.baseDisplayName() : to.instanceName()));
    both->append(std::move(cut));
    both->append(std::move(*link));
    return MO_EditCommand(std::move(both));
}

MO_EditCommand addGroupPortCmd(XUGroup& group, bool isInput)
{
    const unsigned ports = isInput ? group.nInPorts() : group.nOutPorts();
    return ports < MO_Node::kMaxPorts ? std::make_unique<GroupPortCmd>(group, isInput, true) : nullptr;
}

UT_Result<MO_EditCommand> removeGroupPortCmd(XUGroup& group, bool isInput)
{
    const unsigned ports = isInput ? group.nInPorts() : group.nOutPorts();
    if (ports == 0)
        return UT_Error{translated("\"%1\" has no such port").arg(group.instanceName())};
    const MO_Port* const outer = isInput ? group.inPort(ports - 1) : group.outPort(ports - 1);
    const MO_Port* const inner = isInput ? group.entry().outPort(ports - 1) : group.exit().inPort(ports - 1);
    if (outer->isConnected() || inner->isConnected())
        return UT_Error{translated("The last port of \"%1\" is linked; cut its links first").arg(group.instanceName())};
    return MO_EditCommand(std::make_unique<GroupPortCmd>(group, isInput, false));
}
