// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// In a reduced picture a cell may hold pixels of two regions. Each such pixel goes to the region of the neighbouring
// cell whose colour is closest to the pixel's.
#include "form/bitmap/pictures/ObjectPictures.h"

#include "QuarvelGraphicCore/GR_ImageMemory.h"

#include <QRgba64>

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace {

template<typename Pixel>
struct PixelFormat;

template<>
struct PixelFormat<QRgb>
{
    static QRgb opaque(QRgb colour) { return colour | 0xff000000U; }
    static int alpha(QRgb pixel) { return qAlpha(pixel); }
    static QRgb plain(QRgb pixel) { return pixel; }
    static constexpr int kOpaque = 255;
};

template<>
struct PixelFormat<QRgba64>
{
    static QRgba64 opaque(QRgb colour)
    {
        return QRgba64::fromRgba(static_cast<quint8>(qRed(colour)), static_cast<quint8>(qGreen(colour)),
                                 static_cast<quint8>(qBlue(colour)), 255);
    }
    static int alpha(QRgba64 pixel) { return pixel.alpha(); }
    static QRgb plain(QRgba64 pixel) { return pixel.toArgb32(); }
    static constexpr int kOpaque = 65535;
};

// Finds the label of each pixel of the bitmap.
class PixelLabels
{
public:
    PixelLabels(const OwnPicture& own, const PixelPlane<int>& labels, int width)
        : _own(own), _labels(labels), _mixed(mixedCells())
    {
        for (int x = 0; x < width; ++x)
            _columns.push_back(own.cells.cellX(x));
    }

    /// @param cy the row of cells that the pixel lies in
    int at(int x, int cy, QRgb pixel) const
    {
        const int cx = _columns[static_cast<std::size_t>(x)];
        return _mixed.at(cx, cy) ? mostAlike(cx, cy, pixel) : _labels.at(cx, cy);
    }

private:
    template<typename Visit>
    void forEachAround(int cx, int cy, Visit visit) const
    {
        for (int y = std::max(0, cy - 1); y < std::min(_labels.height(), cy + 2); ++y)
            for (int x = std::max(0, cx - 1); x < std::min(_labels.width(), cx + 2); ++x)
                if (_labels.at(x, y) >= 0)
                    visit(x, y);
    }

    // Marks the cells that have a neighbour with another label.
    PixelPlane<char> mixedCells() const
    {
        PixelPlane<char> mixed(_labels.width(), _labels.height(), 0);
        if (!_own.reduced)
            return mixed;
        for (int y = 0; y < mixed.height(); ++y)
            for (int x = 0; x < mixed.width(); ++x)
                forEachAround(x, y, [&](int nx, int ny) {
                    if (_labels.at(nx, ny) != _labels.at(x, y))
                        mixed.at(x, y) = 1;
                });
        return mixed;
    }

    // The label of the cell or neighbour whose colour is closest to the pixel's; of equally close ones, the cell
    // itself.
    int mostAlike(int cx, int cy, QRgb pixel) const
    {
        int best = _labels.at(cx, cy);
        int least = best < 0 ? std::numeric_limits<int>::max() : apart(pixel, _own.colours.at(cx, cy));
        forEachAround(cx, cy, [&](int x, int y) {
            const int difference = apart(pixel, _own.colours.at(x, y));
            if (difference < least) {
                least = difference;
                best = _labels.at(x, y);
            }
        });
        return best;
    }

    static int apart(QRgb a, QRgb b)
    {
        return std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b));
    }

    const OwnPicture& _own;
    const PixelPlane<int>& _labels;
    PixelPlane<char> _mixed;
    std::vector<int> _columns; // the cell of each column
};

// An object's picture while it is painted.
struct Canvas
{
    QRect place;
    QImage whole;
    QImage shown;
    bool completed = false;
};

// The objects whose pictures the pixels of one label are painted into.
struct Targets
{
    int own = -1; // index of the visible object
    struct Lower
    {
        int object;
        bool inside; // the pixels fill a hole in it
    };
    std::vector<Lower> beneath; // the objects that continue beneath it
};

std::vector<Targets> targetsOf(const std::vector<ObjectLabels>& objects)
{
    int count = 0;
    for (const ObjectLabels& object : objects)
        count = std::max(count, object.label + 1);
    std::vector<Targets> targets(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < objects.size(); ++i) {
        targets[static_cast<std::size_t>(objects[i].label)].own = static_cast<int>(i);
        for (const int label : objects[i].beneath)
            targets[static_cast<std::size_t>(label)].beneath.push_back(
                {static_cast<int>(i), std::ranges::find(objects[i].inside, label) != objects[i].inside.end()});
    }
    return targets;
}

template<typename Pixel>
class Painter
{
    using Format = PixelFormat<Pixel>;

public:
    Painter(const QImage& bitmap, const OwnPicture& own, const PixelPlane<int>& labels,
            const std::vector<ObjectLabels>& objects)
        : _bitmap(bitmap)
        , _cells(own.cells)
        , _labels(own, labels, bitmap.width())
        , _objects(objects)
        , _targets(targetsOf(objects))
        , _canvases(objects.size())
        , _runs(static_cast<std::size_t>(bitmap.height()))
    {}

    std::vector<ObjectPicture> paint()
    {
        findPlaces();
        for (Canvas& canvas : _canvases) {
            canvas.whole = GR_newImage(canvas.place.size(), _bitmap.format());
            canvas.whole.fill(0);
        }
        for (int y = 0; y < _bitmap.height(); ++y)
            paintRow(y);
        std::vector<ObjectPicture> pictures;
        for (Canvas& canvas : _canvases)
            pictures.push_back({canvas.place, std::move(canvas.whole), std::move(canvas.shown), canvas.place});
        return pictures;
    }

private:
    const Pixel* row(int y) const { return reinterpret_cast<const Pixel*>(_bitmap.constScanLine(y)); }

    const Targets* targetsAt(int x, int cy, Pixel pixel) const
    {
        if (Format::alpha(pixel) == 0)
            return nullptr;
        const int label = _labels.at(x, cy, Format::plain(pixel));
        return label < 0 ? nullptr : &_targets[static_cast<std::size_t>(label)];
    }

    // Pixels of a row with the same targets.
    struct Run
    {
        const Targets* targets;
        int from;
        int to;
    };

    void findRuns(int y, std::vector<Run>& runs) const
    {
        const Pixel* pixels = row(y);
        const int cy = _cells.cellY(y);
        runs.clear();
        for (int x = 0; x < _bitmap.width(); ++x) {
            const Targets* here = targetsAt(x, cy, pixels[x]);
            if (!here)
                continue;
            if (!runs.empty() && runs.back().to == x && runs.back().targets == here)
                ++runs.back().to;
            else
                runs.push_back({here, x, x + 1});
        }
    }

    Canvas& canvas(int object) { return _canvases[static_cast<std::size_t>(object)]; }

    void findPlaces()
    {
        for (int y = 0; y < _bitmap.height(); ++y) {
            std::vector<Run>& runs = _runs[static_cast<std::size_t>(y)];
            findRuns(y, runs);
            for (const Run& run : runs) {
                const QRect place(run.from, y, run.to - run.from, 1);
                canvas(run.targets->own).place |= place;
                for (const Targets::Lower& lower : run.targets->beneath) {
                    canvas(lower.object).place |= place;
                    canvas(lower.object).completed |= !lower.inside;
                }
            }
        }
        for (Canvas& canvas : _canvases)
            if (canvas.completed) {
                canvas.shown = GR_newImage(canvas.place.size(), QImage::Format_Alpha8);
                canvas.shown.fill(0);
            }
    }

    Pixel* target(int object, int x, int y)
    {
        Canvas& to = canvas(object);
        return reinterpret_cast<Pixel*>(to.whole.scanLine(y - to.place.top())) + (x - to.place.left());
    }

    void paintRow(int y)
    {
        const Pixel* pixels = row(y);
        for (const auto& [targets, from, to] : _runs[static_cast<std::size_t>(y)]) {
            std::copy(pixels + from, pixels + to, target(targets->own, from, y));
            markShown(canvas(targets->own), pixels, from, to, y);
            for (const Targets::Lower& lower : targets->beneath) {
                const auto [first, last] = lower.inside ? std::pair(from, to) : measured(lower.object, from, to, y);
                markShown(canvas(lower.object), pixels, first, last, y);
                if (hasOutline(lower.object))
                    fillBeneath(lower.object, pixels, first, last, y);
                else
                    fillBeneath(lower.object, pixels, from, to, y);
            }
        }
    }

    bool hasOutline(int object) const { return _objects[static_cast<std::size_t>(object)].outline.has_value(); }

    // The part of a run that lies inside an object's outline or, if that is not known, its hull.
    std::pair<int, int> measured(int object, int from, int to, int y) const
    {
        const ObjectLabels& labels = _objects[static_cast<std::size_t>(object)];
        const int row = _cells.cellY(y);
        const auto [first, last] = labels.outline ? labels.outline->pixelsIn(row, 0.0) : labels.hull.pixelsIn(row);
        return {std::max(from, first * _cells.size - _cells.offsetX),
                std::min(to, last * _cells.size - _cells.offsetX)};
    }

    static void markShown(Canvas& canvas, const Pixel* pixels, int from, int to, int y)
    {
        if (!canvas.completed)
            return;
        uchar* shown = canvas.shown.scanLine(y - canvas.place.top()) - canvas.place.left();
        for (int x = from; x < to; ++x)
            shown[x] = static_cast<uchar>(qAlpha(Format::plain(pixels[x])));
    }

    void fillBeneath(int lower, const Pixel* pixels, int from, int to, int y)
    {
        const Pixel own = Format::opaque(_objects[static_cast<std::size_t>(lower)].colour);
        Pixel* filled = target(lower, from, y) - from;
        for (int x = from; x < to; ++x)
            if (Format::alpha(pixels[x]) == Format::kOpaque)
                filled[x] = own;
    }

    const QImage& _bitmap;
    PixelCells _cells;
    PixelLabels _labels;
    const std::vector<ObjectLabels>& _objects;
    std::vector<Targets> _targets;
    std::vector<Canvas> _canvases;
    std::vector<std::vector<Run>> _runs; // for each row
};

} // namespace

std::vector<ObjectPicture> objectPictures(const QImage& bitmap, const OwnPicture& own, const PixelPlane<int>& labels,
                                          const std::vector<ObjectLabels>& objects)
{
    if (bitmap.depth() > 32)
        return Painter<QRgba64>(bitmap, own, labels, objects).paint();
    return Painter<QRgb>(bitmap, own, labels, objects).paint();
}
