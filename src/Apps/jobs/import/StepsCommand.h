// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// StepsCommand: a change in several steps, each made for the scene as the steps before it have left it. Commands look
// at the scene when they are made, so each is made only when its turn has come.
#pragma once

#include "QuarvelCommand/CO_Command.h"

#include <functional>
#include <memory>
#include <vector>

class StepsCommand : public CO_Command
{
public:
    /// Makes the command of one step; null for a step that has nothing to do.
    using Step = std::function<std::unique_ptr<CO_Command>()>;

    StepsCommand(QString name, std::vector<Step> steps);
    ~StepsCommand() override;

    QString name() const override { return _name; }
    void execute() override;
    void undo() override;
    void redo() override;

private:
    QString _name;
    std::vector<Step> _steps; // to be done
    std::vector<std::unique_ptr<CO_Command>> _done;
};
