// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CO_Command: one change that can be done, undone and done again. A command is made without effect, executed once, and
// from then on undone and redone in turns; each of these brings back the exact state of before or after.
#pragma once

#include "QuarvelCommand/QuarvelCommandExport.h"

#include <QString>

/// An undoable change.
///
/// Each of execute(), undo() and redo() either does its whole work or throws and leaves everything as it was. To be
/// used on the thread that owns the objects it changes.
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

    /// False when executing the command would change nothing, and nobody need remember it. True unless overridden.
    virtual bool hasEffect() const;

    /// True when this command, executed already, and a later one, executed directly after it, are two steps of one
    /// change (the positions of a dragged slider) that mergeWith() can make one. False unless overridden.
    virtual bool canMergeWith(const CO_Command& later) const;
    /// Takes the later change into this command: from now on undo() takes back both and redo() does both. To be called
    /// only when canMergeWith(later). Does nothing unless overridden.
    virtual void mergeWith(const CO_Command& later);
};
