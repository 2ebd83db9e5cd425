// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Thumbnails are painted by the window's own painter: they need no more than to be recognised. A grey line around the
// shapes has enough contrast with black, white and the grounds of both themes, so that no object fades into its ground.
#include "studio/docks/scene/DrawingThumbnail.h"

#include "QuarvelSceneCore/graph/MO_SceneCommon.h"

#include <QPainter>

#include <algorithm>
#include <vector>

namespace {

constexpr double kMargin = 2.0;
constexpr double kThinnest = 3.0; // what is a line in this size is widened, so that there is something to see
constexpr QRgb kOutline = 0xff8a8a8a;
constexpr double kOutlineWidth = 2.0; // half of it lies under the shape

std::vector<const CELVEC_Shape*> allShapes(const CELVEC_Kvd& drawing)
{
    std::vector<const CELVEC_Shape*> shapes;
    for (const GR_Art art : kGR_allArts)
        if (drawing.artSelector().isSelected(art))
            for (const CELVEC_Shape& shape : drawing.shapes(art))
                shapes.push_back(&shape);
    return shapes;
}

// What reaches the frame's border goes on in shapes beyond it, so that the border is no outline. Nobody sees those.
// All shapes if none is in the frame.
std::vector<const CELVEC_Shape*> shapesIn(const CELVEC_Kvd& drawing, const QRectF& frame)
{
    constexpr double kRounding = 1e-6; // of the frame's size
    const QRectF inside = frame.adjusted(kRounding * frame.width(), kRounding * frame.height(),
                                         -kRounding * frame.width(), -kRounding * frame.height());
    std::vector<const CELVEC_Shape*> shapes = allShapes(drawing);
    const auto isSeen = [&](const CELVEC_Shape* shape) { return shape->path.controlPointRect().intersects(inside); };
    if (std::ranges::any_of(shapes, isSeen))
        std::erase_if(shapes, [&](const CELVEC_Shape* shape) { return !isSeen(shape); });
    return shapes;
}

bool isPicture(const CELVEC_Shape* shape)
{
    return !shape->picture.isNull();
}

// Where a picture covers something, in its own pixels: exact in small pictures, at most one sample too far in others.
// All of it if nothing is found.
QRectF coveredRect(const QImage& picture)
{
    constexpr int kMostSamples = 256; // each way
    const QSize samples = picture.size().boundedTo(QSize(kMostSamples, kMostSamples));
    const QImage sampled = picture.scaled(samples, Qt::IgnoreAspectRatio, Qt::FastTransformation)
                               .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QRect covered;
    for (int y = 0; y < sampled.height(); ++y) {
        const auto* const row = reinterpret_cast<const QRgb*>(sampled.constScanLine(y));
        for (int x = 0; x < sampled.width(); ++x)
            if (qAlpha(row[x]) > 0)
                covered |= QRect(x, y, 1, 1);
    }
    if (covered.isNull())
        return picture.rect();
    if (samples != picture.size())
        covered = covered.adjusted(-1, -1, 1, 1) & sampled.rect();
    const double right = static_cast<double>(picture.width()) / samples.width();
    const double down = static_cast<double>(picture.height()) / samples.height();
    return {covered.x() * right, covered.y() * down, covered.width() * right, covered.height() * down};
}

// What there is to see of a shape.
QRectF extentOf(const CELVEC_Shape& shape)
{
    if (!isPicture(&shape))
        return shape.path.controlPointRect();
    const QRectF place = shape.path.boundingRect();
    const QRectF covered = coveredRect(shape.picture);
    const double right = place.width() / shape.picture.width();
    const double down = place.height() / shape.picture.height();
    return {place.x() + covered.x() * right, place.y() + covered.y() * down, covered.width() * right,
            covered.height() * down};
}

void paintOutline(QPainter& painter, const CELVEC_Shape& shape, double ratio)
{
    QPen pen(QColor::fromRgb(kOutline), kOutlineWidth * ratio);
    pen.setCosmetic(true);
    painter.save();
    if (shape.clip)
        painter.setClipPath(*shape.clip);
    painter.strokePath(shape.path, pen);
    painter.restore();
}

void paintShape(QPainter& painter, const CELVEC_Kvd& drawing, const CELVEC_Shape& shape)
{
    painter.save();
    painter.setOpacity(shape.opacity);
    if (shape.clip)
        painter.setClipPath(*shape.clip);
    const auto color = drawing.palette() ? drawing.palette()->findColor(shape.color) : nullptr;
    if (!shape.picture.isNull()) {
        painter.drawImage(shape.path.boundingRect(), shape.picture);
    } else if (color) {
        const CM_Rgba& rgba = color->GetNominalColor();
        painter.fillPath(shape.path, QColor(rgba.red, rgba.green, rgba.blue, rgba.alpha));
    }
    painter.restore();
}

// What pictures cover, in the outline's colour and as many pixels as the thumbnail has.
QImage silhouette(const CELVEC_Kvd& drawing, const std::vector<const CELVEC_Shape*>& pictures, const QSize& pixels,
                  double ratio, const QTransform& toSquare)
{
    QImage covered(pixels, QImage::Format_ARGB32_Premultiplied);
    covered.setDevicePixelRatio(ratio);
    covered.fill(Qt::transparent);
    QPainter painter(&covered);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setTransform(toSquare);
    for (const CELVEC_Shape* const picture : pictures)
        paintShape(painter, drawing, *picture);
    painter.resetTransform();
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRectF(QPointF(), covered.deviceIndependentSize()), QColor::fromRgb(kOutline));
    return covered;
}

// A picture has no path: what it covers is painted all around the place where it will lie.
void paintPictureOutlines(QPainter& painter, const QImage& covered)
{
    constexpr double kReach = kOutlineWidth / 2.0;
    painter.save();
    painter.resetTransform();
    for (const double x : {-kReach, 0.0, kReach})
        for (const double y : {-kReach, 0.0, kReach})
            painter.drawImage(QPointF(x, y), covered);
    painter.restore();
}

} // namespace

QRectF frameInDrawing(const MO_Scene& scene, const MO_ElementModule& element, double frame)
{
    const double height = scene.frameHeight();
    const QRectF all(-MO_SceneCommon::kFrameWidth / 2.0, -height / 2.0, MO_SceneCommon::kFrameWidth, height);
    bool isPossible = false;
    const QTransform toDrawing = element.drawingToScene(frame).inverted(&isPossible);
    return isPossible ? toDrawing.mapRect(all) : QRectF();
}

QPixmap drawingThumbnail(const CELVEC_Kvd& drawing, int side, double ratio, const QRectF& frame)
{
    const std::vector<const CELVEC_Shape*> shapes = shapesIn(drawing, frame);
    const int pixels = std::max(1, static_cast<int>(side * ratio));
    QPixmap pixmap(pixels, pixels);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QRectF bounds;
    for (const CELVEC_Shape* const shape : shapes)
        bounds |= extentOf(*shape);
    const double longest = std::max(bounds.width(), bounds.height());
    if (!(longest > 0.0))
        return pixmap;
    QTransform toSquare = QTransform::fromTranslate(side / 2.0, side / 2.0);
    const double scale = (side - 2 * kMargin) / longest;
    const auto scaleOf = [scale](double length) { return length > 0.0 ? std::max(scale, kThinnest / length) : scale; };
    toSquare.scale(scaleOf(bounds.width()), scaleOf(bounds.height()));
    toSquare.translate(-bounds.center().x(), -bounds.center().y());
    QPainter painter(&pixmap);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setTransform(toSquare);
    std::vector<const CELVEC_Shape*> pictures;
    for (const CELVEC_Shape* const shape : shapes)
        if (isPicture(shape))
            pictures.push_back(shape);
        else
            paintOutline(painter, *shape, ratio);
    if (!pictures.empty())
        paintPictureOutlines(painter, silhouette(drawing, pictures, pixmap.size(), ratio, toSquare));
    for (const CELVEC_Shape* const shape : shapes)
        paintShape(painter, drawing, *shape);
    return pixmap;
}
