// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CO_OrCommand: several changes, done and undone as one.
#pragma once

#include "QuarvelCommand/CO_Command.h"

#include <memory>
#include <vector>

/// A sequence of commands as one command. They are executed in the order in which they were appended and undone in the
/// reverse order. When one of them throws, those executed before it are undone and the exception passes through.
class QUARVELCOMMAND_EXPORT CO_OrCommand : public CO_Command
{
public:
    /// @param name what the whole does; the name of the first sub-command when empty
    explicit CO_OrCommand(const QString& name = QString());
    ~CO_OrCommand() override;

    /// Adds a sub-command at the end; null adds nothing. Only before the first execute().
    void append(std::unique_ptr<CO_Command> command);
    /// The same for a command that the caller owns; ownership passes to this one.
    void append(CO_Command* command);

    bool isEmpty() const { return _commands.empty(); }
    std::size_t size() const { return _commands.size(); }

    QString name() const override;
    void execute() override;
    void undo() override;
    void redo() override;
    /// True when a sub-command has an effect; an empty command has none.
    bool hasEffect() const override;
    /// True for a composite of the same length all of whose sub-commands can be merged pairwise.
    bool canMergeWith(const CO_Command& later) const override;
    void mergeWith(const CO_Command& later) override;

private:
    QString _name;
    std::vector<std::unique_ptr<CO_Command>> _commands;
};
