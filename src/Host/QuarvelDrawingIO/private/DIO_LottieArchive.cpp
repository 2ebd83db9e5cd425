// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The manifest names animations; their documents lie in a folder whose name depends on the format's version.
#include "QuarvelDrawingIO/private/DIO_LottieArchive.h"

#include "QuarvelDrawingIO/private/layered/DIO_ZipFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr qint64 kMostOfManifest = 1024 * 1024;

UT_Result<QStringList> animationsOf(const DIO_ZipFile& archive)
{
    const UT_Result<QByteArray> manifest = archive.read(QStringLiteral("manifest.json"), kMostOfManifest);
    if (!manifest)
        return manifest.error();
    QStringList names;
    for (const QJsonValue animation : QJsonDocument::fromJson(*manifest)[QLatin1String("animations")].toArray())
        if (const QString name = animation[QLatin1String("id")].toString(); !name.isEmpty())
            names << name;
    if (names.isEmpty())
        return UT_Error{QStringLiteral("its manifest.json lists no animation")};
    return names;
}

// Of the format's version 1 first, then of version 2.
UT_Result<QByteArray> documentOf(const DIO_ZipFile& archive, const QString& name, qint64 most)
{
    const QString version1 = QStringLiteral("animations/%1.json").arg(name);
    const QString version2 = QStringLiteral("a/%1.json").arg(name);
    return archive.read(archive.contains(version2) ? version2 : version1, most);
}

QString warningFor(QStringList names)
{
    if (names.size() == 1)
        return {};
    constexpr qsizetype kMostShown = 10;
    const QString first = names.takeFirst();
    const bool more = names.size() > kMostShown;
    return QStringLiteral("of its %1 animations the first is read, %2; without %3%4")
        .arg(names.size() + 1)
        .arg(first, names.mid(0, kMostShown).join(QStringLiteral(", ")), more ? QStringLiteral(", ...") : QString());
}

} // namespace

bool DIO_isLottieArchive(const QByteArray& bytes)
{
    return bytes.startsWith("PK\x03\x04");
}

UT_Result<DIO_LottieArchive> DIO_readLottieArchive(const QString& path, qint64 most)
{
    const UT_Result<DIO_ZipFile> archive = DIO_ZipFile::open(path);
    if (!archive)
        return archive.error();
    const UT_Result<QStringList> names = animationsOf(*archive);
    if (!names)
        return names.error();
    UT_Result<QByteArray> document = documentOf(*archive, names->first(), most);
    if (!document)
        return document.error();
    return DIO_LottieArchive{std::move(*document), warningFor(*names)};
}
