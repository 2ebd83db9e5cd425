// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One function a picture: make it, write it.
#include "WritePictures.h"

#include "QuarvelImageIO/IIO_PictureFile.h"
#include "QuarvelNormalMap/NM_DrawingPicture.h"
#include "QuarvelNormalMap/NM_Elevation.h"
#include "QuarvelNormalMap/NM_Lighting.h"
#include "QuarvelNormalMap/NM_NormalPicture.h"
#include "QuarvelNormalMap/NM_Padding.h"

#include <QFileInfo>

#include <cmath>
#include <numbers>

namespace {

using Written = UT_Result<void>;

Written write(UT_Result<IIO_Picture> picture, const QString& file, const NormalMapOptions& options,
              const QString& drawing)
{
    if (!picture)
        return picture.error();
    picture->metadata().set(QStringLiteral("Source"), QFileInfo(drawing).fileName());
    IIO_WriteOptions how;
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

Written writeNormalMap(const RenderedPictures& pictures, const NormalMapOptions& options, const QString& file,
                       const QString& drawing)
{
    const auto samples = samplesFor(file);
    if (!samples)
        return samples.error();
    if (!options.settings.generateNormals && !options.nodeLayout)
        return write(NM_elevationPicture(*pictures.node, nullptr, pictures.frame, *samples), file, options, drawing);
    const NM_PictureSettings settings{.layout = options.nodeLayout ? NM_Layout::NODE : NM_Layout::TANGENT,
                                      .yAxis = options.yDown ? NM_YAxis::DOWN : NM_YAxis::UP,
                                      .samples = *samples,
                                      .dataWindow = {}};
    UT_Result<IIO_Picture> picture = NM_toPicture(*pictures.node, pictures.frame, settings);
    if (picture && options.pad > 0)
        NM_padColours(*picture, options.pad);
    return write(std::move(picture), file, options, drawing);
}

Written writeElevation(const RenderedPictures& pictures, const NormalMapOptions& options, const QString& file,
                       const QString& drawing)
{
    const auto samples = samplesFor(file);
    if (!samples)
        return samples.error();
    const CEL_PixmapArea* coverage = options.settings.generateNormals ? pictures.node.get() : nullptr;
    return write(NM_elevationPicture(*pictures.elevation, coverage, pictures.frame, *samples), file, options, drawing);
}

Written writeDrawing(const RenderedPictures& pictures, const NormalMapOptions& options, const QString& file,
                     const QString& drawing)
{
    const auto samples = samplesFor(file);
    if (!samples)
        return samples.error();
    return write(NM_drawingPicture(*pictures.drawing, pictures.frame, *samples), file, options, drawing);
}

// The ambient light makes up for what the light leaves of full light on a surface that faces the viewer.
NM_LightingSettings lighting(const NormalMapOptions& options)
{
    NM_LightingSettings settings;
    settings.lights = {NM_Light{.azimuth = options.lightAzimuth, .height = options.lightHeight}};
    const auto ambient = static_cast<float>(1.0 - std::sin(options.lightHeight * std::numbers::pi / 180.0));
    settings.ambient = {ambient, ambient, ambient};
    return settings;
}

Written writeLit(const RenderedPictures& pictures, const NormalMapOptions& options, const QString& file,
                 const QString& drawing)
{
    UT_Result<IIO_Picture> flat = NM_drawingPicture(*pictures.drawing, pictures.frame, IIO_SampleType::UINT16);
    if (!flat)
        return flat.error();
    UT_Result<NM_Surface> surface = NM_Surface::create({pictures.frame.width(), pictures.frame.height()});
    if (!surface)
        return surface.error();
    if (Written set = surface->setDrawing(*flat); !set)
        return set;
    if (Written set = surface->setNormals(*pictures.node, pictures.frame); !set)
        return set;
    return write(NM_litPicture(*surface, lighting(options)), file, options, drawing);
}

} // namespace

WantedPictures wantedPictures(const NormalMapOptions& options, const OutputFiles& files)
{
    return {.elevation = !files.elevation.isEmpty(),
            .drawing = !files.lit.isEmpty() || !files.drawing.isEmpty(),
            .blueAsSet = options.nodeLayout};
}

UT_Result<void> writePictures(const RenderedPictures& pictures, const NormalMapOptions& options,
                              const OutputFiles& files, const QString& drawing, const JobProgress& progress)
{
    using Writer = Written (*)(const RenderedPictures&, const NormalMapOptions&, const QString&, const QString&);
    const std::pair<const QString&, Writer> work[] = {{files.normalMap, writeNormalMap},
                                                      {files.elevation, writeElevation},
                                                      {files.lit, writeLit},
                                                      {files.drawing, writeDrawing}};
    double done = 0.0;
    for (const auto& [file, writer] : work) {
        if (!file.isEmpty())
            if (Written written = writer(pictures, options, file, drawing); !written)
                return written;
        done += 1.0 / std::size(work);
        if (progress)
            progress(done);
    }
    return {};
}
