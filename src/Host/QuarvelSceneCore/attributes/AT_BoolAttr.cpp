// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Truth values.
#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"

#include "QuarvelPersistentObj/PO_XmlText.h"
#include "QuarvelSceneCore/attributes/AT_AttrVisitor.h"
#include "QuarvelSceneCore/attributes/AT_ChangeCmd.h"

#include <QCoreApplication>

AT_BoolAttr::AT_BoolAttr(const AT_AttrMeta& meta, bool defaultValue, AT_Attr* parent)
    : AT_SimpleAttr(meta, parent), _localValue(defaultValue)
{}

AT_BoolAttr::~AT_BoolAttr() = default;

bool AT_BoolAttr::setLocalValue(bool value)
{
    if (value == _localValue)
        return false;
    _localValue = value;
    tell();
    return true;
}

bool AT_BoolAttr::value(double frame) const
{
    const std::optional<double> driven = surrogateValue(frame);
    return driven ? *driven != 0.0 : _localValue;
}

CO_Command* AT_BoolAttr::setValueCmd(double, bool value)
{
    if (value == _localValue)
        return nullptr;
    return new AT_ChangeCmd<AT_BoolAttr, bool>(
        *this, changeName(), [](AT_BoolAttr& attr, const bool& state) { attr.setLocalValue(state); }, _localValue,
        value, kPIO_attributeValue);
}

std::optional<bool> AT_BoolAttr::meaningOf(const QString& word)
{
    static const QStringList yes = {QStringLiteral("true"), QStringLiteral("on"), QStringLiteral("yes"),
                                    QStringLiteral("1")};
    static const QStringList no = {QStringLiteral("false"), QStringLiteral("off"), QStringLiteral("no"),
                                   QStringLiteral("0")};
    if (yes.contains(word, Qt::CaseInsensitive))
        return true;
    if (no.contains(word, Qt::CaseInsensitive))
        return false;
    return std::nullopt;
}

void AT_BoolAttr::accept(AT_AttrVisitor& visitor)
{
    visitor.visitBool(*this);
}

QString AT_BoolAttr::displayText(double frame) const
{
    return value(frame) ? QCoreApplication::translate("AT_BoolAttr", "On")
                        : QCoreApplication::translate("AT_BoolAttr", "Off");
}

bool AT_BoolAttr::parseText(const QString& text, bool apply)
{
    const std::optional<bool> meant = meaningOf(text.trimmed());
    return meant && (!apply || setLocalValue(*meant));
}

bool AT_BoolAttr::equals(const AT_Attr& other) const
{
    return isSameClass(other) && static_cast<const AT_BoolAttr&>(other).value() == value();
}

CO_Command* AT_BoolAttr::createCopyCmd(const AT_Attr& other)
{
    return isSameClass(other) ? setValueCmd(0.0, static_cast<const AT_BoolAttr&>(other).value()) : nullptr;
}

std::optional<double> AT_BoolAttr::scalarValue(double frame) const
{
    return value(frame) ? 1.0 : 0.0;
}

QString AT_BoolAttr::localValueXml() const
{
    return PO_formatBool(_localValue);
}

bool AT_BoolAttr::parseLocalValueXml(const QString& text, QStringList*)
{
    const std::optional<bool> value = PO_parseBool(text);
    if (value)
        setLocalValue(*value);
    return value.has_value();
}
