// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CO_Command: one change that can be done, undone and redone. Making a command changes nothing; it is executed once,
// then undone and redone in turns, each of which restores the exact state before or after.
#pragma once

#include "QuarvelCommand/QuarvelCommandExport.h"

#include <QString>

/// An undoable change.
///
/// Each of execute(), undo() and redo() either does its whole work or throws and leaves everything unchanged. Commands
/// are used on the thread that owns the objects they change.
class QUARVELCOMMAND_EXPORT CO_Command
{
public:
    CO_Command() = default;
    CO_Command(const CO_Command&) = delete;
    CO_Command& operator=(const CO_Command&) = delete;
    virtual ~CO_Command();

    /// What the command does, for menus and lists ("Change Bevel Multiplier"); translated.
    virtual QString name() const = 0;

    /// Does the change, for the first time.
    virtual void execute() = 0;
    /// Takes the change back.
    virtual void undo() = 0;
    /// Does the change again. The same as execute() unless overridden.
    virtual void redo();

    /// False when executing the command would change nothing, so that it need not be kept. True unless overridden.
    virtual bool hasEffect() const;

    /// True when this command, already executed, and a later one, executed directly after it, are steps of one change
    /// (the positions of a dragged slider) that mergeWith() can join. False unless overridden.
    virtual bool canMergeWith(const CO_Command& later) const;
    /// Takes the later change into this command: from then on undo() undoes both and redo() redoes both. Requires
    /// canMergeWith(later). Does nothing unless overridden.
    virtual void mergeWith(const CO_Command& later);
};
