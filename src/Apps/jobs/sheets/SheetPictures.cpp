// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reading and writing both use SheetRegion::onPage(), so that pixels are written to where they were read.
#include "jobs/sheets/SheetPictures.h"

#include "QuarvelGraphicCore/GR_ImageMemory.h"

#include <algorithm>

namespace {

using Sample = std::uint16_t;

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

bool isTransparent(const QImage& image)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y).rgba64().alpha() > 0)
                return false;
    return true;
}

UT_Result<IIO_Picture> emptyPage(const IIO_Picture& like, const QSize& size, std::span<const Sample> pixel)
{
    auto page = IIO_Picture::create(IIO_SampleType::UINT16, {size.width(), size.height()}, like.channels());
    if (!page)
        return page;
    page->metadata() = like.metadata();
    for (int y = 0; y < size.height(); ++y) {
        auto target = page->row<Sample>(y).begin();
        for (int x = 0; x < size.width(); ++x)
            target = std::ranges::copy(pixel, target).out;
    }
    return page;
}

void layOntoPage(const IIO_Picture& sprite, const SheetRegion& region, IIO_Picture& page)
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
