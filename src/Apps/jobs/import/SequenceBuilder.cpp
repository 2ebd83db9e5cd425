// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Builds layers through time. Equal drawings are found by digests of their contents, which is fast even with thousands
// of frames.
#include "jobs/import/SequenceBuilder.h"

#include "QuarvelDrawingIO/DIO_KvdConversion.h"
#include "form/ReliefLayers.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QDataStream>
#include <QSet>

#include <algorithm>
#include <ranges>

namespace {

void writePicture(QDataStream& out, const QImage& picture)
{
    out << picture.size() << static_cast<int>(picture.format());
    const qsizetype rowBytes = qsizetype{picture.width()} * picture.depth() / 8;
    for (int y = 0; y < picture.height(); ++y)
        out.writeRawData(reinterpret_cast<const char*>(picture.constScanLine(y)), static_cast<int>(rowBytes));
}

QByteArray digest(std::span<const DIO_Shape> shapes, std::span<const DIO_Paint> paints)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    for (const DIO_Shape& shape : shapes) {
        const DIO_Paint& paint = paints[static_cast<std::size_t>(shape.paint)];
        out << shape.path << shape.clip.has_value() << shape.clip.value_or(QPainterPath()) << shape.opacity;
        out << static_cast<quint64>(DIO_colorId(paint).value());
        writePicture(out, shape.picture);
    }
    return QCryptographicHash::hash(bytes, QCryptographicHash::Blake2b_256);
}

// The covered share of a picture, estimated from some of its pixels.
double coveredShare(const QImage& picture)
{
    constexpr int kSamples = 64;
    int covered = 0;
    for (int row = 0; row < kSamples; ++row)
        for (int column = 0; column < kSamples; ++column)
            covered += qAlpha(picture.pixel((2 * column + 1) * picture.width() / (2 * kSamples),
                                            (2 * row + 1) * picture.height() / (2 * kSamples))) > 127;
    return static_cast<double>(covered) / (kSamples * kSamples);
}

// The approximate area of shapes, for comparing the drawings of a layer.
double reachOf(std::span<const DIO_Shape> shapes)
{
    QRectF all;
    for (const DIO_Shape& shape : shapes)
        all |= shape.path.boundingRect();
    const bool isBitmap = shapes.size() == 1 && !shapes.front().picture.isNull();
    return all.width() * all.height() * (isBitmap ? coveredShare(shapes.front().picture) : 1.0);
}

// The n-th of a name in a frame, from 0.
QString keyOf(const DIO_Layer& layer, QHash<QString, int>& met)
{
    const QString name = layer.declared ? QStringLiteral("named ") + layer.name : QStringLiteral("loose");
    return QStringLiteral("%1 %2").arg(met[name]++).arg(name);
}

} // namespace

SequenceBuilder::SequenceBuilder(const QString& name)
    : _name(name)
    , _palette(UT_makeShared<CM_Palette>(UT_String(name), UT_Id::fromName(QStringLiteral("palette ") + name)))
{}

void SequenceBuilder::addColours(std::span<const DIO_Paint> paints)
{
    for (const DIO_Paint& paint : paints)
        if (!_palette->findColor(DIO_colorId(paint)))
            _palette->addColor(DIO_toColor(paint));
}

std::size_t SequenceBuilder::layerFor(const QString& key, const DIO_Layer& layer, std::size_t above, bool& outOfOrder)
{
    const auto found = std::ranges::find(_layers, key, &Layer::key);
    if (found != _layers.end()) {
        const auto index = static_cast<std::size_t>(found - _layers.begin());
        outOfOrder = outOfOrder || index < above;
        return index;
    }
    _layers.insert(_layers.begin() + static_cast<std::ptrdiff_t>(above),
                   Layer{key, layer.name, layer.declared, {}, 0.0, {}});
    _layers[above].built.values = layer.values;
    if (bendsTheSurface(layer))
        _layers[above].built.role = ObjectRole::RELIEF;
    return above;
}

void SequenceBuilder::addFrame(int frame, const DIO_Drawing& drawing)
{
    addColours(drawing.palette);
    QHash<QString, int> met;
    QSet<QString> shown;
    std::size_t above = 0;
    for (const DIO_Layer& layer : drawing.layers) {
        const QString key = keyOf(layer, met);
        const std::size_t index = layerFor(key, layer, above, _orderChanges);
        expose(_layers[index], frame, layer.shapes, drawing.palette);
        shown.insert(key);
        above = index + 1;
    }
    for (Layer& layer : _layers)
        if (!shown.contains(layer.key))
            exposeNothing(layer, frame);
}

void SequenceBuilder::addFrame(int frame, const ChosenObjects& chosen)
{
    addColours(chosen.drawing.palette);
    const bool isAlone = chosen.objects.size() == 1;
    for (std::size_t i = 0; i < chosen.objects.size(); ++i) {
        const ChosenObject& object = chosen.objects[i];
        Layer layer{QString::number(_layers.size()), isAlone ? _name : object.name, true, {}, 0.0, {}};
        expose(layer, frame, chosen.drawing.layers[i].shapes, chosen.drawing.palette);
        layer.built.role = object.role;
        layer.built.reason = object.reason;
        layer.built.values = object.values;
        layer.built.extent = object.extent;
        if (!object.measured.empty())
            layer.built.measured = object.measured;
        _layers.push_back(std::move(layer));
    }
}

bool SequenceBuilder::addLayer(const QString& name, const std::vector<std::vector<DIO_Shape>>& drawings,
                               std::span<const DIO_Paint> paints, std::span<const int> shown, int firstFrame,
                               const std::function<bool()>& goOn)
{
    addColours(paints);
    Layer layer{QString::number(_layers.size()), name, true, {}, 0.0, {}};
    std::vector<int> keys(drawings.size(), SequenceLayer::kNothing); // under which each drawing is stored
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const int frame = firstFrame + static_cast<int>(i);
        if (shown[i] < 0) {
            exposeNothing(layer, frame);
            continue;
        }
        const auto drawing = static_cast<std::size_t>(shown[i]);
        if (keys[drawing] == SequenceLayer::kNothing) {
            if (!goOn())
                return false;
            keys[drawing] = keyFor(layer, frame, drawings[drawing], paints);
        }
        setExposure(layer, frame, keys[drawing]);
    }
    _layers.push_back(std::move(layer));
    return true;
}

void SequenceBuilder::expose(Layer& layer, int frame, std::span<const DIO_Shape> shapes,
                             std::span<const DIO_Paint> paints)
{
    setExposure(layer, frame, keyFor(layer, frame, shapes, paints));
}

int SequenceBuilder::keyFor(Layer& layer, int frame, std::span<const DIO_Shape> shapes,
                            std::span<const DIO_Paint> paints)
{
    const QByteArray key = digest(shapes, paints);
    auto found = layer.known.constFind(key);
    if (found == layer.known.constEnd()) {
        layer.built.drawings.emplace(frame, DIO_toKvd(shapes, paints, _palette));
        if (const double reach = reachOf(shapes); layer.built.measured.empty() || reach > layer.reach) {
            layer.reach = reach;
            layer.built.measured.assign(shapes.begin(), shapes.end());
        }
        found = layer.known.insert(key, frame);
    }
    return *found;
}

void SequenceBuilder::exposeNothing(Layer& layer, int frame)
{
    // Nothing is shown before the first drawing anyway.
    if (!layer.built.exposures.empty())
        setExposure(layer, frame, SequenceLayer::kNothing);
}

void SequenceBuilder::setExposure(Layer& layer, int frame, int drawing)
{
    auto& exposures = layer.built.exposures;
    if (exposures.empty() || exposures.rbegin()->second != drawing)
        exposures.emplace(frame, drawing);
}

void SequenceBuilder::nameLayers()
{
    QSet<QString> taken;
    for (Layer& layer : _layers) {
        QString name = layer.declared ? layer.name : QStringLiteral("Loose shapes");
        if (!layer.declared && _layers.size() == 1)
            name = _name;
        QString unique = name;
        for (int n = 2; taken.contains(unique); ++n)
            unique = QStringLiteral("%1 %2").arg(name, QString::number(n));
        taken.insert(unique);
        layer.built.name = unique;
    }
}

void SequenceBuilder::giveReasons()
{
    for (Layer& layer : _layers) {
        const bool isAlone = !layer.declared && _layers.size() == 1;
        if (layer.built.reason.isEmpty())
            layer.built.reason = isAlone ? QStringLiteral("one object in all frames")
                                         : layerReason({layer.name, layer.declared, {}, {}});
    }
}

DrawingSequence SequenceBuilder::take()
{
    nameLayers();
    giveReasons();
    DrawingSequence sequence;
    sequence.name = _name;
    sequence.palette = _palette;
    for (Layer& layer : _layers)
        sequence.layers.push_back(std::move(layer.built));
    if (_orderChanges)
        sequence.warnings.append(
            QStringLiteral("the order of the layers is not the same in all frames; that of the first frames counts"));
    return sequence;
}
