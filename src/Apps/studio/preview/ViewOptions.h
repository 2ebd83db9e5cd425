// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ViewOptions: how the viewer shows a picture besides which one: a single channel, what lies behind it, and the border
// between before and after.
#pragma once

#include <QColor>
#include <QImage>

#include <optional>

/// What of a picture is shown.
enum class PictureChannel
{
    ALL,
    RED,
    GREEN,
    BLUE,
    ALPHA
};

/// What is seen through a picture that is lit or drawn: the picture where there is one, else the colour, else a
/// checkerboard.
struct ViewBackdrop
{
    QColor colour; ///< invalid: none
    QImage picture;
};

/// A plain value.
struct ViewOptions
{
    PictureChannel channel = PictureChannel::ALL;
    ViewBackdrop backdrop;
    /// Left of the border the drawing as it was is shown; a share of the picture's width, or nothing for no border.
    std::optional<double> border;
};
