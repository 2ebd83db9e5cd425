// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A line with a colon is a property of the last named page or region. Any other line is a name: of a page at the
// beginning and after an empty line, else of a region.
#include "jobs/sheets/AtlasText.h"

#include "jobs/sheets/AnimationNames.h"

#include <QStringList>

#include <array>
#include <cstdlib>
#include <optional>
#include <utility>

namespace {

// A region's properties as the file gives them.
struct Said
{
    QString name;
    QRect bounds;
    QPoint offset; // from the lower left corner
    QSize whole;
    int degrees = 0;
    int index = -1;
    QString broken = {}; // the first line with a place or a size that is none
};

// The properties of a region that are pixels.
bool isPixels(const QString& key)
{
    static const QStringList keys{QStringLiteral("bounds"), QStringLiteral("xy"),      QStringLiteral("size"),
                                  QStringLiteral("offset"), QStringLiteral("offsets"), QStringLiteral("orig")};
    return keys.contains(key);
}

// Up to four numbers of pixels; nothing where one of them is none.
std::optional<std::array<int, 4>> numbersOf(const QString& value)
{
    std::array<int, 4> numbers{};
    const QStringList parts = value.split(QLatin1Char(','));
    for (qsizetype i = 0; i < std::min<qsizetype>(4, parts.size()); ++i) {
        bool isNumber = false;
        const int number = parts[i].trimmed().toInt(&isNumber);
        if (!isNumber || std::abs(number) > kMostSheetPixels)
            return std::nullopt;
        numbers[static_cast<std::size_t>(i)] = number;
    }
    return numbers;
}

int degreesOf(const QString& value)
{
    return value == QLatin1String("true") ? 90 : value.toInt();
}

void take(Said& said, const QString& key, const QString& value)
{
    const std::optional<std::array<int, 4>> numbers = numbersOf(value);
    if (isPixels(key) && !numbers && said.broken.isEmpty())
        said.broken = key + QStringLiteral(": ") + value;
    const auto [a, b, c, d] = numbers.value_or(std::array<int, 4>{});
    if (key == QLatin1String("bounds"))
        said.bounds = {a, b, c, d};
    else if (key == QLatin1String("xy"))
        said.bounds.moveTopLeft({a, b});
    else if (key == QLatin1String("size"))
        said.bounds.setSize({a, b});
    else if (key == QLatin1String("offsets")) {
        said.offset = {a, b};
        said.whole = {c, d};
    } else if (key == QLatin1String("offset"))
        said.offset = {a, b};
    else if (key == QLatin1String("orig"))
        said.whole = {a, b};
    else if (key == QLatin1String("rotate"))
        said.degrees = degreesOf(value);
    else if (key == QLatin1String("index"))
        said.index = value.toInt();
}

UT_Result<SheetRegion> regionOf(const Said& said)
{
    if (!said.broken.isEmpty())
        return notPixels(said.name, said.broken);
    if (said.degrees % 90 != 0)
        return UT_Error{QStringLiteral("the region \"%1\" is turned by %2 degrees; quarter turns can be read")
                            .arg(said.name, QString::number(said.degrees))};
    SheetRegion region;
    region.name = said.index < 0 ? said.name : QStringLiteral("%1_%2").arg(said.name, QString::number(said.index));
    region.quarterTurns = ((-said.degrees / 90) % 4 + 4) % 4;
    const QSize trimmed = said.bounds.size();
    region.place = QRect(said.bounds.topLeft(), region.quarterTurns % 2 == 0 ? trimmed : trimmed.transposed());
    region.whole = said.whole.isEmpty() ? trimmed : said.whole;
    region.offset = {said.offset.x(), region.whole.height() - said.offset.y() - trimmed.height()};
    return region;
}

class Reader
{
public:
    UT_Result<void> take(const QString& line)
    {
        if (line.isEmpty()) {
            _expectsPage = true;
            return endRegion();
        }
        const qsizetype colon = line.indexOf(QLatin1Char(':'));
        if (colon < 0)
            return takeName(line);
        if (_said)
            ::take(*_said, line.left(colon).trimmed(), line.mid(colon + 1).trimmed());
        return {};
    }

    UT_Result<void> endRegion()
    {
        if (!_said)
            return {};
        const UT_Result<SheetRegion> region = regionOf(*_said);
        _said.reset();
        if (!region)
            return region.error();
        _sheets.back().regions.push_back(*region);
        return {};
    }

    std::vector<Sheet> takeSheets() { return std::move(_sheets); }

private:
    UT_Result<void> takeName(const QString& name)
    {
        if (UT_Result<void> ended = endRegion(); !ended)
            return ended;
        if (std::exchange(_expectsPage, false))
            _sheets.push_back({name, {}});
        else
            _said = Said{.name = name, .bounds = {}, .offset = {}, .whole = {}};
        return {};
    }

    std::vector<Sheet> _sheets;
    std::optional<Said> _said;
    bool _expectsPage = true;
};

} // namespace

UT_Result<std::vector<Sheet>> parseAtlasText(const QByteArray& bytes)
{
    Reader reader;
    for (const QString& line : QString::fromUtf8(bytes).split(QLatin1Char('\n')))
        if (UT_Result<void> taken = reader.take(line.trimmed()); !taken)
            return taken.error();
    if (UT_Result<void> ended = reader.endRegion(); !ended)
        return ended.error();
    std::vector<Sheet> sheets = reader.takeSheets();
    std::erase_if(sheets, [](const Sheet& sheet) { return sheet.regions.empty(); });
    if (sheets.empty())
        return UT_Error{QStringLiteral("it names no page with regions; is it an atlas of libGDX or Spine?")};
    for (Sheet& sheet : sheets)
        nameAnimations(sheet.regions);
    return sheets;
}

QByteArray renamePagesText(const QByteArray& bytes, const PageNames& maps)
{
    QStringList lines = QString::fromUtf8(bytes).split(QLatin1Char('\n'));
    bool expectsPage = true;
    for (QString& line : lines) {
        const QString name = line.trimmed();
        if (expectsPage && maps.contains(name))
            line.replace(name, maps.value(name));
        // Sizes and other properties may precede a page's name.
        if (name.isEmpty() || !name.contains(QLatin1Char(':')))
            expectsPage = name.isEmpty();
    }
    return lines.join(QLatin1Char('\n')).toUtf8();
}
