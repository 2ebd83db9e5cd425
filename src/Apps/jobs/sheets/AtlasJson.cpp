// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The frames are an object with their names as keys, or an array of objects with "filename".
#include "jobs/sheets/AtlasJson.h"

#include "jobs/sheets/AnimationNames.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <cmath>
#include <limits>

namespace {

// What is not there counts as 0.
bool isPixels(const QJsonValue& value)
{
    const double number = value.toDouble(value.isUndefined() ? 0.0 : std::numeric_limits<double>::infinity());
    return std::abs(number) <= kMostSheetPixels && number == std::trunc(number);
}

UT_Result<QRect> rectOf(const QString& region, const QJsonValue& value)
{
    const QJsonObject object = value.toObject();
    for (const char* const key : {"x", "y", "w", "h"})
        if (!isPixels(object[QLatin1String(key)]))
            return notPixels(region, QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
    return QRect{object[QLatin1String("x")].toInt(), object[QLatin1String("y")].toInt(),
                 object[QLatin1String("w")].toInt(), object[QLatin1String("h")].toInt()};
}

UT_Result<SheetRegion> regionOf(const QString& name, const QJsonObject& object)
{
    const auto frame = rectOf(name, object[QLatin1String("frame")]);
    const auto trimmed = rectOf(name, object[QLatin1String("spriteSourceSize")]);
    const auto source = rectOf(name, object[QLatin1String("sourceSize")]);
    for (const auto* const rect : {&frame, &trimmed, &source})
        if (!*rect)
            return rect->error();
    SheetRegion region;
    region.name = name;
    region.place = *frame;
    region.whole = region.place.size();
    if (object[QLatin1String("rotated")].toBool()) {
        region.quarterTurns = 1;
        region.place.setSize(region.place.size().transposed());
    }
    if (object[QLatin1String("trimmed")].toBool()) {
        region.offset = trimmed->topLeft();
        region.whole = source->size();
    }
    return region;
}

UT_Result<std::vector<SheetRegion>> regionsOf(const QJsonValue& frames)
{
    std::vector<UT_Result<SheetRegion>> read;
    const QJsonObject named = frames.toObject();
    for (auto it = named.begin(); it != named.end(); ++it)
        read.push_back(regionOf(it.key(), it.value().toObject()));
    for (const QJsonValue frame : frames.toArray())
        read.push_back(regionOf(frame[QLatin1String("filename")].toString(), frame.toObject()));
    std::vector<SheetRegion> regions;
    for (UT_Result<SheetRegion>& region : read) {
        if (!region)
            return region.error();
        regions.push_back(std::move(*region));
    }
    return regions;
}

// Aseprite's tags name ranges of frames by their indices in the array.
void nameTags(std::vector<SheetRegion>& regions, const QJsonArray& tags)
{
    for (const QJsonValue tag : tags) {
        const int from = std::max(0, tag[QLatin1String("from")].toInt());
        const int to = std::min(tag[QLatin1String("to")].toInt(-1), static_cast<int>(regions.size()) - 1);
        for (int i = from; i <= to; ++i)
            regions[static_cast<std::size_t>(i)].animation = tag[QLatin1String("name")].toString();
    }
}

UT_Result<Sheet> sheetOf(const QJsonValue& frames, const QJsonValue& image, const QJsonArray& tags)
{
    UT_Result<std::vector<SheetRegion>> regions = regionsOf(frames);
    if (!regions)
        return regions.error();
    Sheet sheet{image.toString(), std::move(*regions)};
    if (sheet.page.isEmpty())
        return UT_Error{QStringLiteral("it names no page (\"image\"); export it together with its picture")};
    if (sheet.regions.empty())
        return UT_Error{QStringLiteral("it has no \"frames\" for the page %1").arg(sheet.page)};
    nameAnimations(sheet.regions);
    // An object of frames does not keep the order that the tags' indices need; its animations follow from the frames'
    // names.
    if (frames.isArray())
        nameTags(sheet.regions, tags);
    return sheet;
}

} // namespace

UT_Result<std::vector<Sheet>> parseAtlasJson(const QByteArray& bytes)
{
    QJsonParseError problem;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &problem);
    if (document.isNull())
        return UT_Error{QStringLiteral("it is not JSON: %1 at byte %2").arg(problem.errorString()).arg(problem.offset)};
    const QJsonObject root = document.object();
    std::vector<Sheet> sheets;
    const auto add = [&](const QJsonValue& frames, const QJsonValue& image, const QJsonArray& tags) -> UT_Result<void> {
        UT_Result<Sheet> sheet = sheetOf(frames, image, tags);
        if (!sheet)
            return sheet.error();
        sheets.push_back(std::move(*sheet));
        return {};
    };
    const QJsonArray textures = root[QLatin1String("textures")].toArray();
    for (const QJsonValue texture : textures)
        if (UT_Result<void> added = add(texture[QLatin1String("frames")], texture[QLatin1String("image")], {}); !added)
            return added.error();
    if (textures.isEmpty()) {
        const QJsonValue meta = root[QLatin1String("meta")];
        if (UT_Result<void> added = add(root[QLatin1String("frames")], meta[QLatin1String("image")],
                                        meta[QLatin1String("frameTags")].toArray());
            !added)
            return added.error();
    }
    return sheets;
}

QByteArray renamePagesJson(const QByteArray& bytes, const PageNames& maps)
{
    // Written anew, the document would lose the order of its frames, which tags refer to.
    static const QRegularExpression image(QStringLiteral(R"re("image"\s*:\s*("(?:[^"\\]|\\.)*"))re"));
    const QString text = QString::fromUtf8(bytes);
    QString renamed;
    qsizetype end = 0;
    for (auto it = image.globalMatch(text); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        const QJsonDocument value = QJsonDocument::fromJson('[' + match.captured(1).toUtf8() + ']');
        const auto map = maps.constFind(value[0].toString());
        if (map == maps.cend())
            continue;
        const QByteArray quoted = QJsonDocument(QJsonArray{*map}).toJson(QJsonDocument::Compact);
        renamed += text.mid(end, match.capturedStart(1) - end) + QString::fromUtf8(quoted.sliced(1, quoted.size() - 2));
        end = match.capturedEnd(1);
    }
    return (renamed + text.mid(end)).toUtf8();
}
