// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A light's attributes. None of them can be linked: a link names a node, and a light is not a node.
#include "QuarvelSceneCore/graph/MO_Light.h"

#include <QCoreApplication>
#include <QDomElement>

#include <algorithm>

namespace {

AT_DoubleAttrMeta numberMeta(const char* key, const char* label, double lower, double upper, double sliderLower,
                             double sliderUpper, double step)
{
    return {QLatin1String(key),
            QLatin1String(label),
            QStringLiteral("DBL_STEP_LIGHT"),
            lower,
            upper,
            sliderLower,
            sliderUpper,
            step};
}

const AT_AttrMeta kName(QStringLiteral("Name"), QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Name")));
const AT_AttrMeta kKind(QStringLiteral("Kind"), QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Kind")));
const AT_AttrMeta kOn(QStringLiteral("On"), QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "On")));
const AT_AttrMeta kSolo(QStringLiteral("Solo"), QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Solo")));

const AT_DoubleAttrMeta kX = numberMeta("X", QT_TRANSLATE_NOOP("AT_AttrMeta", "Across"), -8, 8, -2, 2, 0.05);
const AT_DoubleAttrMeta kY = numberMeta("Y", QT_TRANSLATE_NOOP("AT_AttrMeta", "Up"), -8, 8, -2, 2, 0.05);
const AT_DoubleAttrMeta kHeight =
    numberMeta("Height", QT_TRANSLATE_NOOP("AT_AttrMeta", "Height"), 0.05, 4, 0.05, 4, 0.05);
const AT_DoubleAttrMeta kReach =
    numberMeta("Reach", QT_TRANSLATE_NOOP("AT_AttrMeta", "Reach"), 0.05, 16, 0.05, 4, 0.05);
const AT_DoubleAttrMeta kRed = numberMeta("Red", QT_TRANSLATE_NOOP("AT_AttrMeta", "Red"), 0, 255, 0, 255, 1);
const AT_DoubleAttrMeta kGreen = numberMeta("Green", QT_TRANSLATE_NOOP("AT_AttrMeta", "Green"), 0, 255, 0, 255, 1);
const AT_DoubleAttrMeta kBlue = numberMeta("Blue", QT_TRANSLATE_NOOP("AT_AttrMeta", "Blue"), 0, 255, 0, 255, 1);
const AT_DoubleAttrMeta kIntensity =
    numberMeta("Intensity", QT_TRANSLATE_NOOP("AT_AttrMeta", "Intensity"), 0, 4, 0, 4, 0.05);

AT_DoubleAttr numberAttr(const AT_DoubleAttrMeta& meta, double value)
{
    return {meta, nullptr, AT_DoubleAttr::NOT_LINKABLE, value, QString()};
}

} // namespace

MO_LightKindAttr::~MO_LightKindAttr() = default;

void MO_LightKindAttr::fillValueTable(ValueTable& table) const
{
    const auto add = [&table](MO_LightKind value, const char* keyword, const char* label) {
        addValue(table, static_cast<int>(value), QLatin1String(keyword),
                 QCoreApplication::translate("MO_LightKindAttr", label), false);
    };
    add(MO_LightKind::DIRECTIONAL, "DIRECTIONAL", QT_TRANSLATE_NOOP("MO_LightKindAttr", "Directional"));
    add(MO_LightKind::POINT, "POINT", QT_TRANSLATE_NOOP("MO_LightKindAttr", "Point"));
}

MO_Light::MO_Light(const MO_LightValues& values)
    : _name(kName, values.name, false, false)
    , _kind(kKind)
    , _on(kOn, values.on)
    , _solo(kSolo, values.solo)
    , _numbers{numberAttr(kX, values.x),           numberAttr(kY, values.y),
               numberAttr(kHeight, values.height), numberAttr(kReach, values.reach),
               numberAttr(kRed, values.red),       numberAttr(kGreen, values.green),
               numberAttr(kBlue, values.blue),     numberAttr(kIntensity, values.intensity)}
{
    _kind.setLocalValue(values.kind);
    for (AT_Attr* const attr : attrs())
        attr->addListener(*this);
}

MO_Light::~MO_Light() = default;

std::vector<AT_Attr*> MO_Light::attrs()
{
    std::vector<AT_Attr*> all{&_name, &_kind, &_on, &_solo};
    for (AT_DoubleAttr& number : _numbers)
        all.push_back(&number);
    return all;
}

std::vector<const AT_Attr*> MO_Light::attrs() const
{
    std::vector<const AT_Attr*> all{&_name, &_kind, &_on, &_solo};
    for (const AT_DoubleAttr& number : _numbers)
        all.push_back(&number);
    return all;
}

AT_Attr* MO_Light::findAttr(const QString& keyword)
{
    const std::vector<AT_Attr*> all = attrs();
    const auto found = std::ranges::find(all, keyword, &AT_Attr::keyword);
    return found == all.end() ? nullptr : *found;
}

MO_LightValues MO_Light::values(double frame) const
{
    return {.name = _name.localValue(),
            .kind = _kind.localValue(),
            .on = _on.localValue(),
            .solo = _solo.localValue(),
            .x = _numbers[X].value(frame),
            .y = _numbers[Y].value(frame),
            .height = _numbers[HEIGHT].value(frame),
            .reach = _numbers[REACH].value(frame),
            .red = _numbers[RED].value(frame),
            .green = _numbers[GREEN].value(frame),
            .blue = _numbers[BLUE].value(frame),
            .intensity = _numbers[INTENSITY].value(frame)};
}

void MO_Light::readXml(const QDomElement& element, QStringList* warnings)
{
    _unknown.clear();
    for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
        if (AT_Attr* const attr = findAttr(child.tagName())) {
            attr->parseXml(child, warnings);
            continue;
        }
        _unknown.addElement(child);
        if (warnings)
            *warnings << QCoreApplication::translate("MO_Scene",
                                                     "<%1> is not understood by this version of the program")
                             .arg(child.tagName());
    }
}

QString MO_Light::getXmlElementName() const
{
    return QStringLiteral("light");
}

void MO_Light::writeXmlSubnodes(PO_XmlWriter& writer) const
{
    for (const AT_Attr* const attr : attrs())
        attr->writeXml(writer);
    _unknown.writeElements(writer);
}

void MO_Light::told(XUTeller&)
{
    tell();
}
