// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// FrameCache: pictures of rendered frames, as many as fit into a memory limit.
#pragma once

#include "studio/preview/RenderedFrame.h"

#include <map>

/// Pictures by the number of their frame. Only one thread may use a cache.
class FrameCache
{
public:
    /// @param bytes the most memory for all pictures together; one picture is always kept
    explicit FrameCache(qsizetype bytes) : _most(bytes) {}

    qsizetype mostBytes() const { return _most; }
    qsizetype bytes() const { return _bytes; }
    /// The picture of a frame; null if it is not in the cache.
    RenderedFramePtr find(int frame) const;
    /// Keeps a picture and replaces the one of its frame. If memory is short, drops the pictures first that are needed
    /// last when the frames are played in a loop from this one on.
    void keep(const RenderedFramePtr& picture);
    void clear();

private:
    std::map<int, RenderedFramePtr>::iterator neededLast(int frame);
    void remove(std::map<int, RenderedFramePtr>::iterator picture);

    qsizetype _most;
    qsizetype _bytes = 0;
    std::map<int, RenderedFramePtr> _pictures;
};
