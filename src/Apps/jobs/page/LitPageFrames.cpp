// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The same pictures that are written to files.
#include "jobs/page/LitPageFrames.h"

#include "QuarvelNormalMap/NM_Layers.h"
#include "QuarvelNormalMap/NM_NormalPicture.h"
#include "jobs/shown/LitSurface.h"

UT_Result<LitPageFrame> litPageFrame(const ShownFrame& frame, const NM_MapForm& form, bool elevation)
{
    UT_Result<IIO_Picture> drawing = litDrawing(frame);
    if (!drawing)
        return drawing.error();
    UT_Result<IIO_Picture> normals = NM_toPicture(*frame.picture, frame.window, {.yAxis = form.yAxis});
    if (!normals)
        return normals.error();
    NM_MapForm fine = form;
    fine.bits = 16;
    NM_finishMap(*normals, fine);
    LitPageFrame made{.drawing = std::move(*drawing), .normals = std::move(*normals), .elevation = {}, .lighting = {}};
    if (elevation) {
        UT_Result<IIO_Picture> heights = NM_elevationOf(*frame.picture, frame.elevationChannel(), frame.window,
                                                        frame.window, IIO_SampleType::UINT16);
        if (!heights)
            return heights.error();
        made.elevation = std::move(*heights);
    }
    return made;
}
