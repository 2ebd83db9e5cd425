// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Texts.
#include "QuarvelSceneCore/attributes/AT_StringAttr.h"

#include "QuarvelSceneCore/attributes/AT_AttrVisitor.h"
#include "QuarvelSceneCore/attributes/AT_ChangeCmd.h"

AT_StringAttr::AT_StringAttr(const AT_AttrMeta& meta, const QString& defaultValue, bool multiline, bool filePath,
                             AT_Attr* parent)
    : AT_SimpleAttr(meta, parent), _localValue(defaultValue), _multiline(multiline), _filePath(filePath)
{}

AT_StringAttr::~AT_StringAttr() = default;

bool AT_StringAttr::setLocalValue(const QString& value)
{
    if (value == _localValue)
        return false;
    _localValue = value;
    tell();
    return true;
}

CO_Command* AT_StringAttr::setValueCmd(double, const QString& value)
{
    if (value == _localValue)
        return nullptr;
    return new AT_ChangeCmd<AT_StringAttr, QString>(
        *this, changeName(), [](AT_StringAttr& attr, const QString& state) { attr.setLocalValue(state); }, _localValue,
        value, kPIO_attributeValue);
}

bool AT_StringAttr::isLinkable() const
{
    return false;
}

void AT_StringAttr::accept(AT_AttrVisitor& visitor)
{
    visitor.visitString(*this);
}

QString AT_StringAttr::displayText(double) const
{
    return _localValue;
}

bool AT_StringAttr::parseText(const QString& text, bool apply)
{
    return !apply || setLocalValue(text);
}

bool AT_StringAttr::equals(const AT_Attr& other) const
{
    return isSameClass(other) && static_cast<const AT_StringAttr&>(other)._localValue == _localValue;
}

CO_Command* AT_StringAttr::createCopyCmd(const AT_Attr& other)
{
    return isSameClass(other) ? setValueCmd(0.0, static_cast<const AT_StringAttr&>(other)._localValue) : nullptr;
}

std::optional<double> AT_StringAttr::scalarValue(double) const
{
    return std::nullopt;
}

QString AT_StringAttr::localValueXml() const
{
    return _localValue;
}

bool AT_StringAttr::parseLocalValueXml(const QString& text, QStringList*)
{
    setLocalValue(text);
    return true;
}
