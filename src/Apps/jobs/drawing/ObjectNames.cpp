// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "jobs/drawing/ObjectNames.h"

#include "jobs/text/NameList.h"

#include <QRegularExpression>

#include <algorithm>

ObjectSettings merged(const ObjectSettings& first, const ObjectSettings& second)
{
    const auto either = [](const auto& a, const auto& b) { return a ? a : b; };
    return {either(first.bevel, second.bevel),
            either(first.elevation, second.elevation),
            either(first.smoothness, second.smoothness),
            either(first.level, second.level),
            either(first.scaleByCoverage, second.scaleByCoverage),
            either(first.cutOut, second.cutOut),
            either(first.hidden, second.hidden),
            either(first.tilt, second.tilt),
            either(first.rim, second.rim),
            either(first.relief, second.relief)};
}

bool isNamedBy(const QString& name, const QString& word)
{
    if (name.compare(word, Qt::CaseInsensitive) == 0)
        return true;
    QString pattern = QRegularExpression::escape(word);
    pattern.replace(QLatin1String("\\*"), QLatin1String(".*")).replace(QLatin1String("\\?"), QLatin1String("."));
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern),
                              QRegularExpression::CaseInsensitiveOption |
                                  QRegularExpression::DotMatchesEverythingOption)
        .match(name)
        .hasMatch();
}

bool isNamedBy(const QStringList& names, const QString& word)
{
    return std::ranges::any_of(names, [&](const QString& name) { return isNamedBy(name, word); });
}

UT_Error noSuchObject(const QString& said, const QStringList& objects)
{
    return {QStringLiteral("there is no object %1; the objects are %2").arg(said, namesForPeople(objects))};
}

UT_Result<ObjectWishes> withNumberedObjects(const ObjectWishes& wishes, const QStringList& names)
{
    ObjectWishes numbered = wishes;
    numbered.namedObjects.clear();
    std::map<int, ObjectSettings> byName;
    for (const auto& [word, object] : wishes.namedObjects) {
        bool isKnown = false;
        for (qsizetype i = 0; i < names.size(); ++i) {
            if (!isNamedBy(names[i], word))
                continue;
            isKnown = true;
            ObjectSettings& known = byName[static_cast<int>(i) + 1];
            known = merged(object, known);
        }
        if (!isKnown)
            return noSuchObject(QStringLiteral("called \"%1\"").arg(word), names);
    }
    for (const auto& [number, object] : byName)
        numbered.objects[number] = merged(numbered.objects[number], object);
    return numbered;
}

ObjectSettings wishesFor(const ObjectWishes& wishes, int number, const QStringList& names)
{
    ObjectSettings said = wishes.allObjects;
    for (const auto& [word, object] : wishes.namedObjects)
        if (isNamedBy(names, word))
            said = merged(object, said);
    const auto own = wishes.objects.find(number);
    return own == wishes.objects.end() ? said : merged(own->second, said);
}
