// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Rows in parallel.
#include "QuarvelCelCore/CELVEC_SeamClosing.h"

#include "QuarvelCelCore/CEL_WithFormat.h"
#include "QuarvelCelCore/private/CELVEC_RowKernels.h"
#include "QuarvelVectorLanes/VL_ParallelFor.h"

void CELVEC_closeSeams(CEL_PixmapArea& pixmap)
{
    auto* const pixels = CEL_asFormat<CEL_PixelRGBAFloat>(pixmap);
    if (!pixels)
        return;
    const Math::Box2di& rect = pixels->allocatedRect();
    VL_parallelFor(tbb::blocked_range<int>(rect.y1, rect.y2, 16), [&](const tbb::blocked_range<int>& rows) {
        for (int y = rows.begin(); y < rows.end(); ++y)
            CELVEC_RowKernels::close(pixels->row(y));
    });
}
