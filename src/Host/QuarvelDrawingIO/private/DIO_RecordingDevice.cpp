// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The metrics that the recording device reports.
#include "QuarvelDrawingIO/private/DIO_RecordingDevice.h"

#include <cmath>

namespace {

constexpr int kDotsPerInch = 96;

int millimetres(int pixels)
{
    return static_cast<int>(std::lround(pixels * 25.4 / kDotsPerInch));
}

} // namespace

int DIO_RecordingDevice::metric(PaintDeviceMetric metric) const
{
    switch (metric) {
    case PdmWidth:
        return _size.width();
    case PdmHeight:
        return _size.height();
    case PdmWidthMM:
        return millimetres(_size.width());
    case PdmHeightMM:
        return millimetres(_size.height());
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return kDotsPerInch;
    case PdmNumColors:
        return 1 << 24;
    case PdmDepth:
        return 32;
    case PdmDevicePixelRatio:
        return 1;
    case PdmDevicePixelRatioScaled:
        return static_cast<int>(devicePixelRatioFScale());
    default:
        return QPaintDevice::metric(metric);
    }
}
