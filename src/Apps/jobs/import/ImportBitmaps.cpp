// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Bitmaps: a layer for each name, a drawing for each number. Files without a number are shown all the time.
#include "QuarvelDrawingIO/DIO_BitmapReader.h"
#include "form/ChooseObjects.h"
#include "jobs/import/ImportKinds.h"
#include "jobs/import/RepeatedWarnings.h"
#include "jobs/import/SequenceBuilder.h"

#include <QSet>

#include <algorithm>
#include <optional>
#include <set>

namespace {

// The files of a layer by their frames; the file without a frame is shown at all frames that have no other.
struct BitmapLayer
{
    QString name;
    std::map<std::optional<int>, QString> files;
    std::optional<DIO_Paint> paint; // of the first picture, for all of them
};

UT_Result<std::vector<BitmapLayer>> layersOf(const QStringList& files)
{
    std::vector<BitmapLayer> layers;
    for (const QString& file : files) {
        const UT_Result<std::optional<int>> number = files.size() == 1 ? std::optional<int>() : frameNumberOf(file);
        if (!number)
            return number.error();
        const QString name = files.size() == 1 ? sequenceName(files) : DIO_nameWithoutNumber(file);
        auto layer = std::ranges::find(layers, name, &BitmapLayer::name);
        if (layer == layers.end())
            layer = layers.insert(layers.end(), {name, {}, {}});
        const auto [place, isNew] = layer->files.emplace(*number, file);
        if (!isNew)
            return UT_Error{
                QStringLiteral("%1 and %2 are the same layer at the same frame; rename one, or leave it out")
                    .arg(place->second, file)};
    }
    return layers;
}

std::set<int> framesOf(const std::vector<BitmapLayer>& layers)
{
    std::set<int> frames;
    for (const BitmapLayer& layer : layers)
        for (const auto& [frame, file] : layer.files)
            if (frame)
                frames.insert(*frame);
    if (frames.empty())
        frames.insert(1);
    return frames;
}

const QString* fileAt(const BitmapLayer& layer, int frame)
{
    const auto numbered = layer.files.find(frame);
    const auto found = numbered != layer.files.end() ? numbered : layer.files.find(std::nullopt);
    return found == layer.files.end() ? nullptr : &found->second;
}

// Reads the pictures of one frame after the other into a sequence.
class BitmapFrames
{
public:
    explicit BitmapFrames(const QString& name) : _builder(name) {}

    UT_Result<void> add(int frame, std::vector<BitmapLayer>& layers)
    {
        const UT_Result<DIO_Drawing> drawing = read(frame, layers);
        if (!drawing)
            return drawing.error();
        warnOf({*drawing, {}});
        _builder.addFrame(frame, *drawing);
        return {};
    }

    // The only frame of the sequence, with one picture: its objects are chosen from it.
    UT_Result<void> addChosen(int frame, std::vector<BitmapLayer>& layers, ObjectChoice objects)
    {
        const UT_Result<DIO_Drawing> drawing = read(frame, layers);
        if (!drawing)
            return drawing.error();
        const ChosenObjects chosen = chooseObjects(*drawing, objects);
        warnOf(chosen);
        _builder.addFrame(frame, chosen);
        return {};
    }

    DrawingSequence take(const std::set<int>& frames)
    {
        DrawingSequence sequence = _builder.take();
        sequence.frame = QRectF(QPointF(), _size);
        sequence.size = _size;
        sequence.firstFrame = *frames.begin();
        sequence.lastFrame = *frames.rbegin();
        sequence.warnings += _warnings.lines();
        return sequence;
    }

private:
    UT_Result<DIO_Drawing> read(int frame, std::vector<BitmapLayer>& layers)
    {
        DIO_Drawing drawing;
        for (BitmapLayer& layer : layers)
            if (const QString* file = fileAt(layer, frame))
                if (UT_Result<void> added = addLayer(drawing, layer, *file); !added)
                    return added.error();
        drawing.size = _size;
        drawing.viewBox = QRectF(QPointF(), _size);
        return drawing;
    }

    void warnOf(const ChosenObjects& chosen)
    {
        const QString warning = chosen.warning();
        if (warning.isEmpty() || _opaque.contains(_latest))
            return;
        _warnings.add(_latest, {warning});
        _opaque.insert(_latest);
    }

    UT_Result<void> addLayer(DIO_Drawing& drawing, BitmapLayer& layer, const QString& file)
    {
        UT_Result<DIO_Drawing> read = readOnce(file);
        if (!read)
            return read.error();
        if (_size.isEmpty()) {
            _size = read->size;
            _sizedBy = file;
        }
        if (read->size != _size)
            read->warnings.append(QStringLiteral("its size differs from that of %1, which counts").arg(_sizedBy));
        drawing.opaqueEdge = drawing.opaqueEdge || read->opaqueEdge;
        _latest = file;
        if (!_warned.contains(file))
            _warnings.add(file, read->warnings);
        _warned.insert(file);
        if (!layer.paint)
            layer.paint = read->palette.front();
        DIO_Layer shown = read->layers.front();
        shown.name = layer.name;
        shown.shapes.front().paint = static_cast<int>(drawing.palette.size());
        drawing.palette.push_back(*layer.paint);
        drawing.layers.push_back(std::move(shown));
        return {};
    }

    // A file that is shown at every frame is read once.
    UT_Result<DIO_Drawing> readOnce(const QString& file)
    {
        if (const auto found = _kept.constFind(file); found != _kept.constEnd())
            return *found;
        UT_Result<DIO_Drawing> read = DIO_readBitmap(file);
        if (const auto number = frameNumberOf(file); read && number && !*number)
            _kept.insert(file, *read);
        return read;
    }

    SequenceBuilder _builder;
    RepeatedWarnings _warnings;
    QString _latest; // the file that was read last
    QSet<QString> _warned;
    QSet<QString> _opaque; // the files that were said to be opaque
    QHash<QString, DIO_Drawing> _kept;
    QSizeF _size;
    QString _sizedBy;
};

} // namespace

UT_Result<DrawingSequence> readBitmapSequence(const QStringList& files, const ImportSettings& settings)
{
    UT_Result<std::vector<BitmapLayer>> layers = layersOf(files);
    if (!layers)
        return layers.error();
    const std::set<int> frames = framesOf(*layers);
    BitmapFrames reader(sequenceName(files));
    const bool isAlone = files.size() == 1;
    double read = 0.0;
    for (const int frame : frames) {
        if (settings.goOn && !settings.goOn(read++ / static_cast<double>(frames.size())))
            return UT_stopped();
        if (UT_Result<void> added =
                isAlone ? reader.addChosen(frame, *layers, settings.form.objects) : reader.add(frame, *layers);
            !added)
            return added.error();
    }
    return reader.take(frames);
}
