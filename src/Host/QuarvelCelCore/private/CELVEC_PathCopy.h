// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CELVEC_PathCopy: the memory of one path after the other. Paths keep what was worked out from them (bounds, three
// kilobytes of the painter's form) behind their const functions, unguarded; one drawing is painted for several frames
// at once, and a large one has no room for what is needed once.
#pragma once

#include <QPainterPath>

class CELVEC_PathCopy
{
public:
    /// The copy of a path, valid until the next call.
    const QPainterPath& of(const QPainterPath& path)
    {
        _copy.clear();
        _copy.addPath(path);
        _copy.setFillRule(path.fillRule());
        return _copy;
    }

private:
    QPainterPath _copy;
};
