// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Readers want files with names, since the rest of a name is a layer's name and its end says the kind.
#include "StandardInput.h"

#include "QuarvelDrawingIO/DIO_DrawingReader.h"
#include "TemporaryFolder.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>

namespace {

const QString kSpokenName = QStringLiteral("standard input");

// Larger than any drawing that the readers accept.
constexpr qint64 kMostBytes = qint64{512} << 20;

UT_Result<QByteArray> readAll()
{
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        return UT_Error{QStringLiteral("standard input cannot be read")};
    QByteArray bytes = input.read(kMostBytes + 1);
    if (bytes.isEmpty())
        return UT_Error{QStringLiteral("nothing came through standard input; pipe a drawing into it")};
    if (bytes.size() > kMostBytes)
        return UT_Error{QStringLiteral("more than %1 MiB came through standard input").arg(kMostBytes >> 20)};
    return bytes;
}

// Zip archives: files with layers say near their beginning what they are.
QString suffixOfArchive(const QByteArray& bytes)
{
    const QByteArray begin = bytes.left(128);
    if (begin.contains("image/openraster"))
        return QStringLiteral("ora");
    if (begin.contains("application/x-krita"))
        return QStringLiteral("kra");
    return QStringLiteral("lottie");
}

// Kinds with bytes of their own at their beginning that no image reader knows; else nothing.
QString suffixOfLayered(const QByteArray& bytes)
{
    constexpr qsizetype kPsdVersion = 5;
    if (bytes.startsWith("PK\x03\x04"))
        return suffixOfArchive(bytes);
    if (bytes.startsWith("8BPS"))
        return bytes.mid(kPsdVersion, 1) == "\x02" ? QStringLiteral("psb") : QStringLiteral("psd");
    if (bytes.mid(4, 2) == "\xE0\xA5")
        return QStringLiteral("aseprite");
    return {};
}

QString suffixOf(QByteArray& bytes)
{
    if (QString layered = suffixOfLayered(bytes); !layered.isEmpty())
        return layered;
    const QByteArray begin = bytes.left(4096).trimmed();
    if (begin.startsWith('<') || begin.startsWith("\xEF\xBB\xBF<"))
        return QStringLiteral("svg");
    if (begin.startsWith('{'))
        return QStringLiteral("json");
    if (begin.startsWith("\x1F\x8B"))
        return QStringLiteral("svgz");
    QBuffer buffer(&bytes);
    // The reader looks only into a device that is open.
    buffer.open(QIODevice::ReadOnly);
    return QString::fromLatin1(QImageReader::imageFormat(&buffer));
}

} // namespace

UT_Result<void> StandardInput::putInto(QStringList& files, Report& report)
{
    const qsizetype place = files.indexOf(kStandardStream);
    if (place < 0)
        return {};
    if (files.count(kStandardStream) > 1)
        return UT_Error{QStringLiteral("- is standard input, which holds one drawing; write it once")};
    UT_Result<QByteArray> bytes = readAll();
    if (!bytes)
        return bytes.error();
    const QString suffix = suffixOf(*bytes);
    if (suffix.isEmpty())
        return UT_Error{QStringLiteral("standard input holds no drawing; the readable kinds are %1")
                            .arg(DIO_readableSuffixes().join(QStringLiteral(", ")))};
    auto folder = makeTemporaryFolder();
    if (!folder)
        return folder.error();
    _folder = std::move(*folder);
    QFile file(_folder->filePath(QStringLiteral("drawing.") + suffix));
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly) || file.write(*bytes) != bytes->size() || !file.flush())
        return UT_Error{
            QStringLiteral("standard input cannot be kept in %1: %2").arg(_folder->path(), file.errorString())};
    report.call(file.fileName(), kSpokenName);
    files[place] = file.fileName();
    return {};
}
