// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// AT_ChangeCmd: the command behind most changes of attributes. It stores the states before and after and sets one or
// the other; when the attribute has been deleted, it does nothing.
#pragma once

#include "QuarvelBaseCore/UT_SharedWeakBase.h"
#include "QuarvelCommand/CO_Command.h"

#include <QString>

#include <utility>

/// Changes the state of an attribute.
///
/// @tparam Attr the attribute's class
/// @tparam State what changes, a value that can be compared
template<typename Attr, typename State>
class AT_ChangeCmd : public CO_Command
{
public:
    /// Sets a state.
    using Setter = void (*)(Attr& attr, const State& state);

    /// @param subject the part of the attribute that is changed; consecutive commands with the same subject merge,
    /// unless it is empty
    AT_ChangeCmd(Attr& attr, const QString& name, Setter setter, State before, State after, const QString& subject)
        : _attr(&attr)
        , _name(name)
        , _setter(setter)
        , _before(std::move(before))
        , _after(std::move(after))
        , _subject(subject)
    {}

    QString name() const override { return _name; }
    void execute() override { put(_after); }
    void undo() override { put(_before); }
    bool hasEffect() const override { return !(_before == _after); }

    bool canMergeWith(const CO_Command& later) const override
    {
        const auto* other = dynamic_cast<const AT_ChangeCmd*>(&later);
        return other && !_subject.isEmpty() && other->_subject == _subject && other->_setter == _setter &&
               _attr.get() && other->_attr.get() == _attr.get();
    }

    void mergeWith(const CO_Command& later) override { _after = static_cast<const AT_ChangeCmd&>(later)._after; }

private:
    void put(const State& state)
    {
        if (Attr* attr = _attr.get())
            _setter(*attr, state);
    }

    UT_WeakPtr<Attr> _attr;
    QString _name;
    Setter _setter;
    State _before;
    State _after;
    QString _subject;
};
