// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The steps in their order, and the result put together.
#include "form/bitmap/BitmapObjects.h"

#include "form/bitmap/BitmapRoles.h"
#include "form/bitmap/FrameContinuation.h"
#include "form/bitmap/RegionMerging.h"

#include <cmath>
#include <map>

namespace {

// A bevel reaches so many of an object's largest radii beyond its outline.
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

DIO_Shape pictureShape(const DIO_Drawing& drawing, const QImage& bitmap, const QRect& place, const QImage& picture,
                       int paint)
{
    const QRectF& frame = drawing.viewBox;
    const double sx = frame.width() / bitmap.width();
    const double sy = frame.height() / bitmap.height();
    DIO_Shape shape;
    shape.path.addRect(frame.left() + sx * place.left(), frame.top() + sy * place.top(), sx * place.width(),
                       sy * place.height());
    shape.opacity = drawing.layers.front().shapes.front().opacity;
    shape.paint = paint;
    shape.picture = picture;
    return shape;
}

// The drawing as it is, where nothing is covered.
ChosenObjects asItIs(const DIO_Drawing& drawing)
{
    ChosenObject object;
    object.name = drawing.layers.front().name;
    object.reason = QStringLiteral("the whole picture");
    return {drawing, {object}};
}

int paintOf(DIO_Drawing& drawing, QRgb colour)
{
    const QColor opaque = QColor::fromRgb(colour | 0xff000000U);
    const DIO_Paint paint{DIO_Paint::Kind::SOLID, opaque, opaque.name()};
    const auto found = std::ranges::find(drawing.palette, paint);
    if (found != drawing.palette.end())
        return static_cast<int>(found - drawing.palette.begin());
    drawing.palette.push_back(paint);
    return static_cast<int>(drawing.palette.size()) - 1;
}

std::vector<ObjectLabels> objectLabels(const BitmapRegions& regions, const RegionGraph& graph,
                                       const StackingOrder& stacking, const std::vector<BitmapRole>& roles)
{
    std::vector<ObjectLabels> objects;
    for (std::size_t i = 0; i < stacking.bottomUp.size(); ++i) {
        const int number = stacking.bottomUp[i];
        // What has no volume has none to go on beneath others.
        const bool goesOn = roles[i].role != ObjectRole::FLAT;
        objects.push_back({number, goesOn ? stacking.beneath[i] : std::vector<int>(), stacking.inside[i],
                           regions.colours[static_cast<std::size_t>(number)].average(), graph.region(number).hull});
    }
    return objects;
}

} // namespace

bool isBitmap(const DIO_Drawing& drawing)
{
    return drawing.layers.size() == 1 && drawing.layers.front().shapes.size() == 1 &&
           !drawing.layers.front().shapes.front().picture.isNull() && !drawing.layers.front().shapes.front().clip;
}

ChosenObjects chooseBitmapObjects(const DIO_Drawing& drawing)
{
    const QImage& bitmap = drawing.layers.front().shapes.front().picture;
    const OwnPicture own = ownPictureOf(bitmap);
    const BitmapRegions regions = bitmapRegionsOf(own.colours);
    RegionGraph graph(regions, own.colours);
    if (graph.coveredPixels() == 0)
        return asItIs(drawing);
    if (!regions.painted)
        joinShadesAndMarks(graph, regions.hard);
    const PixelPlane<int> labels = graph.labels();
    const BitmapFrame frame{bitmap.size(), own.cells, FrameCuts(labels)};
    const StackingOrder stacking = stackingOrderOf(graph, labels);
    const std::vector<BitmapRole> roles = bitmapRolesOf(graph, stacking, regions.painted, frame.cuts.isCutAllAround());
    const std::vector<ObjectLabels> parts = objectLabels(regions, graph, stacking, roles);
    std::vector<ObjectPicture> pictures = objectPictures(bitmap, own, labels, parts);

    ChosenObjects chosen{drawing, {}};
    chosen.drawing.layers.clear();
    chosen.drawing.palette.clear();
    Names names;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const Region& region = graph.region(parts[i].label);
        ObjectPicture& picture = pictures[i];
        endAtFrame(picture, frame);
        continueBeyondFrame(picture, frame, static_cast<int>(std::lround(kBeyond * region.deepest * own.cells.size)));
        const int paint = paintOf(chosen.drawing, parts[i].colour);
        ChosenObject object;
        object.name = names.next(region.colour);
        object.reason = roles[i].reason;
        object.role = roles[i].role;
        object.colours = {chosen.drawing.palette[static_cast<std::size_t>(paint)].name};
        object.share = double(region.pixels) / own.colours.count();
        if (!picture.shown.isNull())
            object.measured = {pictureShape(drawing, bitmap, picture.shownPlace, picture.shown, paint)};
        chosen.drawing.layers.push_back(
            {object.name, false, {pictureShape(drawing, bitmap, picture.place, picture.whole, paint)}});
        chosen.objects.push_back(std::move(object));
    }
    return chosen;
}
