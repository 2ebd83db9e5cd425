// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A key for each dialog.
#include "studio/document/DialogFolders.h"

#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

namespace {

QString keyOf(FileDialogKind kind)
{
    return kind == FileDialogKind::SCENES ? QStringLiteral("folders/scenes") : QStringLiteral("folders/drawings");
}

} // namespace

QString dialogFolder(FileDialogKind kind)
{
    const QString known = QSettings().value(keyOf(kind)).toString();
    return !known.isEmpty() && QFileInfo(known).isDir()
               ? known
               : QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

void rememberDialogFolder(FileDialogKind kind, const QString& path)
{
    QSettings().setValue(keyOf(kind), QFileInfo(path).absolutePath());
}
