// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One function for each kind of picture.
#include "jobs/shown/FramePicture.h"

#include "QuarvelImageIO/IIO_PictureFile.h"
#include "QuarvelNormalMap/NM_DrawingPicture.h"
#include "QuarvelNormalMap/NM_Layers.h"
#include "QuarvelNormalMap/NM_LinearPicture.h"
#include "QuarvelNormalMap/NM_NormalPicture.h"
#include "QuarvelNormalMap/NM_Padding.h"

#include "jobs/shown/SurfacePictures.h"

#include <QStringList>

namespace {

bool asLayers(const FramePictureSettings& settings)
{
    return settings.floatFile && settings.layout == NM_Layout::TANGENT && settings.exr == ExrContent::LAYERS;
}

IIO_SampleType samplesOf(const FramePictureSettings& settings)
{
    return settings.floatFile ? IIO_SampleType::FLOAT : IIO_SampleType::UINT16;
}

Math::Box2di dataWindow(const CEL_PixmapArea& pixmap, const Math::Box2di& window, const FramePictureSettings& settings)
{
    Math::Box2di all = window;
    if (settings.floatFile)
        all.add(pixmap.allocatedRect());
    return all;
}

UT_Result<IIO_Picture> normals(const CEL_PixmapArea& pixmap, const CEL_PixmapArea* drawing, const Math::Box2di& window,
                               const FramePictureSettings& settings)
{
    const Math::Box2di data = dataWindow(pixmap, window, settings);
    if (asLayers(settings))
        return NM_layersPicture(pixmap, window, data, settings.form.yAxis, settings.elevation, drawing);
    return NM_toPicture(
        pixmap, window,
        {.layout = settings.layout, .yAxis = settings.form.yAxis, .samples = samplesOf(settings), .dataWindow = data});
}

UT_Result<IIO_Picture> pictureOf(const CEL_PixmapArea& pixmap, const CEL_PixmapArea* drawing,
                                 const Math::Box2di& window, const FramePictureSettings& settings)
{
    const Math::Box2di data = dataWindow(pixmap, window, settings);
    switch (settings.shown) {
    case RenderedKind::NORMALS:
        return normals(pixmap, drawing, window, settings);
    case RenderedKind::ELEVATION:
        return NM_elevationOf(pixmap, settings.elevation ? NM_ElevationChannel::BLUE : NM_ElevationChannel::RED, window,
                              data, samplesOf(settings));
    case RenderedKind::COLOURS:
        break;
    }
    return NM_drawingPicture(pixmap, window, samplesOf(settings), data);
}

// The settings that change the pixels and are not recorded elsewhere in the file.
QString settingsText(const FramePictureSettings& settings)
{
    QStringList words{settings.floatRender ? QStringLiteral("float") : QStringLiteral("16-bit")};
    if (settings.floatFile)
        words << (settings.half ? QStringLiteral("half file") : QStringLiteral("float file"));
    if (settings.form.pad > 0)
        words << QStringLiteral("pad %1").arg(settings.form.pad);
    if (!settings.floatFile && settings.form.bits == 8)
        words << QStringLiteral("8-bit file");
    return words.join(QStringLiteral(", "));
}

QString layoutText(const FramePictureSettings& settings)
{
    if (settings.shown == RenderedKind::ELEVATION)
        return QStringLiteral("elevation");
    return QStringLiteral("drawing");
}

// Whether the file holds the drawing beside the normals.
bool needsDrawing(const FramePictureSettings& settings)
{
    return settings.source == RenderedKind::NORMALS && settings.shown == RenderedKind::NORMALS && asLayers(settings);
}

QString layersEncoding(const FramePictureSettings& settings)
{
    const QString layers = NM_layersEncoding(needsDrawing(settings), settings.elevation);
    return settings.objectNumbers && needsDrawing(settings) ? withObjectNumbers(layers) : layers;
}

IIO_Metadata normalsMetadata(const FramePictureSettings& settings)
{
    if (settings.layout == NM_Layout::NODE || asLayers(settings))
        return NM_metadataOf(settings.layout, settings.form.yAxis);
    IIO_Metadata metadata = NM_metadataOf(settings.form);
    if (settings.floatFile && settings.exr == ExrContent::SIGNED)
        metadata.set(QStringLiteral("Encoding"), NM_signedEncoding());
    return metadata;
}

// The last steps on the pixels: padding, alpha, bits and encoding.
void finish(IIO_Picture& picture, const FramePictureSettings& settings)
{
    const bool coloured = picture.channels() == IIO_channelsRgba();
    if (coloured && settings.shown == RenderedKind::NORMALS && settings.layout == NM_Layout::TANGENT) {
        NM_finishMap(picture, settings.form);
        if (settings.floatFile && settings.exr == ExrContent::SIGNED)
            NM_makeSigned(picture);
        return;
    }
    if (coloured)
        NM_padColours(picture, settings.form.pad);
    if (settings.floatFile && settings.shown == RenderedKind::COLOURS)
        NM_makeLinear(picture);
    if (settings.shown == RenderedKind::ELEVATION && settings.form.bits == 8)
        NM_ditherTo8Bits(picture);
}

} // namespace

bool needsElevationInBlue(const FramePictureSettings& settings)
{
    if (settings.source != RenderedKind::NORMALS)
        return false;
    return settings.shown == RenderedKind::ELEVATION || (settings.shown == RenderedKind::NORMALS && asLayers(settings));
}

FramePictureSettings litPictureSettings(FramePictureSettings settings)
{
    settings.shown = RenderedKind::COLOURS;
    settings.floatFile = false;
    settings.half = false;
    return settings;
}

FramePictureSettings drawingPictureSettings(FramePictureSettings settings, const QString& file)
{
    settings.shown = RenderedKind::COLOURS;
    settings.floatFile = IIO_isFloatFile(file);
    settings.half = settings.half && settings.floatFile;
    settings.form.pad = 0;
    return settings;
}

ShownParts partsOf(const FramePictureSettings& settings)
{
    const bool asTheyAre = settings.shown == RenderedKind::COLOURS || settings.layout == NM_Layout::NODE;
    const bool objects = settings.objectNumbers && needsDrawing(settings);
    return {
        .elevation = settings.elevation, .drawing = needsDrawing(settings), .channels = asTheyAre, .objects = objects};
}

IIO_Metadata frameMetadata(const FramePictureSettings& settings, int frame)
{
    IIO_Metadata metadata =
        settings.shown == RenderedKind::NORMALS ? normalsMetadata(settings) : NM_metadataOf(layoutText(settings));
    if (settings.shown == RenderedKind::NORMALS && asLayers(settings))
        metadata.set(QStringLiteral("Encoding"), layersEncoding(settings));
    if (settings.shown == RenderedKind::COLOURS && settings.floatFile)
        metadata.set(QStringLiteral("Encoding"), QStringLiteral("linear, multiplied by coverage"));
    metadata.set(QStringLiteral("Scene"), settings.scene);
    metadata.set(QStringLiteral("Node"), settings.node);
    metadata.set(QStringLiteral("Frame"), QString::number(frame));
    metadata.set(QStringLiteral("Settings"), settingsText(settings));
    return metadata;
}

UT_Result<IIO_Picture> framePicture(const CEL_PixmapArea& pixmap, const CEL_PixmapArea* drawing,
                                    const Math::Box2di& window, const FramePictureSettings& settings, int frame,
                                    const ObjectPlane* objects)
{
    UT_Result<IIO_Picture> picture = pictureOf(pixmap, drawing, window, settings);
    if (!picture)
        return picture;
    if (objects && settings.objectNumbers && needsDrawing(settings))
        picture = withObjectNumbers(*picture, *objects);
    if (!picture)
        return picture;
    finish(*picture, settings);
    picture->metadata() = frameMetadata(settings, frame);
    return picture;
}
