// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Every change is stored at once, so that a crash loses nothing.
#include "studio/document/RecentFiles.h"

#include <QFileInfo>
#include <QSettings>

namespace {

const QString kKey = QStringLiteral("recentFiles");

} // namespace

RecentFiles::RecentFiles(QObject* parent) : QObject(parent), _paths(QSettings().value(kKey).toStringList())
{
    _paths = _paths.first(std::min(_paths.size(), kMost));
}

void RecentFiles::add(const QString& path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    _paths.removeAll(absolute);
    _paths.prepend(absolute);
    _paths = _paths.first(std::min(_paths.size(), kMost));
    store();
}

void RecentFiles::remove(const QString& path)
{
    _paths.removeAll(path);
    store();
}

void RecentFiles::clear()
{
    _paths.clear();
    store();
}

void RecentFiles::store()
{
    QSettings().setValue(kKey, _paths);
    Q_EMIT changed();
}
