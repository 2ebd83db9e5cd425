// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SceneSubject.cpp finds what the subject stands for. AttributeWords.cpp reads the words for an attribute's value.
#include "jobs/scene/SetAttribute.h"

#include "jobs/scene/SceneSubject.h"

namespace {

// A table has a row for each object or colour of a scene; those that are equal in both are left out.
ChangedValue toldWithoutEqualRows(const QString& what, const QString& before, const QString& after)
{
    const QStringList old = before.split(u';');
    const QStringList now = after.split(u';');
    const auto without = [](QStringList rows, const QStringList& others) {
        rows.removeIf([&others](const QString& row) { return others.contains(row); });
        return rows.join(u';');
    };
    return {what, without(old, now), without(now, old)};
}

} // namespace

UT_Result<std::vector<ChangedValue>> setInScene(MO_Scene& scene, CO_CommandStack& stack, const QString& subject,
                                                const QStringList& words)
{
    if (words.isEmpty())
        return UT_Error{QStringLiteral("expected a new value after \"%1\", got nothing").arg(subject)};
    const UT_Result<SceneSubject> found = findSubject(scene, subject);
    if (!found)
        return found.error();
    const QString before = found->inWords();
    UT_Result<MO_EditCommand> command = found->change(words);
    if (!command)
        return UT_Error{QStringLiteral("%1: %2").arg(subject, command.error().text)};
    if (!stack.execute(std::move(*command)))
        return std::vector<ChangedValue>();
    return std::vector<ChangedValue>{toldWithoutEqualRows(subject, before, found->inWords())};
}
