// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The cheap questions come first; only a file that passes them is read whole.
#include "jobs/frames/FrameOnDisk.h"

#include "QuarvelImageIO/IIO_PictureFile.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

// A PNG that was cut off may still be shown by its reader, so its end is looked at. Other formats fail by themselves.
bool hasEnd(const QString& path)
{
    if (QFileInfo(path).suffix().toLower() != QLatin1String("png"))
        return true;
    const QByteArray end = QByteArray::fromHex("0000000049454e44ae426082");
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.seek(std::max<qint64>(0, file.size() - end.size())) &&
           file.readAll() == end;
}

} // namespace

QDateTime newestChange(const QString& folder)
{
    QDateTime newest;
    QDirIterator files(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        files.next();
        const QDateTime changed = files.fileInfo().lastModified();
        if (!newest.isValid() || changed > newest)
            newest = changed;
    }
    return newest;
}

bool isFrameOnDisk(const QString& file, const Math::Size2di& size, const IIO_Metadata& texts,
                   const QDateTime& newerThan)
{
    const QFileInfo info(file);
    if (!info.isFile() || (newerThan.isValid() && info.lastModified() <= newerThan) || !hasEnd(file))
        return false;
    const UT_Result<IIO_Picture> picture = IIO_read(file);
    if (!picture || picture->displayWindow().width() != size.width || picture->displayWindow().height() != size.height)
        return false;
    return std::ranges::all_of(
        texts.entries(), [&](const auto& entry) { return picture->metadata().value(entry.first) == entry.second; });
}
