// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A key for each dialog.
#include "studio/document/DialogFolders.h"

#include <QDir>
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
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    for (const QString& folder : {known, documents})
        if (!folder.isEmpty() && QFileInfo(folder).isDir())
            return folder;
    return QDir::homePath();
}

void rememberDialogFolder(FileDialogKind kind, const QString& path)
{
    QSettings().setValue(keyOf(kind), QFileInfo(path).absolutePath());
}
