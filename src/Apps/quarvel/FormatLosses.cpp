// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Asks the table of picture formats.
#include "FormatLosses.h"

#include "QuarvelBaseCore/UT_FileName.h"
#include "QuarvelImageIO/IIO_PictureFile.h"

void warnOfEightBits(const QString& file, Report& report)
{
    const auto format = IIO_pictureFormatOf(file);
    if (!format || format->bitsPerChannel > 8)
        return;
    report.warning(file, QStringLiteral(".%1 files hold 8 bits a channel%2; write .png or .exr to keep everything")
                             .arg(format->suffix, format->alpha ? QString() : QStringLiteral(" and no coverage")));
}

void warnOfNoDigest(const QString& file, const QString& again, Report& report)
{
    report.warning(file, QStringLiteral(".%1 files cannot say what they were made of, so --resume %2; write .png or "
                                        ".exr")
                             .arg(UT_fileSuffix(file), again));
}
