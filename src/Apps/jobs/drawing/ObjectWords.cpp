// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A table of the values' names, each with the function that parses its value.
#include "jobs/drawing/ObjectWords.h"

#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "form/ElevationUnit.h"
#include "form/ReliefLayers.h"
#include "jobs/drawing/ObjectLimits.h"
#include "jobs/drawing/ObjectNames.h"
#include "jobs/text/WrongValue.h"

#include <QLocale>

#include <cmath>
#include <functional>

namespace {

// Returns whether the value was valid.
using Take = std::function<bool(ObjectSettings&, const QString& value)>;

struct ObjectWord
{
    QString key;
    QString expected;
    Take take;
};

Take number(std::optional<double> ObjectSettings::*member, const ValueLimits& limits)
{
    return [=](ObjectSettings& object, const QString& text) {
        bool isNumber = false;
        const double value = text.toDouble(&isNumber);
        if (!isNumber || !limits.hold(value))
            return false;
        object.*member = value;
        return true;
    };
}

bool takeElevation(ObjectSettings& object, const QString& text)
{
    if (!number(&ObjectSettings::elevation, ObjectLimits::kElevation)(object, text))
        return false;
    object.elevation = givenElevation(*object.elevation);
    return true;
}

// "from 0 to 1".
QString fromTo(const ValueLimits& limits)
{
    return QStringLiteral("from %1 to %2").arg(limits.least, 0, 'g', 10).arg(limits.most, 0, 'g', 10);
}

// The word without a value means yes.
Take truth(std::optional<bool> ObjectSettings::*member)
{
    return [=](ObjectSettings& object, const QString& text) {
        const std::optional<bool> meant = text.isNull() ? true : AT_BoolAttr::meaningOf(text);
        if (meant)
            object.*member = meant;
        return meant.has_value();
    };
}

// The numbers between commas; empty if one of them is no finite number.
std::vector<double> numbersIn(const QString& text)
{
    std::vector<double> numbers;
    for (const QString& part : text.split(u',')) {
        bool isNumber = false;
        numbers.push_back(part.trimmed().toDouble(&isNumber));
        if (!isNumber || !std::isfinite(numbers.back()))
            return {};
    }
    return numbers;
}

bool takeTilt(ObjectSettings& object, const QString& text)
{
    const std::vector<double> degrees = numbersIn(text);
    if (degrees.size() != 2 || !ObjectLimits::kTilt.hold(degrees[0]) || !ObjectLimits::kTilt.hold(degrees[1]))
        return false;
    object.tilt = ObjectTilt{degrees[0], degrees[1]};
    return true;
}

// The bevel, with or without the height.
bool takeRim(ObjectSettings& object, const QString& text)
{
    std::vector<double> values = numbersIn(text);
    if (values.size() == 1)
        values.push_back(ObjectDefinition::kRimHeight);
    if (values.size() != 2 || !ObjectLimits::kRimBevel.hold(values[0]) || !ObjectLimits::kRimHeight.hold(values[1]))
        return false;
    object.rim = ObjectRim{values[0], values[1]};
    return true;
}

bool takeRole(ObjectSettings& object, const QString& text)
{
    const double relief = reliefCalled(text);
    if (relief == 0.0 && text.compare(QLatin1String("object"), Qt::CaseInsensitive) != 0)
        return false;
    object.relief = relief;
    return true;
}

const std::vector<ObjectWord>& objectWords()
{
    static const std::vector<ObjectWord> table = [] {
        using Limits = ObjectLimits;
        const QString yes = QStringLiteral("yes or no");
        return std::vector<ObjectWord>{
            {QStringLiteral("bevel"), QStringLiteral("a number %1 such as 24").arg(fromTo(Limits::kBevel)),
             number(&ObjectSettings::bevel, Limits::kBevel)},
            {QStringLiteral("elevation"),
             QStringLiteral("a number %1 such as 1 or -0.5").arg(fromTo(Limits::kElevation)), takeElevation},
            {QStringLiteral("smoothness"), QStringLiteral("a number %1 such as 1.7").arg(fromTo(Limits::kSmoothness)),
             number(&ObjectSettings::smoothness, Limits::kSmoothness)},
            {QStringLiteral("level"), QStringLiteral("a number %1").arg(fromTo(Limits::kLevel)),
             number(&ObjectSettings::level, Limits::kLevel)},
            {QStringLiteral("coverage"), yes, truth(&ObjectSettings::scaleByCoverage)},
            {QStringLiteral("cutout"), yes, truth(&ObjectSettings::cutOut)},
            {QStringLiteral("hidden"), yes, truth(&ObjectSettings::hidden)},
            {QStringLiteral("tilt"),
             QStringLiteral("two numbers of degrees %1 such as 30,-10").arg(fromTo(Limits::kTilt)), takeTilt},
            {QStringLiteral("rim"),
             QStringLiteral("a bevel %1 such as 3, and a height %2 such as 3,0.8")
                 .arg(fromTo(Limits::kRimBevel), fromTo(Limits::kRimHeight)),
             takeRim},
            {QStringLiteral("relief"), QStringLiteral("a number %1 such as -0.5").arg(fromTo(Limits::kRelief)),
             number(&ObjectSettings::relief, Limits::kRelief)},
            {QStringLiteral("role"), QStringLiteral("crease, ridge or object"), takeRole},
        };
    }();
    return table;
}

const ObjectWord* find(const QString& key)
{
    for (const ObjectWord& word : objectWords())
        if (word.key.compare(key.trimmed(), Qt::CaseInsensitive) == 0)
            return &word;
    return nullptr;
}

} // namespace

bool isObjectWord(const QString& key)
{
    return find(key) != nullptr;
}

UT_Result<void> takeObjectWord(ObjectSettings& object, const QString& word)
{
    const auto equals = word.indexOf(u'=');
    const ObjectWord* const known = find(equals < 0 ? word : word.left(equals));
    if (!known)
        return UT_Error{
            QStringLiteral("an object has bevel=, elevation=, smoothness=, level=, tilt=, rim=, relief=, role=, "
                           "coverage, cutout and hidden, but no \"%1\"")
                .arg(word)};
    const QString value = equals < 0 ? QString() : word.mid(equals + 1).trimmed();
    if (!known->take(object, value))
        return wrongValue(known->key, known->expected, value);
    return {};
}

UT_Result<void> takeObjectWords(ObjectWishes& wishes, const QString& words)
{
    const QStringList parts = words.split(u':');
    const QString meant = parts.first().trimmed();
    bool isNumber = false;
    const int number = meant.toInt(&isNumber);
    if (parts.size() < 2 || meant.isEmpty() || (isNumber && number < 1))
        return UT_Error{QStringLiteral("expected an object's number or name (or all) and what to set, such as "
                                       "2:bevel=60:elevation=0.5, head:bevel=60 or 'eye*:cutout', not \"%1\"")
                            .arg(words)};
    ObjectSettings said;
    for (const QString& part : parts.sliced(1))
        if (UT_Result<void> taken = takeObjectWord(said, part); !taken)
            return taken;
    if (meant == u"all")
        wishes.allObjects = merged(said, wishes.allObjects);
    else if (isNumber)
        wishes.objects[number] = merged(said, wishes.objects[number]);
    else
        wishes.namedObjects.emplace_back(meant, said);
    return {};
}

QString objectWords(const ObjectSettings& object)
{
    const auto text = [](double value) { return QString::number(value, 'g', QLocale::FloatingPointShortest); };
    QStringList words;
    if (object.bevel)
        words << QStringLiteral("bevel=%1").arg(text(*object.bevel));
    if (object.elevation)
        words << QStringLiteral("elevation=%1").arg(text(*object.elevation));
    if (object.smoothness)
        words << QStringLiteral("smoothness=%1").arg(text(*object.smoothness));
    if (object.tilt)
        words << QStringLiteral("tilt=%1,%2").arg(text(object.tilt->x), text(object.tilt->y));
    if (object.rim)
        words << QStringLiteral("rim=%1,%2").arg(text(object.rim->bevel), text(object.rim->height));
    return words.join(u':');
}

const QStringList& objectChoiceWords()
{
    static const QStringList words{QStringLiteral("auto"), QStringLiteral("layers"), QStringLiteral("groups"),
                                   QStringLiteral("shapes"), QStringLiteral("one")};
    return words;
}

const QStringList& formShapeWords()
{
    static const QStringList words{QStringLiteral("auto"), QStringLiteral("rim"), QStringLiteral("pillow"),
                                   QStringLiteral("off")};
    return words;
}
