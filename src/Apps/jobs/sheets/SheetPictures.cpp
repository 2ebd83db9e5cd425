// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reading and writing both use SheetRegion::onPage(), so that pixels are written to where they were read.
#include "jobs/sheets/SheetPictures.h"

#include "QuarvelGraphicCore/GR_ImageMemory.h"
#include "QuarvelImageIO/IIO_Samples.h"

#include <QPainter>

#include <algorithm>

namespace {

bool isOpaque(const QImage& image)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y).alpha() < 255)
                return false;
    return true;
}

template<typename Pixel>
void copySprite(const QImage& page, const SheetRegion& region, QImage& sprite)
{
    const QSize size = region.trimmed();
    for (int y = 0; y < size.height(); ++y) {
        auto* const row = reinterpret_cast<Pixel*>(sprite.scanLine(y + region.offset.y())) + region.offset.x();
        for (int x = 0; x < size.width(); ++x) {
            const QPoint from = region.onPage(x, y);
            row[x] = reinterpret_cast<const Pixel*>(page.constScanLine(from.y()))[from.x()];
        }
    }
}

template<typename Pixel>
void continuePixels(const QImage& sprite, QImage& continued)
{
    const int width = sprite.width();
    const int height = sprite.height();
    for (int y = 0; y < continued.height(); ++y) {
        const auto* const from =
            reinterpret_cast<const Pixel*>(sprite.constScanLine(std::clamp(y - height, 0, height - 1)));
        auto* const to = reinterpret_cast<Pixel*>(continued.scanLine(y));
        for (int x = 0; x < continued.width(); ++x)
            to[x] = from[std::clamp(x - width, 0, width - 1)];
    }
}

template<typename Sample>
void fillPage(IIO_Picture& page, std::span<const std::uint16_t> pixel)
{
    for (int y = 0; y < page.height(); ++y) {
        auto target = page.row<Sample>(y).begin();
        for (int x = 0; x < page.width(); ++x)
            target = std::ranges::transform(pixel, target, [](std::uint16_t code) {
                         if constexpr (std::is_same_v<Sample, float>)
                             return IIO_toSampleFloat(code);
                         else
                             return code;
                     }).out;
    }
}

template<typename Sample>
void layOnto(const IIO_Picture& sprite, const SheetRegion& region, IIO_Picture& page)
{
    const QSize size = region.trimmed();
    const auto channels = std::ptrdiff_t{sprite.channelCount()};
    for (int y = 0; y < size.height(); ++y) {
        const auto row = sprite.row<Sample>(sprite.dataWindow().y1 + region.offset.y() + y);
        auto from = row.begin() + region.offset.x() * channels;
        for (int x = 0; x < size.width(); ++x, from += channels) {
            const QPoint to = region.onPage(x, y);
            std::copy_n(from, channels, page.row<Sample>(to.y()).begin() + to.x() * channels);
        }
    }
}

} // namespace

QImage spriteOf(const QImage& page, const SheetRegion& region)
{
    QImage sprite = GR_newImage(region.whole, page.format());
    sprite.fill(0);
    if (page.depth() == 64)
        copySprite<std::uint64_t>(page, region, sprite);
    else
        copySprite<std::uint32_t>(page, region, sprite);
    return sprite;
}

QImage continuedSprite(const QImage& sprite)
{
    QImage continued = GR_newImage(sprite.size() * 3, sprite.format());
    if (sprite.depth() == 64)
        continuePixels<std::uint64_t>(sprite, continued);
    else
        continuePixels<std::uint32_t>(sprite, continued);
    return continued;
}

bool isTransparent(const QImage& image)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y).rgba64().alpha() > 0)
                return false;
    return true;
}

bool showsBetween(const QImage& page, const std::vector<SheetRegion>& regions)
{
    if (isOpaque(page))
        return false;
    QImage rest = GR_withPixels(page.copy());
    QPainter painter(&rest);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    for (const SheetRegion& region : regions)
        painter.fillRect(region.place, Qt::transparent);
    painter.end();
    return !isTransparent(rest);
}

UT_Result<IIO_Picture> emptyPage(const IIO_Picture& like, const QSize& size, std::span<const std::uint16_t> pixel)
{
    auto page = IIO_Picture::create(like.sampleType(), {size.width(), size.height()}, like.channels());
    if (!page)
        return page;
    page->metadata() = like.metadata();
    if (like.sampleType() == IIO_SampleType::UINT16)
        fillPage<std::uint16_t>(*page, pixel);
    else
        fillPage<float>(*page, pixel);
    return page;
}

void layOntoPage(const IIO_Picture& sprite, const SheetRegion& region, IIO_Picture& page)
{
    if (sprite.sampleType() == IIO_SampleType::UINT16)
        layOnto<std::uint16_t>(sprite, region, page);
    else
        layOnto<float>(sprite, region, page);
}
