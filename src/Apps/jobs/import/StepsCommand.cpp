// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// When a step throws, those before it are undone.
#include "jobs/import/StepsCommand.h"

StepsCommand::StepsCommand(QString name, std::vector<Step> steps) : _name(std::move(name)), _steps(std::move(steps)) {}

StepsCommand::~StepsCommand() = default;

void StepsCommand::execute()
{
    try {
        for (const Step& step : _steps)
            if (std::unique_ptr<CO_Command> command = step()) {
                command->execute();
                _done.push_back(std::move(command));
            }
    } catch (...) {
        undo();
        _done.clear();
        throw;
    }
    _steps.clear();
}

void StepsCommand::undo()
{
    for (auto command = _done.rbegin(); command != _done.rend(); ++command)
        (*command)->undo();
}

void StepsCommand::redo()
{
    for (const auto& command : _done)
        command->redo();
}
