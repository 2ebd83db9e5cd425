// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// FrameRange: which frames are meant, as a person writes it down:
//
//     5            one frame
//     1-10         all from 1 to 10, both included
//     1-10x2       every second one: 1 3 5 7 9
//     -5--1,3,7-9  several of these, joined by commas; frames may be negative
//
// Schedulers of render farms spell the same in other ways, which are read as well: 1..10, 1-10:2, and blanks or
// semicolons in place of commas.
//
// A range is kept as it was written and only counted out within the frames of a scene, so that a range over all
// numbers costs nothing.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <cstdint>
#include <vector>

/// The frames of a range that a scene has, and how many it does not have.
struct FrameList
{
    std::vector<int> frames;  ///< in the order in which they were written, each once
    std::int64_t outside = 0; ///< how many numbers of the range lie outside of the scene
};

/// A range of frames. A plain value.
class FrameRange
{
public:
    /// More frames than this are not rendered in one run.
    static constexpr std::int64_t kMaxFrames = 1'000'000;

    /// Reads a range.
    ///
    /// @return an error that says which part was not understood and what is meant to stand there; parts that run
    ///     backwards, steps below 1 and numbers beyond nine digits are none
    static UT_Result<FrameRange> parse(const QString& text);
    /// All frames from first to last, both included.
    static FrameRange all(int first, int last);

    /// The frames of the range from first to last, both included.
    ///
    /// @return an error when they are more than kMaxFrames
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

/// Every count-th frame of a list from the index-th on, so that the shards 1/count to count/count make up the list.
///
/// @param index 1 to count
std::vector<int> shardOf(const std::vector<int>& frames, int index, int count);
