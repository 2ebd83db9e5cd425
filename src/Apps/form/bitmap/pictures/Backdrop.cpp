// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A pixel beside the backdrop is antialiased if its colour lies between those of the backdrop and of a pixel further
// inside. It keeps its mixed colour, because the backdrop's object shows the same pixel beneath it.
#include "form/bitmap/pictures/Backdrop.h"

#include "QuarvelGraphicCore/GR_ImageMemory.h"
#include "form/bitmap/pixels/MixedColours.h"
#include "form/bitmap/pixels/PixelPlane.h"
#include "form/choice/Colour.h"

#include <QRgba64>

#include <algorithm>
#include <cmath>
#include <map>

namespace {

constexpr int kAlike = 14;                 // of 255, in each channel; more than the noise of a good JPEG
constexpr double kOfBorder = 0.5;          // the backdrop's share of the border
constexpr double kOpaqueBorder = 0.99;     // of the border's pixels
constexpr double kLeastForeground = 0.002; // of the pixels
constexpr double kLeastAlpha = 0.02;

QRect coveredBox(const QImage& image)
{
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        const auto* const row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        int first = 0;
        while (first < image.width() && qAlpha(row[first]) == 0)
            ++first;
        if (first == image.width())
            continue;
        int last = image.width() - 1;
        while (qAlpha(row[last]) == 0)
            --last;
        box |= QRect(QPoint(first, y), QPoint(last, y));
    }
    return box;
}

std::vector<QPoint> borderOf(const QRect& box)
{
    std::vector<QPoint> border;
    for (int x = box.left(); x <= box.right(); ++x) {
        border.emplace_back(x, box.top());
        border.emplace_back(x, box.bottom());
    }
    for (int y = box.top() + 1; y < box.bottom(); ++y) {
        border.emplace_back(box.left(), y);
        border.emplace_back(box.right(), y);
    }
    return border;
}

// The colour that most of the border has, if the border is opaque.
std::optional<QRgb> colourAlong(const QImage& image, const std::vector<QPoint>& border)
{
    std::map<QRgb, int> counts;
    int opaque = 0;
    for (const QPoint& point : border) {
        const QRgb colour = image.pixel(point);
        opaque += qAlpha(colour) == 255 ? 1 : 0;
        ++counts[colour | 0xff000000U];
    }
    if (opaque < kOpaqueBorder * static_cast<double>(border.size()))
        return std::nullopt;
    const QRgb most = std::ranges::max_element(counts, {}, [](const auto& entry) { return entry.second; })->first;
    int alike = 0;
    for (const auto& [colour, count] : counts)
        alike += areAlike(colour, most) ? count : 0;
    return alike >= kOfBorder * static_cast<double>(border.size()) ? std::optional(most) : std::nullopt;
}

// Marks the pixels of the backdrop's colour that are connected with the border.
PixelPlane<char> backdropPixels(const QImage& image, const std::vector<QPoint>& border, QRgb colour)
{
    PixelPlane<char> backdrop(image.width(), image.height(), 0);
    std::vector<int> open;
    // Rows of 32-bit pixels have no gaps between them.
    const auto* const pixels = reinterpret_cast<const QRgb*>(image.constBits());
    const auto visit = [&](int index) {
        const QRgb pixel = pixels[index];
        if (backdrop[index] || qAlpha(pixel) == 0 || !areAlike(pixel, colour))
            return;
        backdrop[index] = 1;
        open.push_back(index);
    };
    for (const QPoint& point : border)
        visit(point.y() * image.width() + point.x());
    while (!open.empty()) {
        const int index = open.back();
        open.pop_back();
        forEachNeighbour(backdrop, index % image.width(), index / image.width(), visit);
    }
    return backdrop;
}

// The coverage of the pixels in front of a backdrop.
class Outlines
{
public:
    Outlines(const QImage& image, const PixelPlane<char>& backdrop, QRgb colour)
        : _image(image), _backdrop(backdrop), _colour(colour)
    {}

    double coverage(int x, int y) const
    {
        if (_backdrop.at(x, y))
            return 0.0;
        return isBesideBackdrop(x, y) ? coverageAtOutline(x, y) : 1.0;
    }

private:
    bool isForeground(int x, int y) const { return _backdrop.contains(x, y) && !_backdrop.at(x, y); }

    bool isBesideBackdrop(int x, int y) const
    {
        for (int ny = std::max(0, y - 1); ny < std::min(y + 2, _backdrop.height()); ++ny) {
            const std::span row = _backdrop.row(ny);
            for (int nx = std::max(0, x - 1); nx < std::min(x + 2, _backdrop.width()); ++nx)
                if (row[static_cast<std::size_t>(nx)])
                    return true;
        }
        return false;
    }

    // The inner pixel is the one of the neighbourhood that differs most from the backdrop. A pixel with a neighbour of
    // its own colour further inside belongs to an area of that colour.
    double coverageAtOutline(int x, int y) const
    {
        const QRgb pixel = _image.pixel(x, y);
        QRgb inner = pixel;
        double most = 0.0;
        for (int i = 0; i < 9; ++i) {
            const int nx = x - 1 + i % 3;
            const int ny = y - 1 + i / 3;
            if (!isForeground(nx, ny) || (nx == x && ny == y))
                continue;
            const QRgb other = _image.pixel(nx, ny);
            if (areAlike(other, pixel) && !isBesideBackdrop(nx, ny))
                return 1.0;
            if (const double far = squaredDistance(other, _colour); far > most) {
                most = far;
                inner = other;
            }
        }
        return std::clamp(mixedShare(pixel, _colour, inner).value_or(1.0), kLeastAlpha, 1.0);
    }

    const QImage& _image;
    const PixelPlane<char>& _backdrop;
    QRgb _colour;
};

void scaleAlpha(QImage& image, int x, int y, double share)
{
    if (image.format() == QImage::Format_RGBA64) {
        QRgba64& pixel = reinterpret_cast<QRgba64*>(image.scanLine(y))[x];
        pixel.setAlpha(static_cast<quint16>(std::lround(share * pixel.alpha())));
        return;
    }
    QRgb& pixel = reinterpret_cast<QRgb*>(image.scanLine(y))[x];
    pixel = share > 0.0
                ? qRgba(qRed(pixel), qGreen(pixel), qBlue(pixel), static_cast<int>(std::lround(share * qAlpha(pixel))))
                : 0;
}

// Whether nothing is drawn along the picture's border: a coloured rectangle there is a thing, such as a crate.
bool standsFree(const QRect& covered, const QRect& picture)
{
    return picture.adjusted(1, 1, -1, -1).contains(covered);
}

bool isPaper(QRgb colour)
{
    constexpr double kWhite = 92.0;     // lightness
    constexpr double kColourless = 6.0; // chroma
    const SeenColour seen = SeenColour::of(QColor::fromRgb(colour));
    return seen.lightness > kWhite && seen.chroma() < kColourless;
}

} // namespace

std::optional<CutOut> cutFromBackdrop(const QImage& bitmap)
{
    const QImage image = GR_imageInFormat(bitmap, QImage::Format_ARGB32);
    const QRect covered = coveredBox(image);
    const std::vector<QPoint> border = borderOf(covered);
    if (border.empty())
        return std::nullopt;
    const std::optional<QRgb> colour = colourAlong(image, border);
    if (!colour || (standsFree(covered, image.rect()) && !isPaper(*colour)))
        return std::nullopt;
    const PixelPlane<char> backdrop = backdropPixels(image, border, *colour);
    const Outlines outlines(image, backdrop, *colour);
    CutOut cut{bitmap, *colour, 0.0};
    int foreground = 0;
    int behind = 0;
    for (int y = 0; y < bitmap.height(); ++y) {
        const auto* const row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < bitmap.width(); ++x) {
            const double share = outlines.coverage(x, y);
            foreground += share > 0.0 && qAlpha(row[x]) > 0 ? 1 : 0;
            behind += backdrop.at(x, y);
            if (share < 1.0)
                scaleAlpha(cut.foreground, x, y, share);
        }
    }
    const double all = static_cast<double>(bitmap.width()) * bitmap.height();
    cut.share = behind / all;
    if (foreground < kLeastForeground * all)
        return std::nullopt;
    return cut;
}
