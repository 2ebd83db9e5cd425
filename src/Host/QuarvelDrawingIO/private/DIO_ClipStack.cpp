// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Uniting and intersecting clips; very detailed ones are not intersected at all.
#include "QuarvelDrawingIO/private/DIO_ClipStack.h"

#include "QuarvelDrawingIO/DIO_PathSets.h"

void DIO_ClipStack::add(const QPainterPath& path)
{
    _gathered = DIO_united({*_gathered, path}, &_work);
}

void DIO_ClipStack::end()
{
    if (!_gathered)
        return;
    _clips.push_back(_clips.empty() ? *_gathered : intersection(_clips.back(), *_gathered));
    _gathered.reset();
}

void DIO_ClipStack::pop()
{
    if (!_clips.empty())
        _clips.pop_back();
}

QPainterPath DIO_ClipStack::intersection(const QPainterPath& outer, const QPainterPath& inner)
{
    const std::optional<QPainterPath> both = DIO_intersected(outer, inner, &_work);
    _skipped += both ? 0 : 1;
    return both.value_or(inner);
}
