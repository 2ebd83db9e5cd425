// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_StateCmd: a command that sets the state before or after through one function.
#pragma once

#include "QuarvelSceneCore/editing/MO_EditCommand.h"

#include <QCoreApplication>

#include <utility>

/// Sets one of two states.
///
/// @tparam State  a value
/// @tparam Setter a function of a State
template<typename State, typename Setter>
class MO_StateCmd : public CO_Command
{
public:
    MO_StateCmd(QString name, State before, State after, Setter set)
        : _name(std::move(name)), _before(std::move(before)), _after(std::move(after)), _set(std::move(set))
    {}

    QString name() const override { return _name; }
    void execute() override { _set(_after); }
    void undo() override { _set(_before); }

private:
    QString _name;
    State _before;
    State _after;
    Setter _set;
};

template<typename State, typename Setter>
MO_EditCommand MO_makeStateCmd(const QString& name, State before, State after, Setter set)
{
    return std::make_unique<MO_StateCmd<State, Setter>>(name, std::move(before), std::move(after), std::move(set));
}

/// The translated texts of commands: their names, and the reasons for refusing.
struct MO_CommandTexts
{
    Q_DECLARE_TR_FUNCTIONS(MO_EditCommands)
};
