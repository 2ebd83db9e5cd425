// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One function for each kind of picture.
#include "jobs/frames/SurfaceFrames.h"

#include "QuarvelImageIO/IIO_PictureFile.h"
#include "QuarvelNormalMap/NM_MapForm.h"
#include "QuarvelNormalMap/NM_MaskPicture.h"
#include "jobs/shown/SurfacePictures.h"
#include "jobs/targets/Targets.h"

namespace {

IIO_SampleType samplesOf(const RenderFramesSettings& settings)
{
    return settings.picture.floatFile ? IIO_SampleType::FLOAT : IIO_SampleType::UINT16;
}

QString layoutOf(const RenderFramesSettings& settings)
{
    switch (settings.content) {
    case FrameContent::HEIGHT:
        return QStringLiteral("height");
    case FrameContent::OCCLUSION:
        return QStringLiteral("occlusion");
    case FrameContent::NUMBERS:
        return QStringLiteral("object numbers");
    default:
        return settings.roughness ? QStringLiteral("roughness") : QStringLiteral("gloss");
    }
}

} // namespace

bool SurfaceFrames::makes(FrameContent content)
{
    return content == FrameContent::HEIGHT || content == FrameContent::OCCLUSION || content == FrameContent::NUMBERS ||
           content == FrameContent::GLOSS;
}

SurfaceFrames::SurfaceFrames(const ShownModule& shown, const RenderFramesSettings& settings)
    : _shown(shown), _settings(settings)
{
    if (settings.content == FrameContent::GLOSS)
        _painted = paintGreys();
}

UT_Result<void> SurfaceFrames::paintGreys()
{
    UT_Result<SceneCopy> copy = copySceneOf(_shown.module());
    if (!copy)
        return copy.error();
    _greyScene = std::move(*copy);
    paintGloss(*_greyScene.scene, _settings.gloss);
    _greys = std::make_unique<ShownModule>(*_greyScene.module);
    return {};
}

SurfaceFrames::~SurfaceFrames() = default;

UT_Result<IIO_Picture> SurfaceFrames::render(int frame, const RD_SoftRenderer::Progress& progress) const
{
    if (_settings.content == FrameContent::GLOSS)
        return gloss(frame, progress);
    const auto shown = _shown.render(frame, _settings.parameters, partsOf(_settings), progress);
    if (!shown)
        return shown.error();
    const NM_MapForm& form = _settings.picture.form;
    if (_settings.content == FrameContent::NUMBERS)
        return numbersPicture(*shown, samplesOf(_settings), form.bits);
    UT_Result<IIO_Picture> picture = _settings.content == FrameContent::HEIGHT
                                         ? heights(*shown)
                                         : occlusionPicture(*shown, samplesOf(_settings), form.pad);
    if (picture && form.bits == 8)
        NM_ditherTo8Bits(*picture);
    return picture;
}

UT_Result<IIO_Picture> SurfaceFrames::heights(const ShownFrame& frame) const
{
    UT_Result<IIO_Picture> picture = heightPicture(frame);
    if (!picture || _settings.picture.floatFile)
        return picture;
    return NM_codedHeights(*picture, _settings.heights);
}

UT_Result<IIO_Picture> SurfaceFrames::gloss(int frame, const RD_SoftRenderer::Progress& progress) const
{
    if (!_painted)
        return _painted.error();
    const auto greys = _greys->renderDrawing(frame, _settings.parameters, progress);
    if (!greys)
        return greys.error();
    return NM_paintedMaskPicture(**greys, RD_RenderJob(_settings.parameters).frame(), samplesOf(_settings),
                                 _settings.roughness, _settings.picture.form.pad);
}

IIO_Metadata SurfaceFrames::metadata(int frame) const
{
    IIO_Metadata metadata = frameMetadata(_settings.picture, frame);
    metadata.set(QStringLiteral("Layout"), layoutOf(_settings));
    if (_settings.content == FrameContent::HEIGHT)
        metadata.set(QStringLiteral("Heights"),
                     _settings.picture.floatFile ? NM_heightsInPixels() : NM_heightsText(_settings.heights));
    return metadata;
}

RenderFramesSettings surfaceSettings(RenderFramesSettings run, FrameContent content, const QString& file)
{
    run.content = content;
    // Numbers as they are, not colours.
    run.picture.shown = RenderedKind::ELEVATION;
    run.picture.floatFile = IIO_isFloatFile(file);
    run.picture.form = formInFile(run.picture.form, file);
    run.picture.half = run.picture.half && run.picture.floatFile;
    run.picture.objectNumbers = false;
    return run;
}
