// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reuses the memory of the image.
#include "studio/preview/LitImage.h"

const QImage& LitImage::image(const RenderedFramePtr& frame, const NM_LightingSettings& lighting)
{
    if (frame == _frame)
        return _image;
    _frame = frame;
    const NM_Surface& surface = frame->surface;
    if (_image.width() != surface.width() || _image.height() != surface.height())
        _image = QImage(surface.width(), surface.height(), QImage::Format_ARGB32_Premultiplied);
    if (!_image.isNull())
        NM_light(surface, lighting, NM_ScreenPixels::PREMULTIPLIED_ARGB,
                 {_image.bits(), static_cast<std::size_t>(_image.sizeInBytes())});
    return _image;
}
