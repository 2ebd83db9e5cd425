// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The choice of a reader by the end of a file's name.
#include "QuarvelDrawingIO/DIO_DrawingReader.h"

#include "QuarvelDrawingIO/DIO_BitmapReader.h"
#include "QuarvelDrawingIO/DIO_SvgReader.h"

#include <QFileInfo>

QStringList DIO_readableSuffixes()
{
    return QStringList{QStringLiteral("svg")} + DIO_bitmapSuffixes();
}

UT_Result<DIO_Drawing> DIO_readDrawing(const QString& path, DIO_Grouping grouping)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("svg"))
        return DIO_readSvg(path, grouping);
    if (DIO_bitmapSuffixes().contains(suffix))
        return DIO_readBitmap(path);
    const QString kind = suffix.isEmpty() ? QStringLiteral("a name without suffix") : u'.' + suffix + " files";
    return UT_Error{QStringLiteral("%1: %2 cannot be read as a drawing; the readable kinds are .%3")
                        .arg(path, kind, DIO_readableSuffixes().join(QStringLiteral(", .")))};
}
