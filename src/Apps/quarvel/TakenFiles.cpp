// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Paths are compared in full, after all links.
#include "TakenFiles.h"

#include <QDir>
#include <QFileInfo>

QString followedPath(const QString& file)
{
    if (file.isEmpty())
        return {};
    const QString path = QDir::cleanPath(QFileInfo(file).absoluteFilePath());
    QFileInfo there(path);
    QString missing;
    while (!there.exists() && there.path() != there.filePath()) {
        missing = QLatin1Char('/') + there.fileName() + missing;
        there = QFileInfo(there.path());
    }
    const QString found = there.canonicalFilePath();
    return found.isEmpty() ? path : QDir::cleanPath(found + missing);
}

UT_Result<void> checkIsNoLink(const QString& file)
{
    if (file.isEmpty() || !QFileInfo(file).isSymLink())
        return {};
    return UT_Error{QStringLiteral("%1 is a link, and links are written through only where they are named; name it or "
                                   "another file with -o, or remove it")
                        .arg(file)};
}

std::optional<QString> TakenFiles::take(const QString& file, const QString& owner)
{
    if (file.isEmpty())
        return {};
    const QString path = followedPath(file);
    if (const auto known = _owners.constFind(path); known != _owners.cend())
        return *known;
    _owners.insert(path, owner);
    return {};
}
