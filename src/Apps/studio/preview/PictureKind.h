// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The pictures that the viewer shows of a frame.
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
