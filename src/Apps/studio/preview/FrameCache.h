// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// FrameCache: pictures of frames that were rendered, as many as a bound of memory allows.
#pragma once

#include "studio/preview/RenderedFrame.h"

#include <map>

/// Pictures by the number of their frame. For one thread.
class FrameCache
{
public:
    /// @param bytes that the pictures take together at most; one picture is always kept
    explicit FrameCache(qsizetype bytes) : _most(bytes) {}

    qsizetype mostBytes() const { return _most; }
    qsizetype bytes() const { return _bytes; }
    /// The picture of a frame; null when there is none.
    RenderedFramePtr find(int frame) const;
    /// Keeps a picture in place of the one of its frame. Where memory is short, those go first that are needed last
    /// when the frames are played on from this one, round and round.
    void keep(const RenderedFramePtr& picture);
    void clear();

private:
    std::map<int, RenderedFramePtr>::iterator neededLast(int frame);
    void remove(std::map<int, RenderedFramePtr>::iterator picture);

    qsizetype _most;
    qsizetype _bytes = 0;
    std::map<int, RenderedFramePtr> _pictures;
};
