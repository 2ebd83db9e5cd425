// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The size that an archive names is checked before memory is taken, and what is unpacked has to have it.
#include "QuarvelDrawingIO/private/layered/DIO_ZipFile.h"

#include "QuarvelBaseCore/UT_PlainFile.h"

#include <QFile>
#include <zip.h>

namespace {

// Pictures are packed already when they come into an archive, and hardly shrink in it. Large ones of a single colour
// do.
std::uint64_t mostUnpacked(qint64 archiveBytes)
{
    constexpr std::uint64_t kAlways = 256'000'000;
    constexpr std::uint64_t kPerByte = 200;
    return kAlways + kPerByte * static_cast<std::uint64_t>(archiveBytes);
}

} // namespace

void DIO_ZipFile::Close::operator()(zip* archive) const
{
    // Nothing was changed, so there is nothing to write.
    zip_discard(archive);
}

UT_Result<DIO_ZipFile> DIO_ZipFile::open(const QString& path)
{
    QFile file(path);
    if (const UT_Result<void> opened = UT_openPlainFile(file); !opened)
        return opened.error();
    int error = 0;
    zip* const archive = zip_open(QFile::encodeName(path).constData(), ZIP_RDONLY, &error);
    if (!archive)
        return UT_Error{QStringLiteral("the file is not an archive, as such files are; is it complete?")};
    return DIO_ZipFile(archive, mostUnpacked(file.size()));
}

bool DIO_ZipFile::contains(const QString& name) const
{
    return zip_name_locate(_archive.get(), name.toUtf8().constData(), 0) >= 0;
}

UT_Result<QByteArray> DIO_ZipFile::read(const QString& name, qint64 most) const
{
    const QByteArray key = name.toUtf8();
    const QString shown = name.left(80);
    zip_stat_t stat;
    zip_stat_init(&stat);
    if (zip_stat(_archive.get(), key.constData(), 0, &stat) != 0 || (stat.valid & ZIP_STAT_SIZE) == 0)
        return UT_Error{QStringLiteral("\"%1\" is missing in it").arg(shown)};
    if (stat.size > static_cast<zip_uint64_t>(most))
        return UT_Error{QStringLiteral("\"%1\" in it is too large").arg(shown)};
    if (stat.size > _left)
        return UT_Error{QStringLiteral("it unpacks to far more than such files hold; is it damaged?")};
    _left -= stat.size;
    const std::unique_ptr<zip_file_t, decltype(&zip_fclose)> file(zip_fopen_index(_archive.get(), stat.index, 0),
                                                                  &zip_fclose);
    QByteArray bytes(static_cast<qsizetype>(stat.size), Qt::Uninitialized);
    if (!file || zip_fread(file.get(), bytes.data(), stat.size) != static_cast<zip_int64_t>(stat.size))
        return UT_Error{QStringLiteral("\"%1\" in it is damaged or cut off").arg(shown)};
    return bytes;
}
