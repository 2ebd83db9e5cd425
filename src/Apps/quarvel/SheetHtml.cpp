// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Frames go into the page at once; a layout is collected first.
#include "SheetHtml.h"

#include "QuarvelNormalMap/NM_TurnVectors.h"
#include "jobs/page/LitPageFrames.h"
#include "jobs/sheets/SheetPictures.h"

#include <QFileInfo>

#include <vector>

namespace {

// Cells say nothing of time; this is how fast sprites are usually played.
constexpr double kFramesPerSecond = 12.0;

// What lies between the sprites: nothing, on the map a surface that faces the viewer.
std::vector<std::uint16_t> blankMap(const NM_MapForm& form)
{
    constexpr std::uint16_t kFull = 65535;
    const auto& [x, y, z] = NM_kFacingSamples;
    return {x, y, z, form.alpha == NM_Alpha::FULL ? kFull : std::uint16_t{0}};
}

UT_Result<IIO_Picture> blank(const IIO_Picture& like, const QSize& size)
{
    return emptyPage(like, size, std::vector<std::uint16_t>(static_cast<std::size_t>(like.channelCount())));
}

} // namespace

SheetHtml::SheetHtml(const NormalMapOptions& options, const QString& file, const QString& source, const QSize& size)
    : _options(options)
    , _file(file)
    , _settings{.name = QFileInfo(source).completeBaseName(), .framesPerSecond = kFramesPerSecond}
    , _size(size)
    , _form(options.form.resolved(kFormForMost))
{
    _settings.yAxis = _form.yAxis;
}

UT_Result<void> SheetHtml::add(const ShownFrame& sprite, const SheetRegion& region)
{
    if (_file.isEmpty())
        return {};
    UT_Result<LitPageFrame> frame = litPageFrame(sprite, _form, true);
    if (!frame)
        return frame.error();
    frame->lighting = lightingOf(_options.light);
    frame->number = ++_frames;
    return plays() ? addFrame(*frame) : lay(std::move(*frame), region);
}

UT_Result<void> SheetHtml::finish()
{
    if (_layout)
        if (UT_Result<void> added = addFrame(*_layout); !added)
            return added;
    return _page ? _page->finish() : UT_Result<void>();
}

UT_Result<void> SheetHtml::addFrame(const LitPageFrame& frame)
{
    if (!_page) {
        _page = std::make_unique<LitPageFile>(_file, _settings);
        if (UT_Result<void> opened = _page->open(); !opened)
            return opened;
    }
    return _page->add(frame);
}

UT_Result<void> SheetHtml::lay(LitPageFrame sprite, const SheetRegion& region)
{
    if (!_layout)
        if (UT_Result<void> begun = begin(sprite); !begun)
            return begun;
    NM_turnVectors(sprite.normals, region.quarterTurns, _form.yAxis);
    layOntoPage(sprite.drawing, region, _layout->drawing);
    layOntoPage(sprite.normals, region, _layout->normals);
    layOntoPage(*sprite.elevation, region, *_layout->elevation);
    return {};
}

UT_Result<void> SheetHtml::begin(const LitPageFrame& sprite)
{
    UT_Result<IIO_Picture> drawing = blank(sprite.drawing, _size);
    UT_Result<IIO_Picture> normals = emptyPage(sprite.normals, _size, blankMap(_form));
    UT_Result<IIO_Picture> elevation = blank(*sprite.elevation, _size);
    for (const UT_Result<IIO_Picture>* const made : {&drawing, &normals, &elevation})
        if (!*made)
            return made->error();
    _layout.emplace(LitPageFrame{.drawing = std::move(*drawing),
                                 .normals = std::move(*normals),
                                 .elevation = std::move(*elevation),
                                 .lighting = sprite.lighting});
    return {};
}
