// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Copies of a module's scene that are changed for one render and kept for the next that needs the same change.
//
//     SceneCopies<int> copies(8); // by the frame's number
//     const auto copy = copies.of(frame, [&]() -> UT_Result<SceneCopy> { ... copySceneOf(module) and change it ... });
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

/// A copy of a scene, and the module in it that is rendered.
struct SceneCopy
{
    std::unique_ptr<MO_Scene> scene;
    MO_Module* module = nullptr;
};

/// Copies the scene of a module; the module of the copy is the one of the same name. To be called where
/// MO_copyScene() may be.
///
/// @return an error when the scene cannot be copied
UT_Result<SceneCopy> copySceneOf(const MO_Module& module);

/// The copies for the changes that were asked for last. Any number of threads may use it at once.
///
/// @tparam Change what tells one change from another
/// @tparam Value  made of a SceneCopy
template<typename Change, typename Value = SceneCopy>
class SceneCopies
{
public:
    /// @param most how many copies are kept
    explicit SceneCopies(std::size_t most = std::numeric_limits<std::size_t>::max()) : _most(most) {}

    /// The copy for a change. If there is none yet, it is made, and the one that was not asked for the longest gives
    /// way.
    ///
    /// @param make returns the changed copy, a UT_Result<SceneCopy>
    /// @return the error of make
    template<typename Make>
    UT_Result<std::shared_ptr<const Value>> of(const Change& change, const Make& make)
    {
        const std::scoped_lock lock(_mutex);
        const auto known =
            std::find_if(_kept.begin(), _kept.end(), [&](const auto& kept) { return kept.first == change; });
        if (known != _kept.end()) {
            std::rotate(known, known + 1, _kept.end());
            return _kept.back().second;
        }
        UT_Result<SceneCopy> made = make();
        if (!made)
            return made.error();
        if (_kept.size() >= _most)
            _kept.erase(_kept.begin());
        _kept.emplace_back(change, std::make_shared<const Value>(std::move(*made)));
        return _kept.back().second;
    }

private:
    std::size_t _most;
    std::mutex _mutex;
    std::vector<std::pair<Change, std::shared_ptr<const Value>>> _kept; // the one asked for last is the last
};
