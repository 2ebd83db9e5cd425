// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Atlases of all kinds; how the input begins says which. The atlas of the maps is an atlas again, with the names of the
// maps for pages.
#include "Targets.h"
#include "jobs/sheets/ReadAtlas.h"
#include "jobs/sheets/SheetPictures.h"

namespace {

QString nameFor(const QByteArray& input)
{
    const QByteArray text = input.trimmed();
    if (text.startsWith('{'))
        return QStringLiteral("sheets/fuzz.json");
    return text.startsWith('[') ? QStringLiteral("sheets/fuzz.tres") : QStringLiteral("sheets/fuzz.atlas");
}

// Regions that fit their page can be cut out of it, all of them.
void cutOut(const Sheet& sheet)
{
    constexpr qint64 kMostPixels = 1024 * 1024;
    QImage page(256, 256, QImage::Format_ARGB32);
    page.fill(Qt::red);
    if (!checkRegions(sheet.regions, page.size()))
        return;
    for (const SheetRegion& region : sheet.regions)
        if (qint64{region.whole.width()} * region.whole.height() <= kMostPixels)
            FUZZ_CHECK(spriteOf(page, region).size() == region.whole);
}

} // namespace

void fuzzAtlas(const QByteArray& input)
{
    fuzzFile(QStringLiteral("sheets/page.png"), "");
    const QString path = fuzzFile(nameFor(input), input);
    const auto sheets = readAtlas(path);
    if (!sheets) {
        FUZZ_CHECK(!sheets.error().sentence().isEmpty());
        return;
    }
    FUZZ_CHECK(!sheets->empty());
    QStringList maps;
    for (const Sheet& sheet : *sheets) {
        FUZZ_CHECK(!sheet.regions.empty());
        FUZZ_CHECK(sheet.page.startsWith(fuzzFolder()));
        cutOut(sheet);
        maps << QStringLiteral("page%1_n.png").arg(maps.size());
    }
    if (const auto ofMaps = atlasOfMaps(path, maps); !ofMaps)
        FUZZ_CHECK(!ofMaps.error().sentence().isEmpty());
}
