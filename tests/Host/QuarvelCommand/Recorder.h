// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A command for tests: it appends to a text and undoes that, and fails on request.
#pragma once

#include "QuarvelCommand/CO_Command.h"

#include <memory>
#include <stdexcept>

/// Appends a letter to a text.
class Append : public CO_Command
{
public:
    enum class Fails
    {
        NEVER,
        EXECUTE,
        UNDO,
        REDO
    };

    Append(QString& text, char letter, Fails fails = Fails::NEVER)
        : _text(text), _letters(QLatin1Char(letter)), _fails(fails)
    {}

    static std::unique_ptr<CO_Command> make(QString& text, char letter, Fails fails = Fails::NEVER)
    {
        return std::make_unique<Append>(text, letter, fails);
    }

    QString name() const override { return QStringLiteral("Append ") + _letters; }
    void execute() override { append(Fails::EXECUTE); }
    void redo() override { append(Fails::REDO); }

    void undo() override
    {
        failIf(Fails::UNDO);
        _text.chop(_letters.size());
    }

    /// Lower-case letters are the small steps of one change and can merge.
    bool canMergeWith(const CO_Command& later) const override
    {
        const auto* other = dynamic_cast<const Append*>(&later);
        return other && _letters[0].isLower() && other->_letters[0].isLower();
    }

    void mergeWith(const CO_Command& later) override { _letters += static_cast<const Append&>(later)._letters; }

private:
    void append(Fails when)
    {
        failIf(when);
        _text += _letters;
    }

    void failIf(Fails when) const
    {
        if (_fails == when)
            throw std::runtime_error("told to fail");
    }

    QString& _text;
    QString _letters;
    Fails _fails;
};
