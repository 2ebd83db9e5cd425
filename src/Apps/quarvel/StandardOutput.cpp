// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One PNG file: a pipe has no name that could ask for another format.
#include "StandardOutput.h"

#include "TemporaryFolder.h"
#include "Terminal.h"

#include <QFile>

UT_Result<QString> StandardOutput::prepare(const NormalMapOptions& options, Report& report)
{
    if (!options.atlas.isEmpty())
        return UT_Error{QStringLiteral("-o - writes one picture to standard output, and --atlas makes an atlas, too")};
    if (options.drawings.size() != 1)
        return UT_Error{QStringLiteral("-o - writes one picture to standard output, and there are %1 drawings")
                            .arg(options.drawings.size())};
    if (options.canvas)
        return UT_Error{QStringLiteral("-o - writes one picture to standard output, and --canvas joins files; name the "
                                       "map's file with -o")};
    if (options.flips)
        return UT_Error{QStringLiteral("-o - writes one picture to standard output, and --flips makes three")};
    if (report.isJson())
        return UT_Error{QStringLiteral("-o - and --json both want standard output; name a file with -o")};
    if (isTerminal(report.results()))
        return UT_Error{QStringLiteral("the picture would go to the terminal; name a file, as in -o hero_n.png, or "
                                       "write > hero_n.png behind the command")};
    auto folder = makeTemporaryFolder();
    if (!folder)
        return folder.error();
    _folder = std::move(*folder);
    _file = _folder->filePath(QStringLiteral("map.png"));
    report.call(_file, QStringLiteral("standard output"));
    report.beQuiet();
    return _file;
}

UT_Result<void> StandardOutput::send(const Report& report) const
{
    if (_file.isEmpty())
        return {};
    QFile file(_file);
    if (!file.open(QIODevice::ReadOnly))
        return UT_Error{QStringLiteral("the picture cannot be read again: %1").arg(file.errorString())};
    const QByteArray bytes = file.readAll();
    if (bytes.size() != file.size())
        return UT_Error{QStringLiteral("the picture cannot be read again: %1").arg(file.errorString())};
    if (std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), report.results()) !=
        static_cast<std::size_t>(bytes.size()))
        return UT_Error{QStringLiteral("the picture cannot be written to standard output")};
    return {};
}
