// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// From pictures for files to images for the screen.
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"
#include "studio/preview/ViewOptions.h"

#include <QImage>

/// The image of a picture of 16-bit samples with the channels R G B A, Y A or Y: premultiplied, 8 bits a channel.
///
/// @return null when the memory is not enough
QImage imageOf(const IIO_Picture& picture);

/// One channel of an image as opaque grey, the colours without their coverage; the image itself for all channels.
///
/// @param image premultiplied, 8 bits a channel, or null
QImage channelOf(const QImage& image, PictureChannel channel);
