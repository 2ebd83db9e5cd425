// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The drawing is painted twice: in colours for the eye, and without antialiasing with object numbers as pixel values.
// The second picture tells which pixels show an object, and so where its number goes.
#include "jobs/drawing/DescribeObjects.h"

#include "QuarvelGraphicCore/GR_ImageMemory.h"
#include "QuarvelPersistentObj/PO_XmlText.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "jobs/drawing/LabelPlaces.h"
#include "jobs/drawing/ObjectNames.h"
#include "jobs/text/TextTable.h"

#include <QJsonObject>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {

QString roleText(ObjectRole role)
{
    switch (role) {
    case ObjectRole::OPENING:
        return QStringLiteral(", sinks");
    case ObjectRole::FLAT:
        return QStringLiteral(", flat");
    case ObjectRole::SLAB:
        return QStringLiteral(", a slab");
    case ObjectRole::BODY:
    case ObjectRole::RELIEF:
        break;
    }
    return {};
}

// The values that programs apply to the rendered object, as words.
QString wordsOf(const ObjectSettings& own)
{
    QString words;
    if (own.tilt)
        words += QStringLiteral(", tilt=%1,%2").arg(PO_formatDouble(own.tilt->x), PO_formatDouble(own.tilt->y));
    if (own.rim)
        words += QStringLiteral(", rim=%1,%2").arg(PO_formatDouble(own.rim->bevel), PO_formatDouble(own.rim->height));
    if (own.relief)
        words += QStringLiteral(", relief=%1").arg(PO_formatDouble(*own.relief));
    return words;
}

// The form of a layer where some of its values are given.
ObjectForm formWith(const ObjectSettings& given, const LayeredDrawing::Layer& layer)
{
    ObjectForm form = layer.form;
    form.bevel = given.bevel.value_or(form.bevel);
    form.elevation = given.elevation.value_or(form.elevation);
    form.smoothness = given.smoothness.value_or(form.smoothness);
    return form;
}

QStringList rowOf(std::size_t index, const ReadDrawing& read)
{
    const ChosenObject& object = read.objects[index];
    const LayeredDrawing::Layer& layer = read.drawing.layers[index];
    const ObjectForm form = formWith(layer.own, layer);
    return {QString::number(index + 1),      object.name,
            shareInWords(object.share),      PO_formatDouble(form.bevel),
            PO_formatDouble(form.elevation), PO_formatDouble(form.smoothness),
            object.colours.join(u' '),       reasonInWords(object.reason, object.role) + wordsOf(layer.own)};
}

// Hues are a golden angle apart, so that neighbouring objects have different colours.
QColor colourOf(std::size_t index)
{
    constexpr double kGoldenAngle = 137.508;
    const double hue = std::fmod(static_cast<double>(index) * kGoldenAngle, 360.0);
    return QColor::fromHsv(static_cast<int>(hue), index % 2 == 0 ? 170 : 110, 230);
}

QImage maskIn(const QImage& picture, const QColor& colour)
{
    QImage mask = GR_newImage(picture.size(), QImage::Format_ARGB32_Premultiplied);
    mask.fill(colour);
    QPainter painter(&mask);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.drawImage(0, 0, picture);
    return mask;
}

void paintShape(QPainter& painter, const CELVEC_Shape& shape, const QColor& colour)
{
    painter.save();
    if (shape.clip)
        painter.setClipPath(*shape.clip);
    if (shape.picture.isNull())
        painter.fillPath(shape.path, colour);
    else
        painter.drawImage(shape.path.boundingRect(), maskIn(shape.picture, colour));
    painter.restore();
}

template<typename ColourOf>
QImage painted(const LayeredDrawing& drawing, const QSize& size, bool smooth, ColourOf colour)
{
    QImage image = GR_newImage(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, smooth);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, smooth);
    painter.scale(size.width() / drawing.frame.width(), size.height() / drawing.frame.height());
    painter.translate(-drawing.frame.topLeft());
    for (std::size_t i = 0; i < drawing.layers.size(); ++i)
        for (const CELVEC_Shape& shape : drawing.layers[i].drawing->shapes(GR_Art::COLOUR))
            paintShape(painter, shape, colour(i));
    return image;
}

void paintNumber(QPainter& painter, const QPoint& place, const QString& number)
{
    QPainterPath text;
    text.addText(QPointF(), painter.font(), number);
    text.translate(place - text.boundingRect().center());
    painter.strokePath(text, QPen(Qt::white, 3.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(text, Qt::black);
}

} // namespace

QString reasonInWords(const QString& reason, ObjectRole role)
{
    return reason + roleText(role);
}

QString shareInWords(double share)
{
    return share > 0.0 && share < 0.01 ? QStringLiteral("<1 %")
                                       : QStringLiteral("%1 %").arg(std::lround(share * 100.0));
}

QString describeObjects(const ReadDrawing& read)
{
    std::vector<QStringList> rows{{QStringLiteral("number"), QStringLiteral("name"), QStringLiteral("share"),
                                   QStringLiteral("bevel"), QStringLiteral("elevation"), QStringLiteral("smoothness"),
                                   QStringLiteral("colours"), QStringLiteral("why")}};
    for (std::size_t i = 0; i < read.objects.size(); ++i)
        rows.push_back(rowOf(i, read));
    return tableLines(rows).join(u'\n') + u'\n';
}

QJsonArray objectFields(const ReadDrawing& read)
{
    QJsonArray all;
    for (std::size_t i = 0; i < read.objects.size(); ++i) {
        const ChosenObject& object = read.objects[i];
        const LayeredDrawing::Layer& layer = read.drawing.layers[i];
        const ObjectForm form = formWith(layer.own, layer);
        all.append(QJsonObject{{QStringLiteral("number"), static_cast<int>(i) + 1},
                               {QStringLiteral("name"), object.name},
                               {QStringLiteral("share"), object.share},
                               {QStringLiteral("bevel"), form.bevel},
                               {QStringLiteral("elevation"), form.elevation},
                               {QStringLiteral("smoothness"), form.smoothness},
                               {QStringLiteral("colours"), QJsonArray::fromStringList(object.colours)},
                               {QStringLiteral("why"), reasonInWords(object.reason, object.role)}});
    }
    return all;
}

QStringList objectOptions(const LayeredDrawing& drawing, const ObjectWishes& said)
{
    QStringList options;
    for (std::size_t i = 0; i < drawing.layers.size(); ++i) {
        const LayeredDrawing::Layer& layer = drawing.layers[i];
        const ObjectSettings given = merged(wishesFor(said, static_cast<int>(i) + 1, {layer.name}), layer.own);
        if (given.relief.value_or(0.0) != 0.0)
            continue;
        const ObjectForm form = formWith(given, layer);
        options << QStringLiteral("--object %1:bevel=%2:elevation=%3:smoothness=%4")
                       .arg(i + 1)
                       .arg(PO_formatDouble(form.bevel), PO_formatDouble(form.elevation),
                            PO_formatDouble(form.smoothness));
    }
    return options;
}

QImage paintObjects(const LayeredDrawing& drawing, int width)
{
    constexpr int kHighest = 100'000;
    const double height = width * drawing.frame.height() / drawing.frame.width();
    const QSize size(width, std::min(kHighest, MO_Scene::wholePixels(height)));
    QImage image = painted(drawing, size, true, [](std::size_t i) { return colourOf(i); });
    const QImage numbers = painted(drawing, size, false,
                                   [](std::size_t i) { return QColor::fromRgb(static_cast<QRgb>(i) | 0xff000000U); });
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QFont font = painter.font();
    font.setPixelSize(std::max(10, width / 45));
    font.setBold(true);
    painter.setFont(font);
    const auto places = labelPlaces(numbers, drawing.layers.size());
    for (std::size_t i = 0; i < places.size(); ++i)
        if (places[i])
            paintNumber(painter, *places[i], QString::number(i + 1));
    return image;
}
