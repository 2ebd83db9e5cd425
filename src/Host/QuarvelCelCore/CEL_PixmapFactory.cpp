// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The one place that maps a format's number to its class.
#include "QuarvelCelCore/CEL_PixmapFactory.h"

UT_SharedPtr<CEL_PixmapArea> CEL_PixmapFactory::create2d(int format, const Math::Size2di& size,
                                                         const Math::Box2di& canvas)
{
    switch (format) {
    case CEL_FORMAT_RGBA16:
        return UT_makeShared<CEL_PixmapAreaRGBA16>(size, canvas);
    case CEL_FORMAT_RGBAFLOAT:
        return UT_makeShared<CEL_PixmapAreaRGBAFloat>(size, canvas);
    case CEL_FORMAT_Z:
        return UT_makeShared<CEL_PixmapAreaZ>(size, canvas);
    default:
        return nullptr;
    }
}
