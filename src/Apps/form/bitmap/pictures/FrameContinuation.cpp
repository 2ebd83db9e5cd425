// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Repeats pixels to the left and right first, then up and down including the new columns, so that corners are filled
// too.
#include "form/bitmap/pictures/FrameContinuation.h"

#include "QuarvelGraphicCore/GR_ImageMemory.h"
#include "form/ChooseForms.h"

#include <algorithm>
#include <cstring>

namespace {

bool touches(const QRect& place, const BitmapFrame& frame, FrameSide side)
{
    switch (side) {
    case FrameSide::LEFT:
        return place.left() <= 0;
    case FrameSide::TOP:
        return place.top() <= 0;
    case FrameSide::RIGHT:
        return place.right() >= frame.size.width() - 1;
    case FrameSide::BOTTOM:
        break;
    }
    return place.bottom() >= frame.size.height() - 1;
}

bool isUpright(FrameSide side)
{
    return side == FrameSide::LEFT || side == FrameSide::RIGHT;
}

// Whether the border cuts the drawing at a pixel of a side; the pixel is given by its place along the side.
bool isCutAt(const BitmapFrame& frame, FrameSide side, int pixel)
{
    const int length = isUpright(side) ? frame.size.height() : frame.size.width();
    const int inside = std::clamp(pixel, 0, length - 1);
    return frame.cuts.isCut(side, isUpright(side) ? frame.cells.cellY(inside) : frame.cells.cellX(inside));
}

bool isCutAnywhere(const QRect& place, const BitmapFrame& frame, FrameSide side)
{
    if (!touches(place, frame, side))
        return false;
    const int first = isUpright(side) ? place.top() : place.left();
    const int last = isUpright(side) ? place.bottom() : place.right();
    for (int pixel = first; pixel <= last; ++pixel)
        if (isCutAt(frame, side, pixel))
            return true;
    return false;
}

// Copies the pixel at x of a row to the `count` places after it in the direction of `step`.
void repeatColumn(QImage& image, int x, int step, int count, int y)
{
    const auto bytes = static_cast<std::size_t>(image.depth() / 8);
    uchar* row = image.scanLine(y);
    const uchar* from = row + static_cast<std::size_t>(x) * bytes;
    for (int i = 1; i <= count; ++i)
        std::memcpy(row + static_cast<std::size_t>(x + i * step) * bytes, from, bytes);
}

void repeatPixel(QImage& image, int x, int fromY, int y)
{
    const auto bytes = static_cast<std::size_t>(image.depth() / 8);
    const std::size_t offset = static_cast<std::size_t>(x) * bytes;
    std::memcpy(image.scanLine(y) + offset, image.constScanLine(fromY) + offset, bytes);
}

void clearPixel(QImage& mask, const QRect& place, int x, int y)
{
    if (place.contains(x, y))
        mask.scanLine(y - place.top())[x - place.left()] = 0;
}

} // namespace

void repeatBeyondFrame(ObjectPicture& picture, const BitmapFrame& frame, int margin)
{
    const QRect old = picture.place;
    const auto added = [&](FrameSide side) { return isCutAnywhere(old, frame, side) ? margin : 0; };
    const int left = added(FrameSide::LEFT);
    const int top = added(FrameSide::TOP);
    const int right = added(FrameSide::RIGHT);
    const int bottom = added(FrameSide::BOTTOM);
    if (left + top + right + bottom == 0)
        return;
    picture.place = old.adjusted(-left, -top, right, bottom);
    // QImage::copy() leaves the pixels outside the source transparent.
    picture.whole = GR_withPixels(picture.whole.copy(QRect(QPoint(-left, -top), picture.place.size())));
    for (int y = 0; y < old.height(); ++y) {
        if (left > 0 && isCutAt(frame, FrameSide::LEFT, old.top() + y))
            repeatColumn(picture.whole, left, -1, left, top + y);
        if (right > 0 && isCutAt(frame, FrameSide::RIGHT, old.top() + y))
            repeatColumn(picture.whole, left + old.width() - 1, 1, right, top + y);
    }
    for (int x = 0; x < picture.place.width(); ++x) {
        const int pixel = picture.place.left() + x;
        for (int y = 0; y < top && isCutAt(frame, FrameSide::TOP, pixel); ++y)
            repeatPixel(picture.whole, x, top, y);
        for (int y = 0; y < bottom && isCutAt(frame, FrameSide::BOTTOM, pixel); ++y)
            repeatPixel(picture.whole, x, top + old.height() - 1, top + old.height() + y);
    }
}

void endAtFrame(ObjectPicture& picture, const BitmapFrame& frame)
{
    const int width = frame.size.width();
    const int height = frame.size.height();
    // At least as wide as one of the cells that the form is measured on.
    const int ring = 1 + std::max(width, height) / kCellsMeasured;
    const bool any = std::ranges::any_of(kFrameSides, [&](FrameSide side) {
        return touches(picture.place, frame, side) && !isCutAnywhere(picture.place, frame, side);
    });
    if (!any)
        return;
    if (picture.shown.isNull()) {
        picture.shown = GR_imageInFormat(picture.whole, QImage::Format_Alpha8);
        picture.shownPlace = picture.place;
    }
    for (int away = 0; away < ring; ++away) {
        for (int y = 0; y < height; ++y) {
            if (!isCutAt(frame, FrameSide::LEFT, y))
                clearPixel(picture.shown, picture.shownPlace, away, y);
            if (!isCutAt(frame, FrameSide::RIGHT, y))
                clearPixel(picture.shown, picture.shownPlace, width - 1 - away, y);
        }
        for (int x = 0; x < width; ++x) {
            if (!isCutAt(frame, FrameSide::TOP, x))
                clearPixel(picture.shown, picture.shownPlace, x, away);
            if (!isCutAt(frame, FrameSide::BOTTOM, x))
                clearPixel(picture.shown, picture.shownPlace, x, height - 1 - away);
        }
    }
}
