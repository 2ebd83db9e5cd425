// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CO_CommandStack: the commands that were executed on a document, to be undone and redone; and whether the document is
// as it was when it was last saved.
#pragma once

#include "QuarvelBaseCore/XUTeller.h"
#include "QuarvelCommand/CO_Command.h"

#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

/// The history of one document. Notifies its listeners after every change of a value that its functions return.
///
/// When a command throws, the exception passes through and the history is unchanged. Used on the thread that owns the
/// document.
class QUARVELCOMMAND_EXPORT CO_CommandStack : public XUTeller
{
public:
    CO_CommandStack();
    ~CO_CommandStack() override;

    /// Executes a command and keeps it as the newest one; undone commands are discarded. A null command, or one without
    /// effect, is dropped without being executed.
    ///
    /// A command that continues the newest one (CO_Command::canMergeWith) becomes part of it, unless something came
    /// between them: undo(), redo(), setClean(), endMerging(). A run of changes that ends where it began leaves no
    /// command behind.
    ///
    /// @return whether anything was executed
    bool execute(std::unique_ptr<CO_Command> command);

    /// Undoes the newest command. @return false when there is none
    bool undo();
    /// Undoes the run of changes that is under way and forgets it, as when a drag is cancelled.
    /// @return false when there is none: after endMerging() nothing was executed, or only what cancelled out
    bool dropRun();
    /// Redoes the command undone last. @return false when there is none
    bool redo();

    bool canUndo() const { return _done > 0; }
    bool canRedo() const { return _done < _commands.size(); }
    /// The name of the command that undo() would undo; empty when there is none.
    QString undoName() const;
    /// The name of the command that redo() would redo; empty when there is none.
    QString redoName() const;
    /// The names of the commands that can be undone, the oldest first.
    QStringList undoNames() const;

    /// Ends a run of small changes: the next command starts a step of its own. (The mouse was released, a field left.)
    void endMerging() { _mayMerge = false; }

    /// True when the document is as it was at the last setClean(); a new history is clean.
    bool isClean() const { return _clean == _done; }
    /// Marks the current state as saved, and so as clean.
    void setClean();

    /// How many commands can be undone at most; 0, the default, means any number. The oldest are discarded.
    void setLimit(std::size_t limit);
    std::size_t limit() const { return _limit; }

    /// Discards the whole history; the state is clean.
    void clear();

private:
    void discardUndone();
    void enforceLimit();
    bool mergeIntoNewest(const CO_Command& command);
    void forgetNewest();

    std::vector<std::unique_ptr<CO_Command>> _commands;
    std::size_t _done = 0;
    std::size_t _limit = 0;
    std::optional<std::size_t> _clean = 0;
    bool _mayMerge = false; ///< the newest command belongs to a run of changes that goes on
};
