// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One file of a scene whose other files are good. The input's first byte says which file it is: x is the index, p a
// palette, k a drawing.
#include "Scenes.h"
#include "Targets.h"

#include <QDir>

void fuzzSceneFile(const QByteArray& input)
{
    static const QMap<QString, QByteArray> good = filesOf(*makeFuzzScene());
    if (input.isEmpty())
        return;
    const QString suffix = input[0] == 'k' ? QStringLiteral(".kvr") : QStringLiteral(".xml");
    const QString folder = QStringLiteral("file.scene");
    QDir(fuzzFolder() + u'/' + folder).removeRecursively();
    bool isReplaced = false;
    for (auto file = good.cbegin(); file != good.cend(); ++file) {
        const bool isOfKind =
            file.key().endsWith(suffix) && (input[0] == 'p') == file.key().startsWith(QLatin1String("palettes/"));
        fuzzFile(folder + u'/' + file.key(), isOfKind && !isReplaced ? input.mid(1) : file.value());
        isReplaced = isReplaced || isOfKind;
    }
    checkSceneIn(folder);
}
