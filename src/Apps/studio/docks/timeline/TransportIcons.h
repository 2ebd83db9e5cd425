// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// TransportIcons: the signs on the buttons of the timeline, painted in the colour of the palette's text.
#pragma once

#include <QIcon>
#include <QPalette>

/// What a button does.
enum class TransportSign
{
    FIRST,
    BACK,
    PLAY,
    STOP,
    FORTH,
    LAST
};

QIcon transportIcon(TransportSign sign, const QPalette& palette);
