// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ViewOptions: how the viewer shows a picture: all channels or a single one, the backdrop, and the border between
// before and after.
#pragma once

#include <QColor>
#include <QImage>

#include <optional>

/// The channels that are shown.
enum class PictureChannel
{
    ALL,
    RED,
    GREEN,
    BLUE,
    ALPHA
};

/// The backdrop behind a lit picture or a drawing: the picture if there is one, else the colour, else a checkerboard.
struct ViewBackdrop
{
    QColor colour; ///< invalid for no colour
    QImage picture;
};

/// A plain value.
struct ViewOptions
{
    PictureChannel channel = PictureChannel::ALL;
    ViewBackdrop backdrop;
    /// The place of the border as a share of the picture's width; left of it, the unlit drawing is shown. Without a
    /// value there is no border.
    std::optional<double> border;
};
