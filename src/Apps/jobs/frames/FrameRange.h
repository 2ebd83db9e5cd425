// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// FrameRange: a range of frames in the notation of people:
//
//     5            one frame
//     1-10         all frames from 1 to 10, both included
//     1-10x2       every second frame: 1 3 5 7 9
//     -5--1,3,7-9  several of these, joined by commas; frames may be negative
//
// Other notations of render farms' schedulers are accepted too: 1..10, 1-10:2, and blanks or semicolons instead of
// commas.
//
// A range is stored as its parts and expanded only within the frames of a scene, so that a huge range costs nothing.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <cstdint>
#include <vector>

/// The frames of a range that a scene has, and the number of those that it lacks.
struct FrameList
{
    std::vector<int> frames;  ///< in the order of the range, each once
    std::int64_t outside = 0; ///< how many numbers of the range lie outside the scene
};

/// A range of frames. A plain value.
class FrameRange
{
public:
    /// The largest number of frames in one run.
    static constexpr std::int64_t kMaxFrames = 1'000'000;

    /// Reads a range.
    ///
    /// @return an error that names the invalid part and what was expected; parts that run backwards, steps below 1 and
    /// numbers with more than nine digits are invalid
    static UT_Result<FrameRange> parse(const QString& text);
    /// All frames from first to last, both included.
    static FrameRange all(int first, int last);

    /// The frames of the range from first to last, both included.
    ///
    /// @return an error if there are more than kMaxFrames
    UT_Result<FrameList> within(int first, int last) const;

private:
    struct Part
    {
        std::int64_t first;
        std::int64_t last;
        std::int64_t step;
    };

    std::vector<Part> _parts;
};

/// Every count-th frame of a list, starting at the index-th; the shards 1/count to count/count together are the list.
///
/// @param index 1 to count
std::vector<int> shardOf(const std::vector<int>& frames, int index, int count);
