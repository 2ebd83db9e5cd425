// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Read all sprites, share values among the frames of animations, render one after the other.
#include "SheetRun.h"

#include "GlossOption.h"
#include "QuarvelBaseCore/UT_FileName.h"
#include "QuarvelDrawingIO/DIO_BitmapReader.h"
#include "QuarvelDrawingIO/DIO_DrawingReader.h"
#include "QuarvelImageIO/IIO_PictureFile.h"
#include "QuarvelNormalMap/NM_TurnVectors.h"
#include "RenderedDrawing.h"
#include "SheetHtml.h"
#include "jobs/drawing/ReadDrawing.h"
#include "jobs/drawing/TileDrawing.h"
#include "jobs/sheets/SharedForms.h"
#include "jobs/sheets/SheetPictures.h"

#include <algorithm>
#include <map>
#include <set>

namespace {

using Sample = std::uint16_t;

struct Sprite
{
    const SheetRegion* region;
    ReadDrawing read;
};

// The pages that come of a page, by their files.
class Pages
{
public:
    Pages(const QSize& size, const NormalMapOptions& options) : _size(size), _options(options) {}

    UT_Result<void> lay(PictureKind kind, const QString& file, IIO_Picture sprite, const SheetRegion& region)
    {
        const NM_MapForm form = mapFormFor(_options, file);
        const Target* const target = _options.form.target;
        if (kind == PictureKind::NORMAL_MAP && !(target && target->leavesPackedVectors))
            NM_turnVectors(sprite, region.quarterTurns, form.yAxis);
        auto page = _pages.find(file);
        if (page == _pages.end()) {
            UT_Result<IIO_Picture> empty = emptyPage(sprite, _size, blank(kind, sprite, form));
            if (!empty)
                return empty.error();
            page = _pages.emplace(file, std::pair{kind, std::move(*empty)}).first;
        }
        layOntoPage(sprite, region, page->second.second);
        return {};
    }

    UT_Result<void> write(const PictureOrigin& source)
    {
        for (auto& [file, page] : _pages) {
            auto& [kind, picture] = page;
            if (UT_Result<void> written = write(kind, std::move(picture), file, source); !written)
                return written;
        }
        return {};
    }

private:
    // What lies between the sprites: nothing, on maps a surface that faces the viewer, and in pictures of what light
    // does to a surface what they hold where there is none.
    std::vector<Sample> blank(PictureKind kind, const IIO_Picture& sprite, const NM_MapForm& form) const
    {
        constexpr Sample kFull = 65535;
        if (kind == PictureKind::OCCLUSION || (kind == PictureKind::GLOSS && takesRoughness(_options)))
            return {kFull};
        if (kind != PictureKind::NORMAL_MAP)
            return std::vector<Sample>(static_cast<std::size_t>(sprite.channelCount()), 0);
        auto [x, y, z] = NM_kFacingSamples;
        if (form.bits == 8)
            x = y = 128 * 257;
        return {x, y, z, form.alpha == NM_Alpha::FULL ? kFull : Sample{0}};
    }

    UT_Result<void> write(PictureKind kind, IIO_Picture picture, const QString& file, const PictureOrigin& source) const
    {
        return writeFinished(kind, std::move(picture), file, _options, source);
    }

    QSize _size;
    const NormalMapOptions& _options;
    std::map<QString, std::pair<PictureKind, IIO_Picture>> _pages;
};

UT_Result<void> checkOptions(const NormalMapOptions& options, const OutputFiles& files)
{
    if (options.nodeLayout)
        return UT_Error{QStringLiteral("--layout node is not written for sheets")};
    if (options.settings.size)
        return UT_Error{QStringLiteral("a sheet's pictures have the sheet's own size; leave out --size")};
    for (const QString& file : files.all())
        if (!file.isEmpty() && IIO_isFloatFile(file))
            return UT_Error{QStringLiteral("%1: the pictures of a sheet are written as .png").arg(file)};
    return {};
}

// Of regions at the same place the first stands for all.
std::vector<const SheetRegion*> places(const std::vector<SheetRegion>& regions)
{
    std::vector<const SheetRegion*> different;
    std::set<std::pair<int, int>> taken;
    for (const SheetRegion& region : regions)
        if (taken.emplace(region.place.x(), region.place.y()).second)
            different.push_back(&region);
    return different;
}

// Cells that may touch are rendered with their surroundings, as drawings that repeat are.
Tiling surroundings(const NormalMapOptions& options)
{
    return {.x = options.connected, .y = options.connected};
}

ReadDrawing readSprite(const QImage& image, const QString& name, const NormalMapOptions& options)
{
    const FormSettings& form = options.settings.form;
    if (!options.connected)
        return chosenDrawing(DIO_bitmapDrawing(image, name), form);
    ReadDrawing read = chosenDrawing(DIO_bitmapDrawing(continuedSprite(image), name), form);
    shrinkGivenForms(read.drawing, surroundings(options), form.shape);
    return read;
}

std::vector<Sprite> spritesOf(const QImage& page, const std::vector<SheetRegion>& regions,
                              const NormalMapOptions& options)
{
    std::vector<Sprite> sprites;
    for (const SheetRegion* const region : places(regions)) {
        const QImage image = spriteOf(page, *region);
        if (!isTransparent(image))
            sprites.push_back({region, readSprite(image, region->name, options)});
    }
    return sprites;
}

void shareWithinAnimations(std::vector<Sprite>& sprites)
{
    std::map<QString, std::vector<ReadDrawing*>> animations;
    for (Sprite& sprite : sprites)
        if (!sprite.region->animation.isEmpty())
            animations[sprite.region->animation].push_back(&sprite.read);
    for (auto& [name, frames] : animations)
        shareForms(frames);
}

// The colours of --gloss that no sprite has had so far.
class MissingColours
{
public:
    void add(const std::vector<QColor>& missing)
    {
        if (!_known)
            _missing = missing;
        _known = true;
        std::erase_if(_missing,
                      [&](const QColor& colour) { return std::ranges::find(missing, colour) == missing.end(); });
    }

    const std::vector<QColor>& missing() const { return _missing; }

private:
    bool _known = false;
    std::vector<QColor> _missing;
};

UT_Result<void> render(const Sprite& sprite, const NormalMapOptions& options, const OutputFiles& files, Pages& pages,
                       SheetHtml& html, MissingColours& missing, const JobProgress& progress)
{
    const LayeredDrawing& drawing = sprite.read.drawing;
    const Tiling tiling = surroundings(options);
    const NormalMapSettings settings =
        tiling.isAny() ? settingsForTiles(options.settings, drawing.size, tiling) : options.settings;
    auto rendered = renderDrawing(drawing, settings, options, files, progress);
    if (!rendered)
        return rendered.error();
    rendered->frame.window = middleOf(rendered->frame.window, tiling);
    missing.add(rendered->gloss.missing);
    if (UT_Result<void> added = html.add(rendered->frame, *sprite.region); !added)
        return added;
    return makePictures(*rendered, options, files, [&](PictureKind kind, const QString& file, IIO_Picture picture) {
        return pages.lay(kind, file, std::move(picture), *sprite.region);
    });
}

UT_Result<void> checkIsBitmap(const QString& page)
{
    const bool isOther = DIO_drawingKindOf(page) && !DIO_bitmapSuffixes().contains(UT_fileSuffix(page));
    if (!isOther)
        return {};
    return UT_Error{QStringLiteral("a page of sprites is a bitmap, such as a .png file; export this drawing as one")}
        .at(page);
}

UT_Result<std::vector<SheetRegion>> regionsFor(const QSize& page, const std::vector<SheetRegion>& regions,
                                               const NormalMapOptions& options)
{
    if (!options.cells)
        return regions;
    UT_Result<std::vector<SheetRegion>> cells = cellsOf(page, *options.cells);
    if (cells && (options.animation || options.connected))
        for (SheetRegion& cell : *cells)
            cell.animation = QStringLiteral("all");
    return cells;
}

} // namespace

UT_Result<SheetResult> runSheet(const PictureOrigin& page, const std::vector<SheetRegion>& regions,
                                const NormalMapOptions& options, const OutputFiles& files, const JobProgress& progress)
{
    if (UT_Result<void> checked = checkOptions(options, files); !checked)
        return checked.error();
    if (UT_Result<void> checked = checkIsBitmap(page.drawing); !checked)
        return checked.error();
    SheetResult result;
    const UT_Result<QImage> image = DIO_readImage(page.drawing, result.warnings);
    if (!image)
        return image.error();
    const UT_Result<std::vector<SheetRegion>> all = regionsFor(image->size(), regions, options);
    if (!all)
        return all.error();
    if (UT_Result<void> checked = checkRegions(*all, image->size()); !checked)
        return checked.error();
    if (options.cells && showsBetween(*image, *all))
        result.warnings << QStringLiteral(
                               "something on the page lies in none of the %1 cells; compare --cells, --margin "
                               "and --spacing with the page")
                               .arg(all->size());
    std::vector<Sprite> sprites = spritesOf(*image, *all, options);
    if (sprites.empty())
        return UT_Error{QStringLiteral("none of its %1 sprites shows anything").arg(all->size())};
    shareWithinAnimations(sprites);
    Pages pages(image->size(), options);
    SheetHtml html(options, files.page, page.drawing, image->size());
    MissingColours missing;
    const JobProgress ofSprite = [&](double done) {
        return !progress || progress((result.sprites + done) / static_cast<double>(sprites.size()));
    };
    for (const Sprite& sprite : sprites) {
        if (UT_Result<void> rendered = render(sprite, options, files, pages, html, missing, ofSprite); !rendered)
            return rendered.error().at(QStringLiteral("\"%1\"").arg(sprite.region->name));
        ++result.sprites;
        if (!ofSprite(0.0))
            return UT_stopped();
    }
    if (UT_Result<void> written = pages.write(page); !written)
        return written.error();
    if (UT_Result<void> written = html.finish(); !written)
        return written.error();
    if (const QString warning = glossWarning(missing.missing()); !warning.isEmpty())
        result.warnings << warning;
    return result;
}
