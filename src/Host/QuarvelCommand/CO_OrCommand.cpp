// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Doing and undoing a sequence, all of it or nothing.
#include "QuarvelCommand/CO_OrCommand.h"

#include <algorithm>

namespace {

using Commands = std::vector<std::unique_ptr<CO_Command>>;
using Step = void (CO_Command::*)();

// Runs a step of each command in a range. When one throws, the steps before it are reversed, the latest first.
template<typename Iterator>
void takeSteps(Iterator begin, Iterator end, Step step, Step back)
{
    Iterator it = begin;
    try {
        for (; it != end; ++it)
            ((**it).*step)();
    } catch (...) {
        while (it != begin)
            ((**--it).*back)();
        throw;
    }
}

} // namespace

CO_OrCommand::CO_OrCommand(const QString& name) : _name(name) {}

CO_OrCommand::~CO_OrCommand() = default;

void CO_OrCommand::append(std::unique_ptr<CO_Command> command)
{
    if (command)
        _commands.push_back(std::move(command));
}

void CO_OrCommand::append(CO_Command* command)
{
    append(std::unique_ptr<CO_Command>(command));
}

QString CO_OrCommand::name() const
{
    return _name.isEmpty() && !_commands.empty() ? _commands.front()->name() : _name;
}

void CO_OrCommand::execute()
{
    takeSteps(_commands.begin(), _commands.end(), &CO_Command::execute, &CO_Command::undo);
}

void CO_OrCommand::undo()
{
    takeSteps(_commands.rbegin(), _commands.rend(), &CO_Command::undo, &CO_Command::redo);
}

void CO_OrCommand::redo()
{
    takeSteps(_commands.begin(), _commands.end(), &CO_Command::redo, &CO_Command::undo);
}

bool CO_OrCommand::hasEffect() const
{
    return std::ranges::any_of(_commands, [](const auto& command) { return command->hasEffect(); });
}

bool CO_OrCommand::canMergeWith(const CO_Command& later) const
{
    const auto* other = dynamic_cast<const CO_OrCommand*>(&later);
    return other && name() == other->name() &&
           std::ranges::equal(_commands, other->_commands,
                              [](const auto& mine, const auto& theirs) { return mine->canMergeWith(*theirs); });
}

void CO_OrCommand::mergeWith(const CO_Command& later)
{
    const auto& others = static_cast<const CO_OrCommand&>(later)._commands;
    for (std::size_t i = 0; i < _commands.size(); ++i)
        _commands[i]->mergeWith(*others[i]);
}
