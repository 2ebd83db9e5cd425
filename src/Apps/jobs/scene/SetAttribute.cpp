// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Finds what is changed; the words for an attribute's value are read in AttributeWords.cpp.
#include "jobs/scene/SetAttribute.h"

#include "QuarvelSceneCore/attributes/AT_Attr.h"
#include "QuarvelSceneCore/editing/MO_ModuleCommands.h"
#include "QuarvelSceneCore/editing/MO_SceneCommands.h"
#include "jobs/scene/AttributeWords.h"

#include <QRegularExpression>

#include <cmath>

namespace {

// Null when nothing would change.
using MadeCommand = UT_Result<MO_EditCommand>;

UT_Error error(const QString& text)
{
    return UT_Error{text};
}

QStringList moduleNames(const MO_Scene& scene)
{
    QStringList names;
    scene.root().forEachModule([&](const MO_Module& module) { names << module.instanceName(); });
    return names;
}

QStringList keysOf(const MO_Module& module)
{
    QStringList keys;
    for (const AT_Attr* attr : module.attrs())
        keys << attr->keyword();
    return keys << QStringLiteral("name") << QStringLiteral("enabled");
}

MadeCommand changeModule(MO_Module& module, const QString& key, const QString& word)
{
    if (key == QLatin1String("name"))
        return MO_EditCommand(MO_renameCmd(module, word));
    const auto enabled = truthInWord(word);
    if (!enabled)
        return enabled.error();
    return MO_EditCommand(MO_enableCmd({&module}, *enabled));
}

MadeCommand changeFrames(MO_Scene& scene, const QString& word)
{
    static const QRegularExpression range(QStringLiteral("^(-?\\d+)-(-?\\d+)$"));
    const QRegularExpressionMatch match = range.match(word);
    if (!match.hasMatch())
        return error(QStringLiteral("expected the first and the last frame, as in 1-48, got \"%1\"").arg(word));
    return MO_EditCommand(MO_frameRangeCmd(scene, match.captured(1).toInt(), match.captured(2).toInt()));
}

MadeCommand changeFrameHeight(MO_Scene& scene, const QString& word)
{
    bool isNumber = false;
    const double height = word.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(height) || height <= 0.0)
        return error(QStringLiteral("expected a height in units, more than 0, got \"%1\"").arg(word));
    return MO_EditCommand(MO_frameHeightCmd(scene, height));
}

MadeCommand commandFor(MO_Scene& scene, const QString& subject, const QStringList& words)
{
    if (subject == QLatin1String("frames") && words.size() == 1)
        return changeFrames(scene, words.first());
    if (subject == QLatin1String("height") && words.size() == 1)
        return changeFrameHeight(scene, words.first());
    const QString node = AT_AttrLink::nodeOf(subject);
    const QString key = AT_AttrLink::keyOf(subject);
    if (AT_Attr* attr = subject.contains(u'.') ? scene.findAttr(subject) : nullptr)
        return changeByWords(scene, *attr, words);
    MO_Module* const module = scene.findModule(node);
    if (!module)
        return error(QStringLiteral("expected MODULE.ATTRIBUTE, the module one of %1, got \"%2\"")
                         .arg(moduleNames(scene).join(QStringLiteral(", ")), subject));
    if (words.size() == 1 && (key == QLatin1String("name") || key == QLatin1String("enabled")))
        return changeModule(*module, key, words.first());
    return error(QStringLiteral("\"%1\" has no attribute \"%2\"; it has %3")
                     .arg(node, key, keysOf(*module).join(QStringLiteral(", "))));
}

} // namespace

UT_Result<bool> setInScene(MO_Scene& scene, CO_CommandStack& stack, const QString& subject, const QStringList& words)
{
    if (words.isEmpty())
        return error(QStringLiteral("expected a new value after \"%1\", got nothing").arg(subject));
    MadeCommand command = commandFor(scene, subject, words);
    if (!command)
        return command.error();
    return stack.execute(std::move(*command));
}
