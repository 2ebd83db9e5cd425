// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SIO_FileNames: makes names of folders and files from names that people give, which may be any text. A scene's main
// file stores which file belongs to which name, so the file names only have to be valid on every system, unique, and
// easy to recognise.
#pragma once

#include "QuarvelSceneIO/QuarvelSceneIOExport.h"

#include <QSet>
#include <QString>

/// Makes the names of one folder's files. They differ by more than upper and lower case.
class QUARVELSCENEIO_EXPORT SIO_FileNames
{
public:
    /// A name made of letters, digits, "-", "_", "%" and "~", at most 80 characters long: letters, digits, "-" and "_"
    /// stand for themselves, "%" with two hexadecimal digits for a byte of UTF-8. A name that is too long or already
    /// taken ends in "~" and digits. The same calls always give the same names.
    QString add(const QString& name);

private:
    QSet<QString> _taken;
};
