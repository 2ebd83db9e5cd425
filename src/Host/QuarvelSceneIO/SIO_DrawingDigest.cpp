// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The digest covers the files that a drawing and its palette would be saved as, because these hold all their
// properties.
#include "QuarvelSceneIO/SIO_DrawingDigest.h"

#include "QuarvelSceneIO/private/SIO_Drawing.h"
#include "QuarvelSceneIO/private/SIO_JournalText.h"
#include "QuarvelSceneIO/private/SIO_Palette.h"

UT_Result<QByteArray> SIO_drawingDigest(const CELVEC_Kvd& drawing)
{
    const auto bytes = SIO_writeDrawing(drawing, QString());
    if (!bytes)
        return bytes.error();
    return SIO_digest(drawing.palette() ? *bytes + SIO_writePalette(*drawing.palette()) : *bytes);
}
