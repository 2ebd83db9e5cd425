// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The suffix of the file's name determines the parser. Pages are looked for beside the atlas or in its Godot project.
#include "jobs/sheets/ReadAtlas.h"

#include "QuarvelBaseCore/UT_FileName.h"
#include "QuarvelBaseCore/UT_PlainFile.h"
#include "jobs/sheets/AtlasGodot.h"
#include "jobs/sheets/AtlasJson.h"
#include "jobs/sheets/AtlasText.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>

namespace {

// Real atlases are much smaller.
constexpr qint64 kMostBytes = 64 * 1024 * 1024;
constexpr std::size_t kMostRegions = 100'000;

struct Kind
{
    const char* suffix;
    UT_Result<std::vector<Sheet>> (*parse)(const QByteArray& bytes);
    QByteArray (*renamePages)(const QByteArray& bytes, const PageNames& maps);
};

constexpr std::array kKinds{Kind{"json", parseAtlasJson, renamePagesJson},
                            Kind{"atlas", parseAtlasText, renamePagesText},
                            Kind{"tres", parseAtlasGodot, renamePagesGodot}};

UT_Result<const Kind*> kindOf(const QString& path)
{
    const QString suffix = UT_fileSuffix(path);
    for (const Kind& kind : kKinds)
        if (suffix == QLatin1String(kind.suffix))
            return &kind;
    return UT_Error{
        QStringLiteral("%1: an atlas is a .json of Aseprite or TexturePacker, an .atlas of libGDX or Spine, "
                       "or a .tres of Godot")
            .arg(path)};
}

UT_Result<QByteArray> bytesOf(const QString& path)
{
    QFile file(path);
    if (const UT_Result<void> opened = UT_openFile(file); !opened)
        return UT_Error{QStringLiteral("%1: %2").arg(path, opened.error().text)};
    // One byte more than is allowed, whatever size the file claims to have.
    QByteArray bytes = file.read(kMostBytes + 1);
    if (bytes.size() > kMostBytes)
        return UT_Error{QStringLiteral("%1: an atlas of more than 64 MB is not read").arg(path)};
    return bytes;
}

// The folder that res:// means: that of the nearest project.godot at or above the atlas, else that of the atlas.
QDir projectOf(const QString& path)
{
    QDir folder = QFileInfo(path).absoluteDir();
    QDir up = folder;
    do {
        if (up.exists(QStringLiteral("project.godot")))
            return up;
    } while (up.cdUp());
    return folder;
}

// Maps are written beside their pages, and an atlas may come from anybody: it names no page outside its own folder.
bool leavesFolder(const QString& name)
{
    const QString clean = QDir::cleanPath(name);
    return QDir::isAbsolutePath(clean) || clean == QLatin1String("..") || clean.startsWith(QLatin1String("../"));
}

// A folder may have come with links in it. A page that is a link itself is read where the link leads, and its map lies
// beside the link.
bool linksLeaveFolder(const QDir& folder, const QString& file)
{
    const QFileInfo place(QFileInfo(file).path());
    return place.exists() && leavesFolder(QDir(folder.canonicalPath()).relativeFilePath(place.canonicalFilePath()));
}

UT_Result<QString> pageFile(const QString& path, const QString& name)
{
    const QDir beside = QFileInfo(path).dir();
    static const QString res = QStringLiteral("res://");
    const bool inProject = name.startsWith(res);
    const QString inside = inProject ? name.mid(res.size()) : name;
    const QString fileName = QFileInfo(name).fileName();
    const QDir folder = inProject ? projectOf(path) : beside;
    const bool leaves = leavesFolder(inside) || linksLeaveFolder(folder, folder.filePath(inside));
    const QString file = leaves ? beside.filePath(fileName) : folder.filePath(inside);
    const QString found = QFileInfo(file).isFile() ? file : beside.filePath(fileName);
    if (leaves && !QFileInfo(found).isFile())
        return UT_Error{
            QStringLiteral("%1: its page %2 is outside the atlas' folder, where nothing is read or written; "
                           "put %3 beside the atlas")
                .arg(path, name, fileName)};
    if (!QFileInfo(found).isFile())
        return UT_Error{QStringLiteral("%1: its page %2 is missing; it is looked for at %3").arg(path, name, file)};
    return QDir::cleanPath(found);
}

// The sheets with the pages' names as the file has them.
UT_Result<std::vector<Sheet>> parseFile(const QString& path)
{
    const UT_Result<const Kind*> kind = kindOf(path);
    if (!kind)
        return kind.error();
    const UT_Result<QByteArray> bytes = bytesOf(path);
    if (!bytes)
        return bytes.error();
    UT_Result<std::vector<Sheet>> sheets = (*kind)->parse(*bytes);
    if (!sheets)
        return sheets.error().at(path);
    return sheets;
}

} // namespace

UT_Result<std::vector<Sheet>> readAtlas(const QString& path)
{
    UT_Result<std::vector<Sheet>> sheets = parseFile(path);
    if (!sheets)
        return sheets;
    std::size_t regions = 0;
    for (const Sheet& sheet : *sheets)
        regions += sheet.regions.size();
    if (regions > kMostRegions)
        return UT_Error{QStringLiteral("%1: it has %2 sprites, more than the %3 that can be read")
                            .arg(path)
                            .arg(regions)
                            .arg(kMostRegions)};
    for (Sheet& sheet : *sheets) {
        const UT_Result<QString> page = pageFile(path, sheet.page);
        if (!page)
            return page.error();
        sheet.page = *page;
    }
    return sheets;
}

bool holdsAtlas(const QString& path)
{
    // A pipe would wait for somebody to write.
    return QFileInfo(path).isFile() && parseFile(path);
}

namespace {

// Where the map lies beside its page. A page that was found beside the atlas instead of outside its folder has its map
// there.
QString besidePage(const QString& page, const QString& map)
{
    return leavesFolder(page) ? map : page.left(page.lastIndexOf(QLatin1Char('/')) + 1) + map;
}

bool names(const std::vector<Sheet>& sheets, const PageNames& maps)
{
    const QStringList pages = maps.values();
    return std::ranges::all_of(sheets, [&](const Sheet& sheet) { return pages.contains(sheet.page); });
}

} // namespace

UT_Result<QByteArray> atlasOfMaps(const QString& path, const QStringList& mapNames)
{
    const UT_Result<const Kind*> kind = kindOf(path);
    if (!kind)
        return kind.error();
    const UT_Result<QByteArray> bytes = bytesOf(path);
    if (!bytes)
        return bytes.error();
    const UT_Result<std::vector<Sheet>> sheets = (*kind)->parse(*bytes);
    if (!sheets)
        return sheets.error().at(path);
    PageNames maps;
    for (std::size_t i = 0; i < sheets->size() && static_cast<qsizetype>(i) < mapNames.size(); ++i)
        maps.insert((*sheets)[i].page, besidePage((*sheets)[i].page, mapNames[static_cast<qsizetype>(i)]));
    QByteArray renamed = (*kind)->renamePages(*bytes, maps);
    const UT_Result<std::vector<Sheet>> made = (*kind)->parse(renamed);
    if (!made || !names(*made, maps))
        return UT_Error{QStringLiteral("%1: the names of its pages cannot be replaced by those of their maps; simpler "
                                       "names of pages help")
                            .arg(path)};
    return renamed;
}
