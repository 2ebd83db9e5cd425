// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Ports are added and removed at the end only, and only while no link uses them, so that undo restores the group
// exactly.
#include "QuarvelSceneCore/editing/MO_GroupCommands.h"

#include "QuarvelSceneCore/editing/private/MO_StateCmd.h"

namespace {

class GroupPortCmd : public CO_Command
{
public:
    GroupPortCmd(XUGroup& group, bool isInput, bool isAdding) : _group(group), _isInput(isInput), _isAdding(isAdding) {}

    QString name() const override
    {
        if (_isAdding)
            return _isInput ? MO_CommandTexts::tr("Add Input Port") : MO_CommandTexts::tr("Add Output Port");
        return _isInput ? MO_CommandTexts::tr("Remove Input Port") : MO_CommandTexts::tr("Remove Output Port");
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

MO_EditCommand MO_addGroupPortCmd(XUGroup& group, bool isInput)
{
    const unsigned ports = isInput ? group.nInPorts() : group.nOutPorts();
    return ports < MO_Node::kMaxPorts ? std::make_unique<GroupPortCmd>(group, isInput, true) : nullptr;
}

UT_Result<MO_EditCommand> MO_removeGroupPortCmd(XUGroup& group, bool isInput)
{
    const unsigned ports = isInput ? group.nInPorts() : group.nOutPorts();
    if (ports == 0)
        return UT_Error{MO_CommandTexts::tr("\"%1\" has no such port").arg(group.instanceName())};
    const MO_Port* const outer = isInput ? group.inPort(ports - 1) : group.outPort(ports - 1);
    const MO_Port* const inner = isInput ? group.entry().outPort(ports - 1) : group.exit().inPort(ports - 1);
    if (outer->isConnected() || inner->isConnected())
        return UT_Error{
            MO_CommandTexts::tr("The last port of \"%1\" is linked; cut its links first").arg(group.instanceName())};
    return MO_EditCommand(std::make_unique<GroupPortCmd>(group, isInput, false));
}
