// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The kinds of pictures of a frame that the viewer can show.
#pragma once

#include <QMetaType>

enum class PictureKind
{
    DRAWING,
    ELEVATION,
    NORMALS,
    LIT
};

Q_DECLARE_METATYPE(PictureKind)
