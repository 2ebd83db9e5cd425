// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The command is wrapped; all it does is done by the one inside.
#include "QuarvelSceneCore/editing/MO_NamedChange.h"

#include <utility>

namespace {

class NamedChange final : public CO_Command
{
public:
    NamedChange(MO_EditCommand change, MO_ChangeWords words) : _change(std::move(change)), _words(std::move(words)) {}

    QString name() const override
    {
        if (_words.from.isEmpty() && _words.to.isEmpty())
            return _words.what;
        return QStringLiteral("%1 %2 \u2192 %3").arg(_words.what, _words.from, _words.to);
    }
    void execute() override { _change->execute(); }
    void undo() override { _change->undo(); }
    void redo() override { _change->redo(); }
    bool hasEffect() const override { return _change->hasEffect(); }

    bool canMergeWith(const CO_Command& later) const override
    {
        const auto* const other = dynamic_cast<const NamedChange*>(&later);
        return other && other->_words.what == _words.what && _change->canMergeWith(*other->_change);
    }
    void mergeWith(const CO_Command& later) override
    {
        const auto& other = static_cast<const NamedChange&>(later);
        _change->mergeWith(*other._change);
        _words.to = other._words.to;
    }

private:
    MO_EditCommand _change;
    MO_ChangeWords _words;
};

} // namespace

MO_EditCommand MO_namedCmd(MO_EditCommand change, const MO_ChangeWords& words)
{
    return change ? std::make_unique<NamedChange>(std::move(change), words) : nullptr;
}
