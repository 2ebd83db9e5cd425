// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LatestValue: what the text of a table stands for, worked out once. A node is asked for it at every input; where each
// object has an input of its own, working it out each time would take time in the square of the number of objects.
#pragma once

#include <QString>

#include <mutex>
#include <optional>

/// The value of the text that was asked for last. Any number of threads may ask at once.
template<typename Value>
class LatestValue
{
public:
    /// @param decode makes the value of a text; always the same function
    template<typename Decode>
    Value of(const QString& text, const Decode& decode) const
    {
        const std::lock_guard lock(_mutex);
        // A text that shares its data with the latest one needs no comparison.
        const bool isShared = text.constData() == _text.constData() && text.size() == _text.size();
        if (!_value || (!isShared && text != _text))
            _value = decode(text);
        _text = text;
        return *_value;
    }

private:
    mutable std::mutex _mutex;
    mutable QString _text;
    mutable std::optional<Value> _value; // none before the first question
};
