// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The document's tree, walked once. The keys are those of the format: "layers" and "assets" hold layers, a layer's or a
// shape's "ty" says its kind, a property's "x" that is a text is an expression.
#include "QuarvelDrawingIO/private/DIO_LottieDocument.h"

#include "QuarvelDrawingIO/DIO_LottieStream.h"
#include "QuarvelDrawingIO/private/DIO_JsonText.h"
#include "QuarvelDrawingIO/private/DIO_LottieKeys.h"
#include "QuarvelDrawingIO/private/DIO_LottieLayers.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>

namespace {

QJsonValue of(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1String(key));
}

// Counts what cannot be kept, by what people call it.
class Summary
{
public:
    void visit(const QJsonValue& value)
    {
        if (value.isArray()) {
            const QJsonArray array = value.toArray();
            for (const QJsonValue item : array)
                visit(item);
        } else if (value.isObject()) {
            visitObject(value.toObject());
        }
    }

    QStringList lines() const
    {
        QStringList parts;
        for (auto it = _counts.begin(); it != _counts.end(); ++it)
            parts.append(QStringLiteral("%1 (%2)").arg(it.key()).arg(it.value()));
        if (parts.isEmpty())
            return {};
        return {QStringLiteral("left out or simplified: ") + parts.join(QStringLiteral(", "))};
    }

private:
    void count(const char* what) { ++_counts[QString::fromLatin1(what)]; }

    void visitObject(const QJsonObject& object)
    {
        if (of(object, "hd").toBool())
            return;
        const QJsonValue kind = of(object, "ty");
        if (kind.isDouble())
            countInLayer(object, kind.toInt());
        else if (kind.isString())
            countInShape(object, kind.toString());
        if (of(object, "x").isString() && (object.contains(QLatin1String("k")) || object.contains(QLatin1String("a"))))
            count("expressions");
        for (const QJsonValue value : object)
            visit(value);
    }

    void countInLayer(const QJsonObject& layer, int kind)
    {
        if (!isLayer(layer))
            return;
        if (kind == 2)
            count("images");
        if (kind == 5)
            count("texts");
        if (kind == 6)
            count("sounds");
        if (kind == 13)
            count("cameras");
        if (of(layer, "ddd").toInt() == 1)
            count("layers in three dimensions");
        if (!of(layer, "ef").toArray().isEmpty())
            count("effects");
        if (of(layer, "bm").toInt() > 0)
            count("blend modes");
    }

    // A layer has a transform or a place among the layers; effects have kinds by number, too.
    static bool isLayer(const QJsonObject& layer)
    {
        return layer.contains(QLatin1String("ks")) || layer.contains(QLatin1String("ip"));
    }

    void countInShape(const QJsonObject& shape, const QString& kind)
    {
        if (kind == QLatin1String("gf") || kind == QLatin1String("gs"))
            count("gradients, painted in their average colour");
        if (kind == QLatin1String("mm"))
            count("merged paths");
        if (of(shape, "bm").toInt() > 0)
            count("blend modes");
    }

    QMap<QString, int> _counts;
};

UT_Result<void> checkNumbers(const QJsonObject& root)
{
    using namespace DIO_LottieStream;
    const double width = of(root, "w").toDouble();
    const double height = of(root, "h").toDouble();
    const double rate = of(root, "fr").toDouble();
    const double frames = of(root, "op").toDouble() - of(root, "ip").toDouble();
    if (!(width >= 1.0) || !(height >= 1.0))
        return UT_Error{QStringLiteral("the animation has no width or no height")};
    if (width > kMaxSide || height > kMaxSide)
        return UT_Error{QStringLiteral("the animation has %1 x %2 pixels, more than %3 on a side can be read")
                            .arg(width)
                            .arg(height)
                            .arg(kMaxSide)};
    if (!(rate > 0.0))
        return UT_Error{QStringLiteral("the animation does not say how many frames a second has")};
    if (!(frames > 0.0))
        return UT_Error{QStringLiteral("the animation has no frames: it ends before it begins")};
    if (frames > kMaxFrames)
        return UT_Error{QStringLiteral("the animation has %1 frames, more than the %2 that can be read")
                            .arg(frames)
                            .arg(kMaxFrames)};
    return {};
}

// The document with all layers, also those of its compositions, rewritten without ambiguity.
DIO_LottieDocument prepared(const QByteArray& text, const QJsonObject& root)
{
    DIO_LottieLayers layers;
    const auto rewritten = [&](const QJsonObject& owner, QByteArrayView ownerText, const auto& otherMember) {
        QByteArrayList members;
        for (const auto& [key, value] : DIO_jsonMembers(ownerText)) {
            const bool isLayers = key == "layers" && value.startsWith('[');
            members.append(
                '"' + key.toByteArray() +
                "\":" + (isLayers ? layers.rewritten(of(owner, "layers").toArray(), value) : otherMember(key, value)));
        }
        return "{" + members.join(',') + "}";
    };
    const auto asItIs = [](QByteArrayView, QByteArrayView value) { return value.toByteArray(); };
    const auto withAssets = [&](QByteArrayView key, QByteArrayView value) {
        if (key != "assets" || !value.startsWith('['))
            return value.toByteArray();
        const QJsonArray said = of(root, "assets").toArray();
        QByteArrayList assets;
        for (const QByteArrayView asset : DIO_jsonElements(value))
            assets.append(asset.startsWith('{') ? rewritten(said.at(assets.size()).toObject(), asset, asItIs)
                                                : asset.toByteArray());
        return "[" + assets.join(',') + "]";
    };
    DIO_LottieDocument document{rewritten(root, text, withAssets), layers.takeFacts(), {}};
    if (!layers.leftOut().isEmpty())
        document.warnings.append(
            QStringLiteral("layers are left out, because what cuts them is a text, a picture or missing: ") +
            layers.leftOut().join(QStringLiteral(", ")));
    return document;
}

} // namespace

UT_Result<DIO_LottieDocument> DIO_prepareLottieDocument(const QByteArray& document)
{
    QJsonParseError error{};
    const QJsonDocument json = QJsonDocument::fromJson(document, &error);
    if (error.error != QJsonParseError::NoError)
        return UT_Error{
            QStringLiteral("the JSON is damaged at byte %1: %2").arg(error.offset).arg(error.errorString())};
    const QJsonObject root = json.object();
    if (!of(root, "layers").isArray())
        return UT_Error{QStringLiteral("this is not an animation in the Lottie format: it has no layers")};
    if (UT_Result<void> checked = checkNumbers(root); !checked)
        return checked.error();
    Summary summary;
    summary.visit(of(root, "layers"));
    summary.visit(of(root, "assets"));
    DIO_LottieDocument made = prepared(DIO_withoutLastEasings(document), root);
    made.warnings = summary.lines() + made.warnings;
    return made;
}
