// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_NumbersCmd: changes several numbers as one change. During a drag some of them may stay as they are and change
// later; the commands merge all the same, which single commands for each number would not.
#pragma once

#include "QuarvelBaseCore/UT_SharedWeakBase.h"
#include "QuarvelSceneCore/attributes/AT_AnimatableAttr.h"
#include "QuarvelSceneCore/editing/MO_EditCommand.h"

#include <algorithm>
#include <memory>
#include <vector>

/// Consecutive commands with the same name and the same numbers merge. A number that has been deleted is left out.
class MO_NumbersCmd : public CO_Command
{
public:
    using Numbers = std::vector<AT_AnimatableAttr*>;
    using States = std::vector<AT_AnimatableAttr::State>;

    /// @param keeper keeps the numbers alive; null where the scene does so
    /// @param after  the states of the numbers after the change, as many
    MO_NumbersCmd(const QString& name, const std::shared_ptr<void>& keeper, const Numbers& numbers, const States& after)
        : _name(name), _keeper(keeper), _after(after)
    {
        for (AT_AnimatableAttr* const number : numbers) {
            _numbers.emplace_back(number);
            _before.push_back(number->state());
        }
    }

    QString name() const override { return _name; }
    void execute() override { put(_after); }
    void undo() override { put(_before); }
    bool hasEffect() const override { return _before != _after; }
    bool canMergeWith(const CO_Command& later) const override
    {
        const auto* const other = dynamic_cast<const MO_NumbersCmd*>(&later);
        return other && other->_name == _name &&
               std::ranges::equal(_numbers, other->_numbers, {}, &Number::get, &Number::get);
    }
    void mergeWith(const CO_Command& later) override { _after = static_cast<const MO_NumbersCmd&>(later)._after; }

private:
    using Number = UT_WeakPtr<AT_AnimatableAttr>;

    void put(const States& states) const
    {
        for (std::size_t i = 0; i < _numbers.size(); ++i)
            if (AT_AnimatableAttr* const number = _numbers[i].get())
                number->setState(states[i]);
    }

    QString _name;
    std::shared_ptr<void> _keeper;
    std::vector<Number> _numbers;
    States _before;
    States _after;
};
