// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Every part of the digest is written with its length, so that different parts never give the same bytes.
#include "KeptMaps.h"

#include "FormatLosses.h"
#include "QuarvelImageIO/IIO_PictureFile.h"
#include "jobs/drawing/OwnValues.h"
#include "jobs/frames/FrameOnDisk.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <optional>

extern const char* const kMapCode; // a digest of the sources, made by the build

namespace {

// Only of an ordinary file, because a pipe can be read once.
std::optional<QByteArray> digestOfFile(const QString& path)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) || !hash.addData(&file))
        return std::nullopt;
    return hash.result();
}

// The files that a drawing's pictures depend on.
QStringList sourcesOf(const NormalMapOptions& options, const QString& drawing)
{
    QStringList sources{drawing};
    for (const QString& other : {options.atlas, folderWishesFile(drawing)})
        if (!other.isEmpty() && QFileInfo(other).isFile())
            sources << other;
    return sources;
}

QStringList namesOf(const OutputFiles& files)
{
    QStringList names;
    for (const QString& file : files.all())
        names << QFileInfo(file).fileName();
    return names;
}

bool canHoldDigest(const QString& file)
{
    const UT_Result<IIO_PictureFormat> format = IIO_pictureFormatOf(file);
    return format && format->texts;
}

// The files that a digest is looked for in. The resource of Godot is none of them: it follows from the names alone and
// is written in every run.
std::vector<WantedPicture> filesWithDigest(const NormalMapOptions& options, const OutputFiles& files)
{
    std::vector<WantedPicture> wanted = picturesOf(files);
    for (const QString& flipped : flippedFiles(options, files.normalMap))
        wanted.push_back({PictureKind::NORMAL_MAP, flipped});
    return wanted;
}

} // namespace

QByteArray digestOfMaps(const NormalMapOptions& options, const QString& drawing, const OutputFiles& files)
{
    const bool isOne = options.drawings.size() == 1 && options.folders.isEmpty();
    if (isOne && !options.resume)
        return {};
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_6_0);
    out << QByteArray(kMapCode) << QFileInfo(drawing).fileName() << options.pictureWords << namesOf(files);
    for (const QString& source : sourcesOf(options, drawing)) {
        const std::optional<QByteArray> digest = digestOfFile(source);
        if (!digest)
            return {};
        out << *digest;
    }
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
}

QByteArray digestOfPicture(const QByteArray& maps, PictureKind kind)
{
    if (maps.isEmpty())
        return {};
    return QCryptographicHash::hash(maps + QByteArray::number(static_cast<int>(kind)), QCryptographicHash::Sha256)
        .toHex();
}

bool areMapsOnDisk(const NormalMapOptions& options, const OutputFiles& files, const QByteArray& digest)
{
    const std::vector<WantedPicture> wanted = filesWithDigest(options, files);
    const auto isOnDisk = [&](const WantedPicture& picture) {
        return isFrameOnDisk(picture.file, digestOfPicture(digest, picture.kind));
    };
    return files.page.isEmpty() && std::ranges::all_of(wanted, canHoldDigest, &WantedPicture::file) &&
           std::ranges::all_of(wanted, isOnDisk);
}

void warnOfFilesWithoutDigest(const NormalMapOptions& options, const OutputFiles& files, Report& report)
{
    if (!options.resume)
        return;
    QStringList without;
    for (const auto& [kind, file] : filesWithDigest(options, files))
        if (!canHoldDigest(file))
            without << file;
    if (!files.page.isEmpty())
        without << files.page;
    for (const QString& file : without)
        warnOfNoDigest(file, QStringLiteral("makes all maps again"), report);
}
