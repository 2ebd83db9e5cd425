// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// In a line drawing every pixel is the paper's, dark, or a mixture of both at the edge of a line. A grey pixel among
// equal ones is not at an edge, but in a painted area.
#include "form/bitmap/pictures/LineArt.h"

#include "QuarvelGraphicCore/GR_ImageMemory.h"
#include "form/bitmap/pixels/MixedColours.h"
#include "form/lines/ClosedAreas.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kDark = 96;         // luma of 255
constexpr int kLightPaper = 190;  // luma of 255
constexpr double kPainted = 0.03; // of the covered pixels: more of other colours make it a painted drawing
constexpr double kEdge = 0.2;     // a mixture with at least this share of either colour
constexpr double kEnclosed = 1.5; // the enclosed area, as a multiple of the lines' area, at the least

// The mean colour of the dark pixels; nothing if there are none.
std::optional<QRgb> inkOf(const QImage& image)
{
    qint64 red = 0;
    qint64 green = 0;
    qint64 blue = 0;
    qint64 count = 0;
    for (int y = 0; y < image.height(); ++y) {
        const auto* const row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(row[x]) < 128 || qGray(row[x]) >= kDark)
                continue;
            red += qRed(row[x]);
            green += qGreen(row[x]);
            blue += qBlue(row[x]);
            ++count;
        }
    }
    if (count == 0)
        return std::nullopt;
    return qRgb(static_cast<int>(red / count), static_cast<int>(green / count), static_cast<int>(blue / count));
}

bool isAmongEqual(const QImage& image, int x, int y)
{
    const QRgb pixel = image.pixel(x, y);
    for (int i = 0; i < 9; ++i) {
        const QPoint other(x - 1 + i % 3, y - 1 + i / 3);
        if (image.valid(other) && (qAlpha(image.pixel(other)) < 255 || !areAlike(image.pixel(other), pixel)))
            return false;
    }
    return true;
}

// What a pixel is in a line drawing.
struct Drawn
{
    double ink = 0.0;     // the share of ink in it
    bool painted = false; // it is neither paper, ink nor an edge
};

class LineReader
{
public:
    LineReader(const QImage& image, QRgb paper, QRgb ink) : _image(image), _paper(paper), _ink(ink) {}

    // Whether the pixels of every step-th row are those of a line drawing.
    bool areLines(int step) const
    {
        qint64 covered = 0;
        qint64 painted = 0;
        for (int y = 0; y < _image.height(); y += step)
            for (int x = 0; x < _image.width(); ++x) {
                covered += qAlpha(row(y)[x]) > 0 ? 1 : 0;
                painted += drawn(x, y).painted ? 1 : 0;
            }
        return static_cast<double>(painted) <= kPainted * static_cast<double>(covered);
    }

    // How much of each pixel lines cover.
    QImage lines() const
    {
        QImage lines = GR_newImage(_image.size(), QImage::Format_Alpha8);
        for (int y = 0; y < _image.height(); ++y) {
            uchar* const line = lines.scanLine(y);
            for (int x = 0; x < _image.width(); ++x)
                line[x] = static_cast<uchar>(std::lround(qAlpha(row(y)[x]) * drawn(x, y).ink));
        }
        return lines;
    }

private:
    const QRgb* row(int y) const { return reinterpret_cast<const QRgb*>(_image.constScanLine(y)); }

    Drawn drawn(int x, int y) const
    {
        const QRgb pixel = row(y)[x];
        if (qAlpha(pixel) == 0 || pixel == _paper)
            return {};
        // A dark pixel counts as ink in whatever shade.
        if (qGray(pixel) < kDark)
            return {1.0, false};
        const std::optional<double> share = mixedShare(pixel, _paper, _ink);
        if (!share)
            return {0.0, true};
        const double ink = std::clamp(*share, 0.0, 1.0);
        const bool mixed = ink > kEdge && ink < 1.0 - kEdge;
        return {ink, mixed && isAmongEqual(_image, x, y)};
    }

    const QImage& _image;
    QRgb _paper;
    QRgb _ink;
};

double areaOfLines(const QImage& lines)
{
    qint64 sum = 0;
    for (int y = 0; y < lines.height(); ++y)
        for (int x = 0; x < lines.width(); ++x)
            sum += lines.constScanLine(y)[x];
    return static_cast<double>(sum) / 255.0;
}

QImage paintedAreas(const std::vector<QPainterPath>& areas, const QSize& size)
{
    QImage mask = GR_newImage(size, QImage::Format_Alpha8);
    mask.fill(0);
    QPainter painter(&mask);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const QPainterPath& area : areas)
        painter.fillPath(area, Qt::white);
    return mask;
}

} // namespace

std::optional<QImage> filledLineArt(const QImage& bitmap, QRgb paper, const QImage& background)
{
    const QImage image = GR_imageInFormat(bitmap, QImage::Format_ARGB32);
    const std::optional<QRgb> ink = inkOf(image);
    if (!ink || qGray(paper) < kLightPaper)
        return std::nullopt;
    const LineReader reader(image, paper, *ink);
    // A few rows tell most painted drawings.
    constexpr int kFewRows = 16;
    if (!reader.areLines(kFewRows) || !reader.areLines(1))
        return std::nullopt;
    const QImage lines = reader.lines();
    const std::vector<QPainterPath> areas = closedAreas(lines);
    if (areas.empty())
        return std::nullopt;
    if (areaOfLines(paintedAreas(areas, lines.size())) < kEnclosed * areaOfLines(lines))
        return std::nullopt;

    QImage sheet = GR_newImage(bitmap.size(), bitmap.format());
    sheet.fill(QColor::fromRgb(paper));
    if (!background.isNull())
        sheet = background;
    QImage fill = GR_imageInFormat(sheet, QImage::Format_RGBA64_Premultiplied);
    QPainter painter(&fill);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.drawImage(0, 0, paintedAreas(areas, bitmap.size()));
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.drawImage(0, 0, bitmap);
    painter.end();
    return GR_imageInFormat(fill, bitmap.format());
}
