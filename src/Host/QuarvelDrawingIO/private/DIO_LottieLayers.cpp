// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The keys are those of the format: "tt" how a layer is cut, "tp" by which layer ("ind"; else by the one above it),
// "td" that a layer cuts and is not painted, "hd" that it is hidden, "nm" its name, "ty" its kind, "ks" its transform,
// "masksProperties" its masks with their "mode" and "inv". A hidden layer stays, as others may move with it.
//
// The library reads an object's members in their order and needs the kind of a shape before anything else of it; of two
// members of one name the last one counts. So what changes is added at the end of a layer, and the rest stays as it was
// written.
#include "QuarvelDrawingIO/private/DIO_LottieLayers.h"

#include "QuarvelDrawingIO/private/DIO_JsonText.h"

#include <QSet>

#include <algorithm>

namespace {

const QLatin1String kHidden("hd");
const QLatin1String kCut("tt");
const QLatin1String kCutBy("tp");

constexpr qsizetype kNone = -1;

bool isCut(const QJsonObject& layer)
{
    return layer.value(kCut).toInt() > 0;
}

// The library paints shapes, plain areas and compositions of them; a layer that only moves others cuts everything away.
bool canCut(const QJsonObject& layer)
{
    enum Kind
    {
        COMPOSITION = 0,
        SOLID = 1,
        EMPTY = 3,
        SHAPES = 4
    };
    const int kind = layer.value(QLatin1String("ty")).toInt(-1);
    return layer.contains(QLatin1String("ks")) &&
           (kind == COMPOSITION || kind == SOLID || kind == EMPTY || kind == SHAPES);
}

// A layer as the document says it, and how it is shown.
struct Layer
{
    QJsonObject said;
    QByteArrayView text;
    std::size_t number = 0; // among all layers
    bool hasMasks = false;

    QByteArray written(bool hidden, bool cut) const
    {
        const auto word = [](bool value) { return value ? "true" : "false"; };
        QByteArray made = text.sliced(0, text.size() - 1).toByteArray();
        made += said.isEmpty() ? "" : ",";
        made += R"("nm":")" + QByteArray::number(static_cast<qulonglong>(number)) + R"(","hasMask":)" + word(hasMasks) +
                ",\"hd\":" + word(hidden);
        if (isCut(said) && !cut)
            made += ",\"tt\":0";
        return made + "}";
    }
};

// The place of the layer that cuts the one at a place.
qsizetype cutterOf(const std::vector<Layer>& layers, qsizetype place)
{
    const QJsonValue wanted = layers[static_cast<std::size_t>(place)].said.value(kCutBy);
    if (!wanted.isDouble())
        return place - 1;
    const auto found = std::ranges::find_if(
        layers, [&](const Layer& layer) { return layer.said.value(QLatin1String("ind")) == wanted; });
    return found == layers.end() ? kNone : found - layers.begin();
}

} // namespace

QByteArray DIO_LottieLayers::rewritten(const QJsonArray& layers, QByteArrayView text)
{
    const std::vector<QByteArrayView> texts = DIO_jsonElements(text);
    std::vector<Layer> known;
    for (qsizetype i = 0; i < std::min(layers.size(), static_cast<qsizetype>(texts.size())); ++i) {
        if (!layers[i].isObject())
            continue;
        const QJsonObject layer = layers[i].toObject();
        known.push_back({layer, texts[static_cast<std::size_t>(i)], note(layer), false});
        known.back().hasMasks = !_facts.back().masks.empty();
    }

    const auto count = static_cast<qsizetype>(known.size());
    std::vector<qsizetype> cutters(known.size(), kNone);
    QSet<qsizetype> cutting;
    for (qsizetype i = 0; i < count; ++i) {
        const auto place = static_cast<std::size_t>(i);
        if (isCut(known[place].said))
            cutting.insert(cutters[place] = cutterOf(known, i));
        if (known[place].said.value(QLatin1String("td")).toInt() > 0)
            cutting.insert(i);
    }

    QByteArrayList made;
    for (qsizetype i = 0; i < count; ++i) {
        const Layer& layer = known[static_cast<std::size_t>(i)];
        const qsizetype cutter = cutters[static_cast<std::size_t>(i)];
        const bool isHidden = layer.said.value(kHidden).toBool();
        if (cutting.contains(i)) {
            made.append(layer.written(true, false));
        } else if (!isCut(layer.said)) {
            made.append(layer.written(isHidden, false));
        } else if (cutter != kNone && canCut(known[static_cast<std::size_t>(cutter)].said)) {
            made.append(known[static_cast<std::size_t>(cutter)].written(false, false));
            made.append(layer.written(isHidden, true));
        } else {
            made.append(layer.written(true, false));
            if (!isHidden)
                _leftOut.append(_facts[layer.number].name);
        }
    }
    return "[" + made.join(',') + "]";
}

std::size_t DIO_LottieLayers::note(const QJsonObject& layer)
{
    DIO_LottieLayerFacts facts{layer.value(QLatin1String("nm")).toString().simplified(), {}};
    for (const QJsonValue value : layer.value(QLatin1String("masksProperties")).toArray()) {
        const QJsonObject mask = value.toObject();
        facts.masks.push_back({mask.value(QLatin1String("inv")).toBool(),
                               mask.value(QLatin1String("mode")).toString() == QLatin1String("n")});
    }
    _facts.push_back(std::move(facts));
    return _facts.size() - 1;
}
