// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The words of "quarvel set", one a line; "--object" first takes the words of an object. An error changes nothing, undo
// brings the bytes back, and redo the changed ones.
#include "Scenes.h"
#include "Targets.h"
#include "jobs/drawing/ObjectWords.h"
#include "jobs/scene/SetAttribute.h"
#include "jobs/scene/SetObjects.h"

#include <QStringList>

namespace {

bool change(MO_Scene& scene, CO_CommandStack& stack, const QStringList& words)
{
    if (words.first() != QLatin1String("--object")) {
        const auto changed = setInScene(scene, stack, words.first(), words.sliced(1));
        return changed && !changed->empty();
    }
    ObjectWishes wishes;
    for (const QString& word : words.sliced(1))
        if (!takeObjectWords(wishes, word))
            return false;
    const auto changed = setObjectsInScene(scene, stack, wishes);
    return changed && !changed->empty();
}

} // namespace

void fuzzSetWords(const QByteArray& input)
{
    static const std::unique_ptr<MO_Scene> scene = makeFuzzScene();
    static const QMap<QString, QByteArray> before = filesOf(*scene);
    const QStringList words = QString::fromUtf8(input).split(u'\n');
    CO_CommandStack stack;
    if (!change(*scene, stack, words)) {
        FUZZ_CHECK(filesOf(*scene) == before);
        return;
    }
    const QMap<QString, QByteArray> after = filesOf(*scene);
    while (stack.canUndo())
        stack.undo();
    FUZZ_CHECK(filesOf(*scene) == before);
    while (stack.canRedo())
        stack.redo();
    FUZZ_CHECK(filesOf(*scene) == after);
    while (stack.canUndo())
        stack.undo();
}
