// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The history: _commands holds the executed commands, of which the first _done are in effect. While there is something
// to redo, nothing can merge, since undo() has ended merging.
#include "QuarvelCommand/CO_CommandStack.h"

#include <algorithm>

CO_CommandStack::CO_CommandStack() = default;

CO_CommandStack::~CO_CommandStack() = default;

bool CO_CommandStack::execute(std::unique_ptr<CO_Command> command)
{
    if (!command || !command->hasEffect())
        return false;
    // Everything that can fail comes first, so that a failure leaves the history unchanged.
    if (_commands.size() == _commands.capacity())
        _commands.reserve(2 * _commands.size() + 1);
    command->execute();
    discardUndone();
    if (!mergeIntoNewest(*command)) {
        _commands.push_back(std::move(command));
        ++_done;
        enforceLimit();
        _mayMerge = true;
    } else if (!_commands[_done - 1]->hasEffect()) {
        forgetNewest();
    }
    tell();
    return true;
}

bool CO_CommandStack::undo()
{
    if (!canUndo())
        return false;
    _commands[_done - 1]->undo();
    --_done;
    _mayMerge = false;
    tell();
    return true;
}

bool CO_CommandStack::dropRun()
{
    if (!_mayMerge)
        return false;
    _commands[_done - 1]->undo();
    forgetNewest();
    tell();
    return true;
}

bool CO_CommandStack::redo()
{
    if (!canRedo())
        return false;
    _commands[_done]->redo();
    ++_done;
    tell();
    return true;
}

QString CO_CommandStack::undoName() const
{
    return canUndo() ? _commands[_done - 1]->name() : QString();
}

QString CO_CommandStack::redoName() const
{
    return canRedo() ? _commands[_done]->name() : QString();
}

QStringList CO_CommandStack::undoNames() const
{
    QStringList names;
    for (std::size_t i = 0; i < _done; ++i)
        names.append(_commands[i]->name());
    return names;
}

void CO_CommandStack::setClean()
{
    _clean = _done;
    _mayMerge = false;
    tell();
}

void CO_CommandStack::setLimit(std::size_t limit)
{
    _limit = limit;
    enforceLimit();
    tell();
}

void CO_CommandStack::clear()
{
    _commands.clear();
    _done = 0;
    _clean = 0;
    _mayMerge = false;
    tell();
}

void CO_CommandStack::discardUndone()
{
    if (!canRedo())
        return;
    _commands.resize(_done);
    if (_clean && *_clean > _done)
        _clean.reset();
}

void CO_CommandStack::enforceLimit()
{
    if (_limit == 0 || _done <= _limit)
        return;
    const std::size_t excess = _done - _limit;
    _commands.erase(_commands.begin(), _commands.begin() + static_cast<std::ptrdiff_t>(excess));
    _done -= excess;
    if (_clean)
        _clean = *_clean >= excess ? std::optional(*_clean - excess) : std::nullopt;
}

bool CO_CommandStack::mergeIntoNewest(const CO_Command& command)
{
    if (!_mayMerge || !_commands[_done - 1]->canMergeWith(command))
        return false;
    _commands[_done - 1]->mergeWith(command);
    return true;
}

// What follows must not continue the run before the forgotten one.
void CO_CommandStack::forgetNewest()
{
    _commands.pop_back();
    --_done;
    _mayMerge = false;
}
