// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Names of folders and files made from names that people give, which may hold any text. A scene's main file says which
// file belongs to which name, so these names only have to be allowed on every system, different from each other, and
// easy to recognise.
#pragma once

#include "QuarvelSceneIO/QuarvelSceneIOExport.h"

#include <QSet>
#include <QString>

/// Gives out the names of one folder's files, which differ even where case does not count.
class QUARVELSCENEIO_EXPORT SIO_FileNames
{
public:
    /// A name made of letters, digits, "-", "_", "%" and "~", at most 80 characters long: letters, digits, "-" and "_"
    /// stand for themselves, "%" with two digits for a byte of UTF-8. A name that is long, or taken, ends in "~" and
    /// digits. The same calls always give the same names.
    QString add(const QString& name);

private:
    QSet<QString> _taken;
};
