// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The cheap questions come first; only a file that passes them is read whole.
#include "jobs/frames/FrameOnDisk.h"

#include "QuarvelImageIO/IIO_PictureFile.h"

#include <QDirIterator>
#include <QFileInfo>

#include <algorithm>

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
    if (!info.isFile() || (newerThan.isValid() && info.lastModified() <= newerThan) || !IIO_hasEnd(file))
        return false;
    const UT_Result<IIO_Picture> picture = IIO_read(file);
    if (!picture || picture->displayWindow().width() != size.width || picture->displayWindow().height() != size.height)
        return false;
    return std::ranges::all_of(
        texts.entries(), [&](const auto& entry) { return picture->metadata().value(entry.first) == entry.second; });
}
