// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Of a loop that does not fit, one part is kept. If the cache dropped the oldest pictures, as is usual, each of them
// would be dropped just before it is played again, and none would ever be found.
#include "studio/preview/FrameCache.h"

#include <iterator>

RenderedFramePtr FrameCache::find(int frame) const
{
    const auto found = _pictures.find(frame);
    return found == _pictures.end() ? nullptr : found->second;
}

void FrameCache::keep(const RenderedFramePtr& picture)
{
    if (const auto old = _pictures.find(picture->frame); old != _pictures.end())
        remove(old);
    while (!_pictures.empty() && _bytes + picture->bytes() > _most)
        remove(neededLast(picture->frame));
    _pictures.emplace(picture->frame, picture);
    _bytes += picture->bytes();
}

// The picture before the given frame, or the last of all: the one that playing reaches last.
std::map<int, RenderedFramePtr>::iterator FrameCache::neededLast(int frame)
{
    const auto next = _pictures.lower_bound(frame);
    return std::prev(next == _pictures.begin() ? _pictures.end() : next);
}

void FrameCache::remove(std::map<int, RenderedFramePtr>::iterator picture)
{
    _bytes -= picture->second->bytes();
    _pictures.erase(picture);
}

void FrameCache::clear()
{
    _pictures.clear();
    _bytes = 0;
}
