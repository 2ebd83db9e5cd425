// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The file has sections with heads in brackets, each with properties below it. Only the properties for regions and
// their animations are read.
#include "jobs/sheets/AtlasGodot.h"

#include <QHash>
#include <QRegularExpression>
#include <QStringTokenizer>

#include <array>
#include <cmath>

namespace {

struct Section
{
    QString head; // the text in the brackets
    QString body;
};

std::vector<Section> sectionsOf(const QString& text)
{
    static const QRegularExpression head(QStringLiteral("^\\[([^\\]\\n]*)\\]\\s*$"),
                                         QRegularExpression::MultilineOption);
    std::vector<Section> sections;
    qsizetype bodyFrom = 0;
    for (auto it = head.globalMatch(text); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        if (!sections.empty())
            sections.back().body = text.mid(bodyFrom, match.capturedStart() - bodyFrom);
        sections.push_back({match.captured(1), {}});
        bodyFrom = match.capturedEnd();
    }
    if (!sections.empty())
        sections.back().body = text.mid(bodyFrom);
    return sections;
}

// The value of name="value" or name=value in the head of a section.
QString wordOf(const QString& head, const QRegularExpression& word)
{
    const QRegularExpressionMatch match = word.match(head);
    return match.captured(1).isEmpty() ? match.captured(2) : match.captured(1);
}

QString idOf(const QString& head)
{
    static const QRegularExpression id(QStringLiteral("\\bid=(?:\"([^\"]*)\"|([^ \\]]*))"));
    return wordOf(head, id);
}

QString pathOf(const QString& head)
{
    static const QRegularExpression path(QStringLiteral("\\bpath=(?:\"([^\"]*)\"|([^ \\]]*))"));
    return wordOf(head, path);
}

// The value of the first line "name = value"; null where there is none.
QString propertyOf(const QString& body, const QString& name)
{
    for (const QStringView line : QStringTokenizer(body, u'\n')) {
        const QStringView rest = line.startsWith(name) ? line.mid(name.size()).trimmed() : QStringView();
        if (rest.startsWith(u'='))
            return rest.mid(1).trimmed().toString();
    }
    return {};
}

// ExtResource("1_abc") or, in older files, ExtResource( 1 ).
QString referenceOf(const QString& value)
{
    static const QRegularExpression reference(QStringLiteral("Resource\\( *\"?([^\" )]*)\"? *\\)"));
    return reference.match(value).captured(1);
}

// Rect2(x, y, w, h); null for an empty text.
UT_Result<QRect> rectOf(const QString& region, const QString& value)
{
    static const QRegularExpression rect(QStringLiteral("Rect2i?\\(([^)]*)\\)"));
    if (value.isEmpty())
        return QRect();
    const QStringList parts = rect.match(value).captured(1).split(QLatin1Char(','));
    std::array<int, 4> numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        bool isNumber = false;
        const double number = parts.value(static_cast<qsizetype>(i)).trimmed().toDouble(&isNumber);
        if (!isNumber || !(std::abs(number) <= kMostSheetPixels))
            return notPixels(region, value);
        numbers[i] = static_cast<int>(std::lround(number));
    }
    return QRect{numbers[0], numbers[1], numbers[2], numbers[3]};
}

// The animation of each region, by the id of its section. In each animation's list the frames precede the animation's
// name.
QHash<QString, QString> animationsOf(const QString& resource)
{
    static const QRegularExpression word(
        QStringLiteral("SubResource\\( *\"?([^\" )]*)\"? *\\)|\"name\": *&?\"([^\"]*)\""));
    QHash<QString, QString> animations;
    QStringList frames;
    for (auto it = word.globalMatch(resource); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        if (match.hasCaptured(1) && !match.captured(1).isEmpty()) {
            frames << match.captured(1);
            continue;
        }
        for (const QString& frame : frames)
            animations.insert(frame, match.captured(2));
        frames.clear();
    }
    return animations;
}

bool isRegion(const Section& section)
{
    return !propertyOf(section.body, QStringLiteral("atlas")).isEmpty() &&
           !propertyOf(section.body, QStringLiteral("region")).isEmpty();
}

UT_Result<SheetRegion> regionOf(const Section& section)
{
    const QString id = idOf(section.head);
    const QString name = id.isEmpty() ? QStringLiteral("resource") : id;
    const auto margin = rectOf(name, propertyOf(section.body, QStringLiteral("margin")));
    if (!margin)
        return margin.error();
    const auto place = rectOf(name, propertyOf(section.body, QStringLiteral("region")));
    if (!place)
        return place.error();
    SheetRegion region;
    region.name = name;
    region.place = *place;
    region.offset = margin->isNull() ? QPoint() : margin->topLeft();
    region.whole = region.place.size() + (margin->isNull() ? QSize(0, 0) : margin->size());
    return region;
}

} // namespace

UT_Result<std::vector<Sheet>> parseAtlasGodot(const QByteArray& bytes)
{
    const std::vector<Section> sections = sectionsOf(QString::fromUtf8(bytes));
    QHash<QString, QString> pages;
    QHash<QString, QString> animations;
    for (const Section& section : sections) {
        if (section.head.startsWith(QLatin1String("ext_resource")))
            pages.insert(idOf(section.head), pathOf(section.head));
        if (section.head == QLatin1String("resource"))
            animations = animationsOf(section.body);
    }
    std::vector<Sheet> sheets;
    QHash<QString, std::size_t> indexOf; // of the sheet of a page
    for (const Section& section : sections) {
        if (!isRegion(section))
            continue;
        const QString page = pages.value(referenceOf(propertyOf(section.body, QStringLiteral("atlas"))));
        if (page.isEmpty())
            return UT_Error{
                QStringLiteral("the region \"%1\" names a page that is not in the file").arg(idOf(section.head))};
        if (!indexOf.contains(page)) {
            indexOf.insert(page, sheets.size());
            sheets.push_back({page, {}});
        }
        Sheet& sheet = sheets[indexOf.value(page)];
        const UT_Result<SheetRegion> region = regionOf(section);
        if (!region)
            return region.error();
        sheet.regions.push_back(*region);
        sheet.regions.back().animation = animations.value(sheet.regions.back().name);
    }
    if (sheets.empty())
        return UT_Error{QStringLiteral("it has no AtlasTexture; SpriteFrames of whole pictures need no atlas")};
    return sheets;
}

QByteArray renamePagesGodot(const QByteArray& bytes, const PageNames& maps)
{
    static const QRegularExpression identifier(QStringLiteral(" uid=\"uid://[^\"]*\""));
    static const QString path = QStringLiteral("path=\"%1\"");
    QString text = QString::fromUtf8(bytes).remove(identifier);
    for (auto map = maps.cbegin(); map != maps.cend(); ++map)
        text.replace(path.arg(map.key()), path.arg(map.value()));
    return text.toUtf8();
}
