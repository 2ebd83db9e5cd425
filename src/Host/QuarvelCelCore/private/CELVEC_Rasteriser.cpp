// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The rasteriser. Qt's painter does the work, on a picture of 16 bits a channel: its scan conversion gives the exact
// area that a shape covers of each pixel, in 256 steps. First every shape's paint is looked up; then the shapes with a
// paint are painted in bands of rows, each on a small picture of its own that is converted to the target's format while
// it is in the cache; what no shape may touch of a band is neither cleared nor converted. Bands are painted in
// parallel; their borders do not depend on the number of threads. A sprite of the target's own resolution is no work
// for a painter: its rows are converted, so that a large one takes no second picture of its size. Nor are outlines of
// which thousands of lines cross the picture: Qt follows all lines anew for every few rows of them.
#include "QuarvelCelCore/private/CELVEC_Rasteriser.h"

#include "QuarvelBaseCore/UT_PixelMemory.h"
#include "QuarvelCelCore/CELVEC_PainterThread.h"
#include "QuarvelCelCore/CEL_WithFormat.h"
#include "QuarvelCelCore/private/CELVEC_CrowdedPath.h"
#include "QuarvelCelCore/private/CELVEC_PathCopy.h"
#include "QuarvelCelCore/private/CELVEC_RowKernels.h"
#include "QuarvelGraphicCore/GR_ImageMemory.h"
#include "QuarvelVectorLanes/VL_ParallelFor.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <map>
#include <optional>

namespace {

struct PaintedShape
{
    const CELVEC_Shape* shape; // of the drawing, which outlives this
    QTransform toPixel;
    VS_RGBA colour;
    QColor paint;        // the colour with the shape's opacity
    bool isCrowded;      // as CELVEC_isCrowded says of its path or its clip
    QImage picture;      // null: the paint alone
    Math::Box2di pixels; // that its path may touch
    Math::Box2di shown;  // of these, what its clip leaves
};

QColor toQColor(const VS_RGBA& paint, double opacity)
{
    QColor color(paint.red, paint.green, paint.blue);
    color.setAlphaF(static_cast<float>(paint.alpha / 255.0 * std::clamp(opacity, 0.0, 1.0)));
    return color;
}

// Qt's own conversion, which its painter uses too, multiplies the coverage of 16-bit pixels by itself.
QImage premultiplied(const QImage& picture)
{
    if (picture.format() != QImage::Format_RGBA64)
        return GR_imageInFormat(picture, QImage::Format_RGBA64_Premultiplied);
    QImage made = GR_newImage(picture.size(), QImage::Format_RGBA64_Premultiplied);
    const auto width = static_cast<std::size_t>(picture.width());
    for (int y = 0; y < picture.height(); ++y) {
        const std::span from(reinterpret_cast<const QRgba64*>(picture.constScanLine(y)), width);
        const std::span to(reinterpret_cast<QRgba64*>(made.scanLine(y)), width);
        std::ranges::transform(from, to.begin(), [](QRgba64 pixel) { return pixel.premultiplied(); });
    }
    return made;
}

// The coverage of a sprite in one colour.
QImage tinted(const QImage& sprite, const VS_RGBA& paint)
{
    QImage made = premultiplied(sprite);
    QPainter painter(&made);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(made.rect(), toQColor(paint, 1.0));
    return made;
}

// A sprite's own pixels or, where a colour transform says what colours there are, its coverage in the colour given.
QImage pictureFor(const CELVEC_Kvd& drawing, const CELVEC_Shape& shape, const VS_RGBA& paint)
{
    if (drawing.colorTransform())
        return tinted(shape.picture, paint);
    return shape.picture.format() == QImage::Format_RGBA64 ? premultiplied(shape.picture) : shape.picture;
}

// Copies of a picture in one paint share the memory of one.
class PaintedPictures
{
public:
    explicit PaintedPictures(const CELVEC_Kvd& drawing) : _drawing(drawing) {}

    QImage of(const CELVEC_Shape& shape, const VS_RGBA& paint)
    {
        if (shape.picture.isNull())
            return {};
        QImage& made = _made[{shape.picture.cacheKey(), toQColor(paint, 1.0).rgba()}];
        if (made.isNull())
            made = pictureFor(_drawing, shape, paint);
        return made;
    }

private:
    const CELVEC_Kvd& _drawing;
    std::map<std::pair<qint64, QRgb>, QImage> _made;
};

int toPixelCoordinate(double value)
{
    constexpr double kLimit = std::numeric_limits<int>::max() / 2.0;
    return std::isnan(value) ? 0 : static_cast<int>(std::clamp(value, -kLimit, kLimit));
}

// One pixel more on every side than the outline needs, so that rounding in the painter never meets the border.
Math::Box2di pixelsTouchedBy(const QPainterPath& path, const QTransform& toPixel)
{
    const QRectF bounds = toPixel.mapRect(path.controlPointRect());
    return Math::Box2di(toPixelCoordinate(std::floor(bounds.left())), toPixelCoordinate(std::floor(bounds.top())),
                        toPixelCoordinate(std::floor(bounds.right())) + 1,
                        toPixelCoordinate(std::floor(bounds.bottom())) + 1)
        .getEnlarged(1);
}

// The shapes that have a paint, without their pictures.
std::vector<PaintedShape> paintShapes(const CELVEC_Kvd& drawing, GR_GraphicOpsColorTransform& colors,
                                      const QTransform& drawingToPixel)
{
    std::vector<PaintedShape> painted;
    CELVEC_PathCopy path;
    for (const GR_Art art : kGR_allArts) {
        if (!drawing.artSelector().isSelected(art))
            continue;
        colors.setCurrentArt(art);
        for (const CELVEC_Shape& shape : drawing.shapes(art)) {
            const CM_SharedPtr<CM_BaseColorObj> color = colors.GetColorObjectEntry(shape.color);
            if (!color && colors.renderSelectedColorsOnly())
                continue;
            VS_RGBA paint = colors.GetColorValue(color);
            colors.ApplyColorTransform(paint);
            if (paint.alpha == 0 || !(shape.opacity > 0.0))
                continue;
            QTransform toPixel = drawingToPixel;
            if (colors.isAffectsMatrix())
                colors.applyMatrixTransform(toPixel);
            const bool isCrowded = shape.clip && CELVEC_isCrowded(path.of(*shape.clip), toPixel);
            const QPainterPath& copy = path.of(shape.path);
            const Math::Box2di pixels = pixelsTouchedBy(copy, toPixel);
            painted.push_back({&shape, toPixel, paint, toQColor(paint, shape.opacity),
                               isCrowded || CELVEC_isCrowded(copy, toPixel), QImage(), pixels, pixels});
            if (shape.clip)
                painted.back().shown = pixels.getIntersection(pixelsTouchedBy(path.of(*shape.clip), toPixel));
        }
    }
    colors.closingColorTransform();
    return painted;
}

// Empty where no shape has a paint.
Math::Box2di rectOf(const std::vector<PaintedShape>& shapes, const CELVEC_RenderArgs& args)
{
    Math::Box2di touched;
    for (const PaintedShape& painted : shapes)
        touched.add(painted.pixels);
    const Math::Box2di rect = touched.getIntersection(args.wanted);
    return rect.isEmpty() ? Math::Box2di() : rect;
}

void paintPicture(QPainter& painter, const PaintedShape& painted, const QRectF& place)
{
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setOpacity(painted.shape->opacity);
    painter.drawImage(place, painted.picture);
    painter.setOpacity(1.0);
}

void paint(const std::vector<PaintedShape>& shapes, const Math::Box2di& rect, QImage& picture)
{
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    CELVEC_PathCopy copy;
    CELVEC_PathCopy clipCopy;
    for (const PaintedShape& painted : shapes) {
        if (painted.shown.getIntersection(rect).isEmpty())
            continue;
        const QTransform toPicture = painted.toPixel * QTransform::fromTranslate(-rect.x1, -rect.y1);
        painter.setTransform(toPicture);
        if (painted.isCrowded && painted.picture.isNull()) {
            const QPainterPath* const clip = painted.shape->clip ? &clipCopy.of(*painted.shape->clip) : nullptr;
            CELVEC_fillCrowded(painter, copy.of(painted.shape->path), clip, painted.paint);
            continue;
        }
        if (painted.shape->clip)
            painter.setClipPath(copy.of(*painted.shape->clip));
        else
            painter.setClipping(false);
        const QPainterPath& path = copy.of(painted.shape->path);
        if (!painted.picture.isNull())
            paintPicture(painter, painted, path.boundingRect());
        else
            painter.fillPath(path, painted.paint);
    }
}

bool hasPictures(const std::vector<PaintedShape>& shapes)
{
    return std::ranges::any_of(shapes, [](const PaintedShape& painted) { return !painted.picture.isNull(); });
}

// The picture that bands are painted on. It is reused, because fresh memory for each would cost as much as the
// painting.
class Canvas
{
public:
    Canvas(int width, int height)
        : _width(width)
        , _bytes(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * sizeof(QRgba64))
        , _pixels(static_cast<uchar*>(UT_PixelMemory::take(_bytes)))
    {}
    ~Canvas() { UT_PixelMemory::give(_pixels, _bytes); }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    // A picture for a band, transparent in a part of it and uninitialised elsewhere.
    QImage cleared(const Math::Box2di& band, const Math::Box2di& part) const
    {
        constexpr auto kBytes = static_cast<qsizetype>(sizeof(QRgba64));
        const qsizetype bytesPerRow = kBytes * _width;
        QImage picture(_pixels, _width, band.height(), bytesPerRow, QImage::Format_RGBA64_Premultiplied);
        if (picture.isNull())
            throw std::bad_alloc();
        for (int y = part.y1; y < part.y2; ++y)
            std::memset(_pixels + (y - band.y1) * bytesPerRow + (part.x1 - band.x1) * kBytes, 0,
                        static_cast<std::size_t>(part.width()) * sizeof(QRgba64));
        return picture;
    }

private:
    int _width;
    std::size_t _bytes;
    uchar* _pixels;
};

// What shapes may touch of a band.
Math::Box2di touchedPart(const std::vector<PaintedShape>& shapes, const Math::Box2di& band)
{
    Math::Box2di touched;
    for (const PaintedShape& painted : shapes)
        touched.add(painted.pixels.getIntersection(band));
    return touched;
}

// The painted pixels of a part of a band, which is empty where there are none.
class PaintedPart
{
public:
    // @param place the picture's, which contains the part
    PaintedPart(const QImage& picture, const Math::Box2di& place, const Math::Box2di& band, const Math::Box2di& part)
        : _picture(picture), _place(place), _band(band), _part(part)
    {}

    const Math::Box2di& band() const { return _band; }
    const Math::Box2di& part() const { return _part; }

    // The four channels of pixel (x, y) of the part, with those right of it after them.
    const std::uint16_t* at(int x, int y) const
    {
        static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "red is the first of a QRgba64's channels only there");
        static_assert(sizeof(QRgba64) == 4 * sizeof(std::uint16_t));
        return reinterpret_cast<const std::uint16_t*>(_picture.constScanLine(y - _place.y1)) +
               std::ptrdiff_t{x - _place.x1} * 4;
    }

private:
    const QImage& _picture;
    Math::Box2di _place;
    Math::Box2di _band;
    Math::Box2di _part;
};

constexpr int kRowsOfBand = 128;

// Calls take(painted) for the bands of a rectangle, several at once.
template<typename Take>
void paintBands(const std::vector<PaintedShape>& shapes, const Math::Box2di& rect, const Take& take)
{
    // Pictures are resampled by steps that are rounded from where a band, or a part that Qt makes of a fill, begins. So
    // what has some is painted as one band, in Qt's own parts.
    const bool isOne = hasPictures(shapes);
    const int height = isOne ? std::max(rect.height(), 1) : kRowsOfBand;
    const int bands = (rect.height() + height - 1) / height;
    const auto paintRange = [&](const tbb::blocked_range<int>& range) {
        const Canvas canvas(rect.width(), height);
        for (int i = range.begin(); i < range.end(); ++i) {
            const int top = rect.y1 + i * height;
            const Math::Box2di band(rect.x1, top, rect.x2, std::min(top + height, rect.y2));
            const Math::Box2di part = isOne ? band : touchedPart(shapes, band);
            QImage picture = canvas.cleared(band, part);
            if (!part.isEmpty())
                paint(shapes, band, picture);
            take(PaintedPart(picture, band, band, part));
        }
    };
    if (isOne) {
        paintRange({0, bands});
        return;
    }
    VL_parallelFor(tbb::blocked_range<int>(0, bands),
                   [&](const tbb::blocked_range<int>& range) { CELVEC_onPainterThread([&] { paintRange(range); }); });
}

// Where a sprite lies if it is all that a drawing shows and each of its pixels is one of the target's.
std::optional<Math::Box2di> placeOfPixels(const std::vector<PaintedShape>& shapes)
{
    constexpr double kClose = 1.0 / 65536.0; // the steps in which the painter resamples
    if (shapes.size() != 1 || shapes.front().shape->picture.isNull())
        return std::nullopt;
    const CELVEC_Shape& shape = *shapes.front().shape;
    const QTransform& toPixel = shapes.front().toPixel;
    const bool isUpright = toPixel.type() <= QTransform::TxScale && toPixel.m11() > 0.0 && toPixel.m22() > 0.0;
    if (!isUpright || shape.clip || shape.opacity < 1.0)
        return std::nullopt;
    CELVEC_PathCopy path;
    const QRectF place = toPixel.mapRect(path.of(shape.path).boundingRect());
    const int left = toPixelCoordinate(std::round(place.left()));
    const int top = toPixelCoordinate(std::round(place.top()));
    const Math::Box2di pixels(left, top, left + shape.picture.width(), top + shape.picture.height());
    const bool isThere = std::abs(place.left() - pixels.x1) < kClose && std::abs(place.top() - pixels.y1) < kClose &&
                         std::abs(place.right() - pixels.x2) < kClose && std::abs(place.bottom() - pixels.y2) < kClose;
    return isThere ? std::optional(pixels) : std::nullopt;
}

// Some rows of an image, which share its memory.
QImage rowsOf(const QImage& image, int first, int count)
{
    return GR_withPixels(
        QImage(image.constScanLine(first), image.width(), count, image.bytesPerLine(), image.format()));
}

// Calls take(painted) for the bands of a rectangle, several at once.
//
// @param place of the only shape's sprite
template<typename Take>
void copyBands(const CELVEC_Kvd& drawing, const PaintedShape& painted, const Math::Box2di& place,
               const Math::Box2di& rect, const Take& take)
{
    const auto copyBand = [&](int top) {
        const Math::Box2di band(rect.x1, top, rect.x2, std::min(top + kRowsOfBand, rect.y2));
        const Math::Box2di part = band.getIntersection(place);
        if (part.isEmpty()) {
            take(PaintedPart(QImage(), {}, band, Math::Box2di()));
            return;
        }
        const QImage rows = rowsOf(painted.shape->picture, part.y1 - place.y1, part.height());
        const QImage pixels = drawing.colorTransform() ? tinted(rows, painted.colour) : premultiplied(rows);
        take(PaintedPart(pixels, {place.x1, part.y1, place.x2, part.y2}, band, part));
    };
    const int bands = (rect.height() + kRowsOfBand - 1) / kRowsOfBand;
    VL_parallelFor(tbb::blocked_range<int>(0, bands), [&](const tbb::blocked_range<int>& range) {
        CELVEC_onPainterThread([&] {
            for (int i = range.begin(); i < range.end(); ++i)
                copyBand(rect.y1 + i * kRowsOfBand);
        });
    });
}

// Writes the rows of a band, which have the target's columns.
template<typename Pixel>
void takePixels(const PaintedPart& painted, CELVEC_RowKernels::Coverage coverage, CEL_PixmapOf<Pixel>& target)
{
    const Math::Box2di& part = painted.part();
    for (int y = painted.band().y1; y < painted.band().y2; ++y) {
        const std::span<Pixel> row = target.row(y);
        if (part.isEmpty() || y < part.y1 || y >= part.y2) {
            std::ranges::fill(row, Pixel{});
            continue;
        }
        const auto first = static_cast<std::size_t>(part.x1 - painted.band().x1);
        const auto width = static_cast<std::size_t>(part.width());
        std::ranges::fill(row.first(first), Pixel{});
        CELVEC_RowKernels::convert(painted.at(part.x1, y), coverage, row.subspan(first, width));
        std::ranges::fill(row.subspan(first + width), Pixel{});
    }
}

void takeCoverage(const PaintedPart& painted, CEL_CoverageStep step, CEL_CoveragePlane& coverage)
{
    const Math::Box2di common = painted.part().getIntersection(coverage.rect());
    if (common.isEmpty())
        return;
    const auto work = step == CEL_CoverageStep::PAINT_OVER ? CELVEC_RowKernels::paintOver : CELVEC_RowKernels::cutOut;
    for (int y = common.y1; y < common.y2; ++y)
        work(painted.at(common.x1, y), coverage.row(y).subspan(static_cast<std::size_t>(common.x1 - coverage.rect().x1),
                                                               static_cast<std::size_t>(common.width())));
}

void addPictures(const CELVEC_Kvd& drawing, std::vector<PaintedShape>& shapes)
{
    PaintedPictures pictures(drawing);
    for (PaintedShape& painted : shapes)
        painted.picture = pictures.of(*painted.shape, painted.colour);
}

// Calls take(painted) for the bands of a rectangle.
template<typename Take>
void paintDrawing(const CELVEC_Kvd& drawing, std::vector<PaintedShape>& shapes, const Math::Box2di& rect,
                  const Take& take)
{
    if (const std::optional<Math::Box2di> place = placeOfPixels(shapes)) {
        copyBands(drawing, shapes.front(), *place, rect, take);
        return;
    }
    addPictures(drawing, shapes);
    paintBands(shapes, rect, take);
}

bool arePlain(const std::vector<PaintedShape>& shapes)
{
    return std::ranges::all_of(shapes, [](const PaintedShape& painted) { return painted.shape->picture.isNull(); });
}

// Whether these are the same shapes at the same places, as opaque, and white.
bool areSameInWhite(const std::vector<PaintedShape>& shapes, const std::vector<PaintedShape>& whites)
{
    return std::ranges::equal(shapes, whites, [](const PaintedShape& painted, const PaintedShape& white) {
        const VS_RGBA& colour = white.colour;
        return painted.shape == white.shape && painted.toPixel == white.toPixel &&
               painted.paint.rgba64().alpha() == white.paint.rgba64().alpha() && colour.red == 255 &&
               colour.green == 255 && colour.blue == 255;
    });
}

// Keeps the alphas of a band, whose columns are the painting's.
void keepAlphas(const PaintedPart& painted, CELVEC_AlphaPlane& kept)
{
    const Math::Box2di& part = painted.part();
    for (int y = painted.band().y1; y < painted.band().y2; ++y) {
        const std::span<std::uint16_t> row = kept.row(y);
        if (part.isEmpty() || y < part.y1 || y >= part.y2) {
            std::ranges::fill(row, std::uint16_t{0});
            continue;
        }
        const auto first = static_cast<std::size_t>(part.x1 - painted.band().x1);
        const auto width = static_cast<std::size_t>(part.width());
        std::ranges::fill(row.first(first), std::uint16_t{0});
        CELVEC_RowKernels::takeAlphas(painted.at(part.x1, y), row.subspan(first, width));
        std::ranges::fill(row.subspan(first + width), std::uint16_t{0});
    }
}

} // namespace

void CELVEC_rasterise(const CELVEC_Kvd& drawing, GR_GraphicOpsColorTransform& colors, const CELVEC_RenderArgs& args,
                      CEL_PixmapArea& target)
{
    std::vector<PaintedShape> shapes = paintShapes(drawing, colors, args.drawingToPixel);
    const Math::Box2di rect = rectOf(shapes, args);
    target.realloc(Math::Box2di(), true);
    if (rect.isEmpty())
        return;
    const bool isClosed = args.closesSeams && !drawing.colorTransform();
    const auto coverage = isClosed ? CELVEC_RowKernels::Coverage::CLOSED : CELVEC_RowKernels::Coverage::KEPT;
    CEL_withFormat(target, [&](auto& typed) {
        typed.realloc(rect, false);
        using Pixel = CEL_PixelOf<decltype(typed)>;
        paintDrawing(drawing, shapes, rect,
                     [&](const PaintedPart& painted) { takePixels<Pixel>(painted, coverage, typed); });
    });
}

void CELVEC_rasteriseCoverage(const CELVEC_Kvd& drawing, GR_GraphicOpsColorTransform& colors,
                              const CELVEC_RenderArgs& args, CEL_CoverageStep step, CEL_CoveragePlane& coverage)
{
    std::vector<PaintedShape> shapes = paintShapes(drawing, colors, args.drawingToPixel);
    const Math::Box2di rect = rectOf(shapes, args);
    if (rect.isEmpty())
        return;
    paintDrawing(drawing, shapes, rect, [&](const PaintedPart& painted) { takeCoverage(painted, step, coverage); });
}

std::unique_ptr<CELVEC_AlphaPlane> CELVEC_rasteriseSharedAlpha(const CELVEC_ColouredDrawing& own,
                                                               const CELVEC_ColouredDrawing& white,
                                                               const CELVEC_RenderArgs& args)
{
    const std::vector<PaintedShape> shapes = paintShapes(own.drawing, own.colors, args.drawingToPixel);
    if (!arePlain(shapes) || !areSameInWhite(shapes, paintShapes(white.drawing, white.colors, args.drawingToPixel)))
        return nullptr;
    auto alpha = std::make_unique<CELVEC_AlphaPlane>(rectOf(shapes, args), args.closesSeams);
    paintBands(shapes, alpha->rect(), [&](const PaintedPart& painted) { keepAlphas(painted, *alpha); });
    return alpha;
}

Math::Box2di CELVEC_rasterisedRect(const CELVEC_Kvd& drawing, GR_GraphicOpsColorTransform& colors,
                                   const CELVEC_RenderArgs& args)
{
    return rectOf(paintShapes(drawing, colors, args.drawingToPixel), args);
}
