// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Windows' prefixes are described in "Naming Files, Paths, and Namespaces" of its documentation for developers.
#include "QuarvelBaseCore/UT_NativePath.h"

#ifdef Q_OS_WIN
#include <QDir>
#include <QFileInfo>
#else
#include <QFile>
#endif

#ifdef Q_OS_WIN

std::filesystem::path UT_nativePath(const QString& path)
{
    QString native = QDir::toNativeSeparators(QDir::cleanPath(QFileInfo(path).absoluteFilePath()));
    const QLatin1String share("\\\\");
    if (native.startsWith(QLatin1String("\\\\?\\")) || native.startsWith(QLatin1String("\\\\.\\")))
        return native.toStdWString();
    if (native.startsWith(share))
        native.replace(0, share.size(), QStringLiteral("\\\\?\\UNC\\"));
    else
        native.prepend(QStringLiteral("\\\\?\\"));
    return native.toStdWString();
}

#else

std::filesystem::path UT_nativePath(const QString& path)
{
    return QFile::encodeName(path).toStdString();
}

#endif
