// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Runs the steps in their order and puts the result together.
#include "form/bitmap/BitmapObjects.h"

#include "QuarvelDrawingIO/DIO_Palette.h"
#include "form/bitmap/pictures/Backdrop.h"
#include "form/bitmap/pictures/FrameContinuation.h"
#include "form/bitmap/pictures/LineArt.h"
#include "form/bitmap/regions/BitmapBoards.h"
#include "form/bitmap/regions/BitmapRoles.h"
#include "form/bitmap/regions/BitmapSigns.h"
#include "form/bitmap/regions/RegionMerging.h"

#include <cmath>
#include <map>
#include <span>

namespace {

// How far a bevel reaches outside an outline, in multiples of the object's largest radius. Anything farther away than a
// quarter of the picture hardly shows.
constexpr double kBeyond = 2.0;

// Names by colour; the second red object is "red-2".
class Names
{
public:
    QString next(const SeenColour& colour)
    {
        const QString word = colourWord(colour);
        const int count = ++_counts[word];
        return count == 1 ? word : word + QLatin1Char('-') + QString::number(count);
    }

private:
    std::map<QString, int> _counts;
};

// The result for a bitmap without covered pixels: the unchanged drawing as one object.
ChosenObjects asItIs(const DIO_Drawing& drawing)
{
    ChosenObject object;
    object.name = drawing.layers.front().name;
    object.reason = QStringLiteral("the whole picture");
    return {drawing, {object}};
}

// How far an object continues outside the picture's border, in pixels.
int marginFor(const Region& region, const PixelCells& cells, const QSize& bitmap)
{
    const double most = std::max(bitmap.width(), bitmap.height()) / 4.0;
    return static_cast<int>(std::lround(std::min(most, kBeyond * region.deepest * cells.size)));
}

// Puts the result together. A single object keeps the name and the paint of the drawing's layer.
class Assembly
{
public:
    Assembly(const DIO_Drawing& drawing, bool one)
        : _source(drawing), _shape(drawing.layers.front().shapes.front()), _one(one), _chosen{drawing, {}}
    {
        _chosen.drawing.layers.clear();
        if (!one)
            _chosen.drawing.palette.clear();
    }

    void add(const ObjectPicture& picture, QRgb paint, const SeenColour& colour, const BitmapRole& role, double share)
    {
        const int index = _one ? _shape.paint : paintOf(paint);
        ChosenObject object;
        object.name = _one ? _source.layers.front().name : _names.next(colour);
        object.reason = role.reason;
        object.role = role.role;
        object.colours = {_chosen.drawing.palette[static_cast<std::size_t>(index)].name};
        object.share = share;
        if (!picture.shown.isNull())
            object.measured = {pictureShape(picture.shownPlace, picture.shown, index)};
        _chosen.drawing.layers.push_back({object.name,
                                          _one && _source.layers.front().declared,
                                          {pictureShape(picture.place, picture.whole, index)}});
        _chosen.objects.push_back(std::move(object));
    }

    // The whole bitmap, flat, beneath what stands in front of its backdrop.
    void addBackdrop(const CutOut& cut)
    {
        const int index = paintOf(cut.backdrop);
        ChosenObject object;
        object.name = _names.next(SeenColour::of(QColor::fromRgb(cut.backdrop)));
        object.reason = QStringLiteral("the backdrop");
        object.role = ObjectRole::FLAT;
        object.colours = {_chosen.drawing.palette[static_cast<std::size_t>(index)].name};
        object.share = cut.share;
        DIO_Shape shape = _shape;
        shape.paint = index;
        _chosen.drawing.layers.push_back({object.name, false, {shape}});
        _chosen.objects.push_back(std::move(object));
    }

    ChosenObjects take() { return std::move(_chosen); }

private:
    DIO_Shape pictureShape(const QRect& place, const QImage& picture, int paint) const
    {
        const QRectF frame = _shape.path.boundingRect();
        const double sx = frame.width() / _shape.picture.width();
        const double sy = frame.height() / _shape.picture.height();
        DIO_Shape shape;
        shape.path.addRect(frame.left() + sx * place.left(), frame.top() + sy * place.top(), sx * place.width(),
                           sy * place.height());
        shape.opacity = _shape.opacity;
        shape.paint = paint;
        shape.picture = picture;
        return shape;
    }

    int paintOf(QRgb colour)
    {
        return DIO_paintIndex(_chosen.drawing.palette, DIO_solidPaint(QColor::fromRgb(colour)));
    }

    const DIO_Drawing& _source;
    const DIO_Shape& _shape;
    bool _one;
    ChosenObjects _chosen;
    Names _names;
};

// A drawing goes on beyond its own frame; a picture that ends inside that frame shows all that there is.
void endInside(const QRectF& frame, const DIO_Shape& shape, FrameCuts& cuts)
{
    const QRectF place = shape.path.boundingRect();
    const double across = place.width() / shape.picture.width() / 2.0;
    const double down = place.height() / shape.picture.height() / 2.0;
    if (place.left() > frame.left() + across)
        cuts.endAt(FrameSide::LEFT);
    if (place.top() > frame.top() + down)
        cuts.endAt(FrameSide::TOP);
    if (place.right() < frame.right() - across)
        cuts.endAt(FrameSide::RIGHT);
    if (place.bottom() < frame.bottom() - down)
        cuts.endAt(FrameSide::BOTTOM);
}

// The share of the bitmap that each label has. The first and the last cell of a row or column may be incomplete.
std::map<int, double> sharesOf(const PixelPlane<int>& labels, const PixelCells& cells, const QSize& bitmap)
{
    const auto pixelsPerCell = [](int pixels, int count, auto cellOf) {
        std::vector<double> numbers(static_cast<std::size_t>(count));
        for (int i = 0; i < pixels; ++i)
            ++numbers[static_cast<std::size_t>(cellOf(i))];
        return numbers;
    };
    const auto columns = pixelsPerCell(bitmap.width(), labels.width(), [&](int x) { return cells.cellX(x); });
    const auto rows = pixelsPerCell(bitmap.height(), labels.height(), [&](int y) { return cells.cellY(y); });
    std::map<int, double> shares;
    for (std::size_t y = 0; y < rows.size(); ++y) {
        const std::span<const int> row = labels.row(static_cast<int>(y));
        for (std::size_t x = 0; x < row.size(); ++x)
            shares[row[x]] += rows[y] * columns[x];
    }
    for (auto& [label, share] : shares)
        share /= static_cast<double>(bitmap.width()) * bitmap.height();
    return shares;
}

FlatRegion flatRegionOf(RegionGraph& graph, const RegionGraph& found, const PixelPlane<QRgb>& colours)
{
    if (const int board = joinBoard(graph, found.regions()); board != kNoLabel)
        return {board, QStringLiteral("areas that fill a rectangle")};
    if (const int sign = findSign(graph, found, colours); sign != kNoLabel)
        return {sign, QStringLiteral("a disc with a sign on it")};
    int ring = kNoLabel;
    if (std::vector<int> fields = fieldsInRing(graph, ring); !fields.empty())
        return {ring, QStringLiteral("a ring with a bar across it"), std::move(fields)};
    return {};
}

std::vector<ObjectLabels> objectLabels(const BitmapRegions& regions, const RegionGraph& graph,
                                       const StackingOrder& stacking, const std::vector<BitmapRole>& roles)
{
    std::vector<ObjectLabels> objects;
    for (std::size_t i = 0; i < stacking.bottomUp.size(); ++i) {
        const int number = stacking.bottomUp[i];
        // A flat region has no volume that could continue beneath others.
        const bool goesOn = roles[i].role != ObjectRole::FLAT;
        objects.push_back({number, goesOn ? stacking.beneath[i] : std::vector<int>(), stacking.inside[i],
                           regions.colours[static_cast<std::size_t>(number)].average(), graph.region(number).hull,
                           stacking.round[i]});
    }
    return objects;
}

} // namespace

bool isBitmap(const DIO_Drawing& drawing)
{
    return drawing.layers.size() == 1 && drawing.layers.front().shapes.size() == 1 &&
           !drawing.layers.front().shapes.front().picture.isNull() && !drawing.layers.front().shapes.front().clip;
}

ChosenObjects chooseBitmapObjects(const DIO_Drawing& drawing, const QRectF& page)
{
    const std::optional<CutOut> cut = cutFromBackdrop(drawing.layers.front().shapes.front().picture);
    const QImage& original = drawing.layers.front().shapes.front().picture;
    const QImage& foreground = cut ? cut->foreground : original;
    const std::optional<QImage> filled =
        filledLineArt(foreground, cut ? cut->backdrop : qRgb(255, 255, 255), cut ? original : QImage());
    const QImage& bitmap = filled ? *filled : foreground;
    const OwnPicture own = ownPictureOf(bitmap);
    const BitmapRegions regions = bitmapRegionsOf(own.colours);
    RegionGraph graph(regions, own.colours);
    if (graph.coveredPixels() == 0)
        return asItIs(drawing);
    const RegionGraph found = graph;
    if (!regions.painted)
        joinShadesAndMarks(graph, regions.hard);
    BitmapFrame frame{bitmap.size(), own.cells, FrameCuts(graph.labels())};
    endInside(drawing.viewBox, drawing.layers.front().shapes.front(), frame.cuts);
    const bool opaque = frame.cuts.isCutAllAround();
    // A picture that is opaque up to its borders has no outline, so it is neither a board nor a sign.
    const FlatRegion flat = regions.painted || opaque ? FlatRegion() : flatRegionOf(graph, found, own.colours);
    const PixelPlane<int> labels = graph.labels();
    endInside(page, drawing.layers.front().shapes.front(), frame.cuts);
    const StackingOrder stacking = stackingOrderOf(graph, labels);
    const std::vector<BitmapRole> roles = bitmapRolesOf(graph, stacking, flat, regions.painted, opaque);
    const std::vector<ObjectLabels> parts = objectLabels(regions, graph, stacking, roles);
    std::vector<ObjectPicture> pictures = objectPictures(bitmap, own, labels, parts);

    std::map<int, double> shares = sharesOf(labels, own.cells, bitmap.size());
    Assembly assembly(drawing, parts.size() == 1 && !cut && !filled);
    if (cut)
        assembly.addBackdrop(*cut);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const Region& region = graph.region(parts[i].label);
        endAtFrame(pictures[i], frame);
        if (roles[i].role != ObjectRole::FLAT && roles[i].role != ObjectRole::SLAB)
            repeatBeyondFrame(pictures[i], frame, marginFor(region, own.cells, bitmap.size()));
        assembly.add(pictures[i], parts[i].colour, region.colour, roles[i], shares[parts[i].label]);
    }
    return assembly.take();
}
