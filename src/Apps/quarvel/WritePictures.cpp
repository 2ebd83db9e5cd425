// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One function a picture: make it, write it.
#include "WritePictures.h"

#include "KeptMaps.h"
#include "QuarvelImageIO/IIO_PictureFile.h"
#include "QuarvelNormalMap/NM_DrawingPicture.h"
#include "QuarvelNormalMap/NM_HeightField.h"
#include "QuarvelNormalMap/NM_Layers.h"
#include "QuarvelNormalMap/NM_Lighting.h"
#include "QuarvelNormalMap/NM_LinearPicture.h"
#include "QuarvelNormalMap/NM_MapForm.h"
#include "QuarvelNormalMap/NM_MaskPicture.h"
#include "QuarvelNormalMap/NM_NormalPicture.h"
#include "QuarvelNormalMap/NM_Padding.h"
#include "QuarvelNormalMap/NM_TurnVectors.h"
#include "jobs/frames/FrameDigest.h"
#include "jobs/page/LitPageFrames.h"
#include "jobs/shown/LitSurface.h"
#include "jobs/shown/SurfacePictures.h"
#include "jobs/targets/Targets.h"

#include <QFileInfo>

namespace {

using Made = UT_Result<IIO_Picture>;

UT_Result<IIO_SampleType> samplesFor(const QString& file)
{
    const UT_Result<IIO_PictureFormat> format = IIO_pictureFormatOf(file);
    if (!format)
        return format.error();
    return format->samples;
}

// What a file of colours holds: floats are linear and multiplied by coverage.
Made forFile(Made picture, const QString& file, const NormalMapOptions& options, bool dither)
{
    if (picture && IIO_isFloatFile(file))
        return NM_linearPicture(*picture);
    if (picture && dither && mapFormFor(options, file).bits == 8)
        NM_ditherTo8Bits(*picture);
    return picture;
}

Made makeElevation(const RenderedDrawing& rendered, const NormalMapOptions& options, const QString& file)
{
    const auto samples = samplesFor(file);
    if (!samples)
        return samples.error();
    const ShownFrame& frame = rendered.frame;
    Made picture = NM_elevationOf(*frame.picture, frame.elevationChannel(), frame.window, frame.window, *samples);
    if (picture && mapFormFor(options, file).bits == 8)
        NM_ditherTo8Bits(*picture);
    return picture;
}

Made makeLayers(const ShownFrame& frame, const NormalMapOptions& options, const QString& file)
{
    const NM_YAxis yAxis = mapFormFor(options, file).yAxis;
    Made layers = NM_layersPicture(*frame.picture, frame.window, frame.window, yAxis, true, frame.drawing.get());
    return layers && options.form.objectNumbers ? withObjectNumbers(*layers, frame.objects) : std::move(layers);
}

Made makeNormalMap(const RenderedDrawing& rendered, const NormalMapOptions& options, const QString& file)
{
    const ShownFrame& frame = rendered.frame;
    if (frame.kind == RenderedKind::ELEVATION && !options.nodeLayout)
        return makeElevation(rendered, options, file);
    if (holdsLayers(options, file))
        return makeLayers(frame, options, file);
    const auto samples = samplesFor(file);
    if (!samples)
        return samples.error();
    const NM_MapForm form = mapFormFor(options, file);
    const NM_PictureSettings settings{.layout = options.nodeLayout ? NM_Layout::NODE : NM_Layout::TANGENT,
                                      .yAxis = form.yAxis,
                                      .samples = *samples,
                                      .dataWindow = {}};
    Made picture = NM_toPicture(options.nodeLayout ? *frame.channels : *frame.picture, frame.window, settings);
    if (picture && options.nodeLayout)
        NM_padColours(*picture, form.pad);
    else if (picture)
        NM_finishMap(*picture, form);
    if (picture && IIO_isFloatFile(file) && options.form.exr == ExrContent::SIGNED)
        NM_makeSigned(*picture);
    return picture;
}

Made makeDrawing(const RenderedDrawing& rendered, const NormalMapOptions& options, const QString& file)
{
    const auto samples = samplesFor(file);
    if (!samples)
        return samples.error();
    return forFile(NM_drawingPicture(*rendered.frame.drawing, rendered.frame.window, *samples), file, options, false);
}

Made makeLit(const RenderedDrawing& rendered, const NormalMapOptions& options, const QString& file)
{
    const UT_Result<NM_Surface> surface = litSurface(rendered.frame);
    if (!surface)
        return surface.error();
    return forFile(NM_litPicture(*surface, lightingOf(options.light)), file, options, true);
}

Made makeHeight(const RenderedDrawing& rendered, const NormalMapOptions&, const QString&)
{
    return heightPicture(rendered.frame);
}

Made makeOcclusion(const RenderedDrawing& rendered, const NormalMapOptions& options, const QString& file)
{
    const auto samples = samplesFor(file);
    if (!samples)
        return samples.error();
    const NM_MapForm form = mapFormFor(options, file);
    Made picture = occlusionPicture(rendered.frame, *samples, form.pad);
    if (picture && form.bits == 8)
        NM_ditherTo8Bits(*picture);
    return picture;
}

Made makeNumbers(const RenderedDrawing& rendered, const NormalMapOptions& options, const QString& file)
{
    const auto samples = samplesFor(file);
    if (!samples)
        return samples.error();
    return numbersPicture(rendered.frame, *samples, mapFormFor(options, file).bits);
}

Made makeGloss(const RenderedDrawing& rendered, const NormalMapOptions& options, const QString& file)
{
    const auto samples = samplesFor(file);
    if (!samples)
        return samples.error();
    return NM_paintedMaskPicture(*rendered.gloss.picture, rendered.frame.window, *samples, takesRoughness(options),
                                 mapFormFor(options, file).pad);
}

Made make(PictureKind kind, const RenderedDrawing& rendered, const NormalMapOptions& options, const QString& file)
{
    switch (kind) {
    case PictureKind::NORMAL_MAP:
        return makeNormalMap(rendered, options, file);
    case PictureKind::ELEVATION:
        return makeElevation(rendered, options, file);
    case PictureKind::LIT:
        return makeLit(rendered, options, file);
    case PictureKind::DRAWING:
        return makeDrawing(rendered, options, file);
    case PictureKind::HEIGHT:
        return makeHeight(rendered, options, file);
    case PictureKind::OCCLUSION:
        return makeOcclusion(rendered, options, file);
    case PictureKind::NUMBERS:
        return makeNumbers(rendered, options, file);
    case PictureKind::GLOSS:
        return makeGloss(rendered, options, file);
    }
    return UT_Error{QStringLiteral("%1: there is no such picture").arg(file), UT_ErrorKind::REFUSED};
}

// Heights keep 16 bits for every program, because 8 of them are visible as steps; --bits says otherwise.
UT_Result<void> writeHeights(IIO_Picture heights, const QString& file, const NormalMapOptions& options,
                             const PictureOrigin& origin)
{
    NormalMapOptions own = options;
    own.form.bits = options.form.bits.value_or(16);
    if (IIO_isFloatFile(file))
        return writePicture(std::move(heights), file, own, origin);
    NM_HeightRange range = NM_rangeOf(heights);
    if (options.heightRange)
        range = {.black = 0.0, .white = *options.heightRange};
    Made coded = NM_codedHeights(heights, range);
    if (!coded)
        return coded.error();
    if (mapFormFor(own, file).bits == 8)
        NM_ditherTo8Bits(*coded);
    return writePicture(std::move(*coded), file, own, origin);
}

UT_Result<void> writeFlips(const IIO_Picture& map, const QString& file, const NormalMapOptions& options,
                           const PictureOrigin& origin)
{
    for (const bool leftRight : {true, false}) {
        Made flipped = map.clone();
        if (!flipped)
            return flipped.error();
        NM_mirrorVectors(*flipped, leftRight, !leftRight);
        const QString name = flippedFile(file, leftRight);
        if (UT_Result<void> written = writePicture(std::move(*flipped), name, options, origin); !written)
            return written;
    }
    return {};
}

UT_Result<void> writePage(const ShownFrame& frame, const NormalMapOptions& options, const QString& file,
                          const PictureOrigin& origin)
{
    const NM_MapForm form = options.form.resolved(kFormForMost);
    UT_Result<LitPageFrame> shown = litPageFrame(frame, form, true);
    if (!shown)
        return shown.error();
    shown->lighting = lightingOf(options.light);
    LitPageFile page(file, {.name = QFileInfo(origin.drawing).completeBaseName(), .yAxis = form.yAxis});
    if (UT_Result<void> opened = page.open(); !opened)
        return opened;
    if (UT_Result<void> added = page.add(*shown); !added)
        return added;
    return page.finish();
}

} // namespace

std::vector<WantedPicture> picturesOf(const OutputFiles& files)
{
    std::vector<WantedPicture> wanted{{PictureKind::NORMAL_MAP, files.normalMap},
                                      {PictureKind::ELEVATION, files.elevation},
                                      {PictureKind::LIT, files.lit},
                                      {PictureKind::DRAWING, files.drawing},
                                      {PictureKind::HEIGHT, files.height},
                                      {PictureKind::OCCLUSION, files.occlusion},
                                      {PictureKind::NUMBERS, files.numbers},
                                      {PictureKind::GLOSS, files.gloss}};
    std::erase_if(wanted, [](const WantedPicture& picture) { return picture.file.isEmpty(); });
    return wanted;
}

bool takesRoughness(const NormalMapOptions& options)
{
    return options.form.target && options.form.target->beside.roughness;
}

bool holdsLayers(const NormalMapOptions& options, const QString& file)
{
    return IIO_isFloatFile(file) && !options.nodeLayout && options.form.exr == ExrContent::LAYERS;
}

ShownParts wantedPictures(const NormalMapOptions& options, const OutputFiles& files)
{
    const bool layers = options.settings.generateNormals && holdsLayers(options, files.normalMap);
    const bool page = !files.page.isEmpty();
    const bool heights = !files.height.isEmpty() || !files.occlusion.isEmpty();
    const bool objects = heights || !files.numbers.isEmpty() || (layers && options.form.objectNumbers);
    return {.elevation = layers || page || heights || !files.elevation.isEmpty(),
            .drawing = layers || page || objects || !files.lit.isEmpty() || !files.drawing.isEmpty(),
            .channels = options.nodeLayout,
            .objects = objects};
}

UT_Result<void> makePictures(const RenderedDrawing& rendered, const NormalMapOptions& options, const OutputFiles& files,
                             const TakePicture& take, const JobProgress& progress)
{
    const std::vector<WantedPicture> wanted = picturesOf(files);
    double done = 0.0;
    for (const auto& [kind, file] : wanted) {
        Made picture = make(kind, rendered, options, file);
        if (!picture)
            return picture.error();
        if (UT_Result<void> taken = take(kind, file, std::move(*picture)); !taken)
            return taken;
        done += 1.0 / static_cast<double>(wanted.size());
        // Whoever asks to stop now gets all pictures of the drawing, which are quick to make once it is rendered.
        if (progress)
            progress(done);
    }
    return {};
}

UT_Result<void> writePicture(IIO_Picture picture, const QString& file, const NormalMapOptions& options,
                             const PictureOrigin& origin)
{
    picture.metadata().set(QStringLiteral("Source"), QFileInfo(origin.drawing).fileName());
    if (!origin.digest.isEmpty())
        picture.metadata().set(kFrameDigestKey, QLatin1String(origin.digest));
    IIO_WriteOptions how;
    how.pngBits = mapFormFor(options, file).bits;
    how.exrDepth = options.form.half ? IIO_ExrDepth::HALF : IIO_ExrDepth::FLOAT;
    return IIO_write(file, picture, how);
}

UT_Result<void> writeMap(IIO_Picture map, const QString& file, const NormalMapOptions& options,
                         const PictureOrigin& origin)
{
    if (options.flips)
        if (UT_Result<void> written = writeFlips(map, file, options, origin); !written)
            return written;
    return writePicture(std::move(map), file, options, origin);
}

UT_Result<void> writeFinished(PictureKind kind, IIO_Picture picture, const QString& file,
                              const NormalMapOptions& options, const PictureOrigin& origin)
{
    const PictureOrigin own{origin.drawing, digestOfPicture(origin.digest, kind)};
    switch (kind) {
    case PictureKind::NORMAL_MAP:
        return writeMap(std::move(picture), file, options, own);
    case PictureKind::HEIGHT:
        return writeHeights(std::move(picture), file, options, own);
    default:
        return writePicture(std::move(picture), file, options, own);
    }
}

UT_Result<void> writePictures(const RenderedDrawing& rendered, const NormalMapOptions& options,
                              const OutputFiles& files, const PictureOrigin& origin, const JobProgress& progress)
{
    const auto write = [&](PictureKind kind, const QString& file, IIO_Picture picture) {
        return writeFinished(kind, std::move(picture), file, options, origin);
    };
    if (UT_Result<void> made = makePictures(rendered, options, files, write, progress); !made)
        return made;
    return files.page.isEmpty() ? UT_Result<void>() : writePage(rendered.frame, options, files.page, origin);
}
