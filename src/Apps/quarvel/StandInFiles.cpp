// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "StandInFiles.h"

#include "NameEncoding.h"
#include "TemporaryFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX

#include <filesystem>
#include <system_error>

UT_Result<QString> StandInFiles::linkTo(const QString& name, Report& report)
{
    namespace fs = std::filesystem;
    const QString shown = escapedName(name);
    std::error_code failed;
    const fs::path path = fs::absolute(bytesOf(name).toStdString(), failed);
    const fs::file_type type = fs::status(path, failed).type();
    if (type != fs::file_type::regular && type != fs::file_type::directory)
        return UT_Error{QStringLiteral("%1: there is no such file or folder; the name is not UTF-8, and files are read "
                                       "but not made under such names")
                            .arg(shown)};
    if (!_folder) {
        auto folder = makeTemporaryFolder();
        if (!folder)
            return folder.error();
        _folder = std::move(*folder);
    }
    QDir place(_folder->path());
    const QString link = QDir::cleanPath(shown).section(u'/', -1);
    for (int i = 2; QFileInfo(place.filePath(link)).isSymLink(); ++i)
        place = QDir(_folder->filePath(QString::number(i)));
    const QString made = place.filePath(link);
    place.mkpath(QStringLiteral("."));
    fs::create_symlink(path, QFile::encodeName(made).toStdString(), failed);
    if (failed)
        return UT_Error{QStringLiteral("%1: the name is not UTF-8, and no link to it can be made in %2: %3; rename it")
                            .arg(shown, place.path(), QString::fromStdString(failed.message()))};
    if (type == fs::file_type::regular)
        _files.insert(made);
    report.call(made, report.named(shown));
    return made;
}

#else

// Names are texts on Windows.
UT_Result<QString> StandInFiles::linkTo(const QString& name, Report&)
{
    return UT_Error{QStringLiteral("%1: there is no such file or folder").arg(escapedName(name))};
}

#endif

UT_Result<void> StandInFiles::putInto(QStringList& files, Report& report)
{
    for (QString& file : files) {
        if (isText(file))
            continue;
        UT_Result<QString> link = linkTo(file, report);
        if (!link)
            return link.error();
        file = *link;
    }
    return {};
}
