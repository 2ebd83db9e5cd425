// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A whole scene, with what else its folder may hold (fuzzFilesIn).
#include "Scenes.h"
#include "Targets.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

// Names within the folder: the input is not to write anywhere else.
bool isInside(const QString& name)
{
    return !name.isEmpty() && QDir::isRelativePath(name) && !QDir::cleanPath(name).startsWith(QLatin1String("..")) &&
           !name.contains(QChar::Null) && name.size() < 100 && name.count(u'/') < 6;
}

// A name may be that of a folder, or lead through a file.
void writeIfPossible(const QString& path, const QByteArray& content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(content);
}

} // namespace

void fuzzScene(const QByteArray& input)
{
    const QString folder = QStringLiteral("whole.scene");
    const QString path = fuzzFolder() + u'/' + folder;
    QDir(path).removeRecursively();
    QDir().mkpath(path);
    for (const auto& [name, content] : fuzzFilesIn(input))
        if (isInside(name))
            writeIfPossible(path + u'/' + name, content);
    checkSceneIn(folder);
}
