// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Integers. The base class computes in doubles, which hold every int exactly.
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"

#include "QuarvelPersistentObj/PO_XmlText.h"
#include "QuarvelSceneCore/attributes/AT_AttrVisitor.h"

#include <QCoreApplication>

#include <cmath>

AT_IntAttr::AT_IntAttr(const AT_AttrMeta& meta, AT_Attr* parent, Linkable linkable, int defaultValue, int lower,
                       int upper)
    : AT_AnimatableAttr(meta, parent, linkable, defaultValue, lower, upper)
{}

AT_IntAttr::~AT_IntAttr() = default;

bool AT_IntAttr::setLocalValue(int value)
{
    return setLocalNumber(value);
}

CO_Command* AT_IntAttr::setValueCmd(double frame, int value)
{
    return setNumberCmd(frame, value);
}

void AT_IntAttr::accept(AT_AttrVisitor& visitor)
{
    visitor.visitInt(*this);
}

QString AT_IntAttr::displayText(double frame) const
{
    return QString::number(value(frame));
}

bool AT_IntAttr::parseText(const QString& text, bool apply)
{
    const std::optional<int> number = PO_parseInt(text.trimmed());
    if (!number || held(*number) != *number)
        return false;
    return !apply || setLocalNumber(*number);
}

std::optional<double> AT_IntAttr::scalarValue(double frame) const
{
    return value(frame);
}

QString AT_IntAttr::localValueXml() const
{
    return QString::number(localValue());
}

bool AT_IntAttr::parseLocalValueXml(const QString& text, QStringList* warnings)
{
    const std::optional<int> number = PO_parseInt(text);
    if (!number)
        return false;
    if (held(*number) != *number)
        warn(warnings, QCoreApplication::translate("AT_Attr", "%1 is outside of the limits; %2 is taken")
                           .arg(text, PO_formatDouble(held(*number))));
    setLocalNumber(*number);
    return true;
}

int AT_IntAttr::toInt(double value)
{
    // The limits are integers, so rounding a clamped value stays within them.
    return static_cast<int>(std::round(value));
}
