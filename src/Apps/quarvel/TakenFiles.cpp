// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Paths are compared in full.
#include "TakenFiles.h"

#include <QDir>
#include <QFileInfo>

std::optional<QString> TakenFiles::take(const QString& file, const QString& owner)
{
    if (file.isEmpty())
        return {};
    const QString path = QDir::cleanPath(QFileInfo(file).absoluteFilePath());
    if (const auto known = _owners.constFind(path); known != _owners.cend())
        return *known;
    _owners.insert(path, owner);
    return {};
}
