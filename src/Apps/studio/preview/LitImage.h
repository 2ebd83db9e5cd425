// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LitImage: the lit picture, which is computed again only if the frame or the light has changed.
#pragma once

#include "studio/preview/LightModel.h"
#include "studio/preview/RenderedFrame.h"

#include <QImage>

/// The lit picture of a frame.
class LitImage
{
public:
    /// The image of a frame under lights; null if there is not enough memory.
    const QImage& image(const RenderedFramePtr& frame, const NM_LightingSettings& lighting);
    /// Must be called when the lights have changed; the next image() computes the picture again.
    void lightChanged() { _frame.reset(); }

private:
    RenderedFramePtr _frame;
    QImage _image;
};
