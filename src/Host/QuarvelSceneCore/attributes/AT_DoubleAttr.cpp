// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Numbers.
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"

#include "QuarvelPersistentObj/PO_XmlText.h"
#include "QuarvelSceneCore/attributes/AT_AttrVisitor.h"

#include <QCoreApplication>

#include <cmath>

AT_DoubleAttr::AT_DoubleAttr(const AT_DoubleAttrMeta& meta, AT_Attr* parent, Linkable linkable, double defaultValue,
                             const QString& unit)
    : AT_AnimatableAttr(meta, parent, linkable, defaultValue, meta.container().lower, meta.container().upper)
    , _doubleMeta(meta)
    , _unit(unit)
{}

AT_DoubleAttr::~AT_DoubleAttr() = default;

bool AT_DoubleAttr::setLocalValue(double value)
{
    return setLocalNumber(value);
}

CO_Command* AT_DoubleAttr::setValueCmd(double frame, double value)
{
    return setNumberCmd(frame, value);
}

void AT_DoubleAttr::accept(AT_AttrVisitor& visitor)
{
    visitor.visitDouble(*this);
}

QString AT_DoubleAttr::displayText(double frame) const
{
    const QString number = PO_formatDouble(value(frame));
    return _unit.isEmpty() ? number : number + QLatin1Char(' ') + _unit;
}

bool AT_DoubleAttr::parseText(const QString& text, bool apply)
{
    QString digits = text.trimmed();
    if (!_unit.isEmpty() && digits.endsWith(_unit))
        digits = digits.chopped(_unit.size()).trimmed();
    const std::optional<double> number = PO_parseDouble(digits);
    if (!number || !std::isfinite(*number) || held(*number) != *number)
        return false;
    return !apply || setLocalNumber(*number);
}

QString AT_DoubleAttr::localValueXml() const
{
    return PO_formatDouble(localNumber());
}

bool AT_DoubleAttr::parseLocalValueXml(const QString& text, QStringList* warnings)
{
    const std::optional<double> number = PO_parseDouble(text);
    if (!number || !std::isfinite(*number))
        return false;
    if (held(*number) != *number)
        warn(warnings, QCoreApplication::translate("AT_Attr", "%1 is outside of the limits; %2 is taken")
                           .arg(text, PO_formatDouble(held(*number))));
    setLocalNumber(*number);
    return true;
}
