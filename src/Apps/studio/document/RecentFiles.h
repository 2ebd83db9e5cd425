// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RecentFiles: what was opened or imported lately, kept in the application's settings.
#pragma once

#include <QObject>
#include <QStringList>

class RecentFiles : public QObject
{
    Q_OBJECT

public:
    static constexpr qsizetype kMost = 10;

    /// Reads the settings.
    explicit RecentFiles(QObject* parent = nullptr);

    /// Absolute paths, the latest first.
    const QStringList& paths() const { return _paths; }
    void add(const QString& path);
    void remove(const QString& path);
    void clear();

Q_SIGNALS:
    void changed();

private:
    void store();

    QStringList _paths;
};
