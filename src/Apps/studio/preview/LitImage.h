// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LitImage: the lit picture, computed anew only when the frame or the light is another.
#pragma once

#include "studio/preview/LightModel.h"
#include "studio/preview/RenderedFrame.h"

#include <QImage>

/// The lit picture of a frame.
class LitImage
{
public:
    /// The image of a frame under lights; null when the memory is not enough.
    const QImage& image(const RenderedFramePtr& frame, const NM_LightingSettings& lighting);
    /// The lights are others; the next image() computes.
    void lightChanged() { _frame.reset(); }

private:
    RenderedFramePtr _frame;
    QImage _image;
};
