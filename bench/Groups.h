// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The functions that make the groups of benchmarks.
#pragma once

#include "Measuring.h"

#include <memory>

inline constexpr int kBevels[] = {2, 20, 200};
inline constexpr const char* kQualities[] = {"low", "medium", "high"};

using GroupMakers = std::vector<std::function<Group()>>;

/// From the accumulator of one object to the output, beside the peer's program and a copy of a frame.
GroupMakers wholeGroups();
/// Each stage by itself, beside the peer's.
GroupMakers stageGroups();
/// The blur of one float plane, beside OpenCV's and a copy of the plane.
GroupMakers blurGroups();
/// Several objects, several threads, several frames.
GroupMakers scalingGroups();
/// The steps of the command from a drawing's file to its normal map's.
GroupMakers commandGroups();
/// The choice of objects and forms beside painting the drawing once.
GroupMakers choiceGroups();

/// A value that is made on first use, shared by the cases of a group.
template<typename Value>
class Lazy
{
public:
    explicit Lazy(std::function<std::shared_ptr<Value>()> make)
        : _state(std::make_shared<State>(State{std::move(make), nullptr}))
    {}

    Value& operator*() const
    {
        if (!_state->value)
            _state->value = _state->make();
        return *_state->value;
    }
    Value* operator->() const { return &**this; }

private:
    struct State
    {
        std::function<std::shared_ptr<Value>()> make;
        std::shared_ptr<Value> value;
    };
    std::shared_ptr<State> _state;
};
