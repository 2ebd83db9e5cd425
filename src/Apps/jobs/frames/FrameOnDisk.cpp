// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The cheap checks come first; only a file that passes them is read completely.
#include "jobs/frames/FrameOnDisk.h"

#include "QuarvelImageIO/IIO_PictureFile.h"
#include "jobs/frames/FrameDigest.h"

#include <QFileInfo>

bool isFrameOnDisk(const QString& file, const QByteArray& digest)
{
    if (digest.isEmpty() || !QFileInfo(file).isFile() || !IIO_hasEnd(file))
        return false;
    const UT_Result<IIO_Picture> picture = IIO_read(file);
    return picture && picture->metadata().value(kFrameDigestKey) == QLatin1String(digest);
}
