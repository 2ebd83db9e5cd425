// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One function a picture: make it, write it.
#include "WritePictures.h"

#include "QuarvelImageIO/IIO_PictureFile.h"
#include "QuarvelNormalMap/NM_DrawingPicture.h"
#include "QuarvelNormalMap/NM_Layers.h"
#include "QuarvelNormalMap/NM_Lighting.h"
#include "QuarvelNormalMap/NM_MapForm.h"
#include "QuarvelNormalMap/NM_NormalPicture.h"
#include "QuarvelNormalMap/NM_Padding.h"
#include "jobs/shown/LitSurface.h"

#include <QFileInfo>

namespace {

using Written = UT_Result<void>;

Written write(UT_Result<IIO_Picture> picture, const QString& file, const NormalMapOptions& options,
              const QString& drawing)
{
    if (!picture)
        return picture.error();
    picture->metadata().set(QStringLiteral("Source"), QFileInfo(drawing).fileName());
    IIO_WriteOptions how;
    how.pngBits = mapFormFor(options, file).bits;
    how.exrDepth = options.halfFloat ? IIO_ExrDepth::HALF : IIO_ExrDepth::FLOAT;
    return IIO_write(file, *picture, how);
}

UT_Result<IIO_SampleType> samplesFor(const QString& file)
{
    const UT_Result<IIO_PictureFormat> format = IIO_pictureFormatOf(file);
    if (!format)
        return format.error();
    return format->samples;
}

UT_Result<IIO_Picture> dithered(UT_Result<IIO_Picture> picture, const NM_MapForm& form)
{
    if (picture && form.bits == 8)
        NM_ditherTo8Bits(*picture);
    return picture;
}

Written writeElevation(const ShownFrame& frame, const NormalMapOptions& options, const QString& file,
                       const QString& drawing)
{
    const auto samples = samplesFor(file);
    if (!samples)
        return samples.error();
    return write(
        dithered(NM_elevationOf(*frame.picture, frame.elevationChannel(), frame.window, frame.window, *samples),
                 mapFormFor(options, file)),
        file, options, drawing);
}

Written writeNormalMap(const ShownFrame& frame, const NormalMapOptions& options, const QString& file,
                       const QString& drawing)
{
    if (frame.kind == RenderedKind::ELEVATION && !options.nodeLayout)
        return writeElevation(frame, options, file, drawing);
    const auto samples = samplesFor(file);
    if (!samples)
        return samples.error();
    const NM_MapForm form = mapFormFor(options, file);
    const NM_PictureSettings settings{.layout = options.nodeLayout ? NM_Layout::NODE : NM_Layout::TANGENT,
                                      .yAxis = form.yAxis,
                                      .samples = *samples,
                                      .dataWindow = {}};
    UT_Result<IIO_Picture> picture =
        NM_toPicture(options.nodeLayout ? *frame.channels : *frame.picture, frame.window, settings);
    if (picture && options.nodeLayout)
        NM_padColours(*picture, form.pad);
    else if (picture)
        NM_finishMap(*picture, form);
    return write(std::move(picture), file, options, drawing);
}

Written writeDrawing(const ShownFrame& frame, const NormalMapOptions& options, const QString& file,
                     const QString& drawing)
{
    const auto samples = samplesFor(file);
    if (!samples)
        return samples.error();
    return write(NM_drawingPicture(*frame.drawing, frame.window, *samples), file, options, drawing);
}

Written writeLit(const ShownFrame& frame, const NormalMapOptions& options, const QString& file, const QString& drawing)
{
    const UT_Result<NM_Surface> surface = litSurface(frame);
    if (!surface)
        return surface.error();
    return write(dithered(NM_litPicture(*surface, lightingOf(options.light)), mapFormFor(options, file)), file, options,
                 drawing);
}

} // namespace

ShownParts wantedPictures(const NormalMapOptions& options, const OutputFiles& files)
{
    return {.elevation = !files.elevation.isEmpty(),
            .drawing = !files.lit.isEmpty() || !files.drawing.isEmpty(),
            .channels = options.nodeLayout};
}

UT_Result<void> writePictures(const ShownFrame& frame, const NormalMapOptions& options, const OutputFiles& files,
                              const QString& drawing, const JobProgress& progress)
{
    using Writer = Written (*)(const ShownFrame&, const NormalMapOptions&, const QString&, const QString&);
    const std::pair<const QString&, Writer> work[] = {{files.normalMap, writeNormalMap},
                                                      {files.elevation, writeElevation},
                                                      {files.lit, writeLit},
                                                      {files.drawing, writeDrawing}};
    double done = 0.0;
    for (const auto& [file, writer] : work) {
        if (!file.isEmpty())
            if (Written written = writer(frame, options, file, drawing); !written)
                return written;
        done += 1.0 / std::size(work);
        if (progress)
            progress(done);
    }
    return {};
}
