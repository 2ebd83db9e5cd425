// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Enumerated attributes: the parts that are independent of the enumeration's type.
#include "QuarvelSceneCore/attributes/AT_EnumAttrBase.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

AT_EnumAttrBase::AT_EnumAttrBase(const AT_AttrMeta& meta, AT_Attr* parent) : AT_SimpleAttr(meta, parent) {}

AT_EnumAttrBase::~AT_EnumAttrBase() = default;

CO_Command* AT_EnumAttrBase::setIntCmd(double, int value)
{
    return value == localInt() ? nullptr : new SetLocalValueCmd(*this, value);
}

std::optional<double> AT_EnumAttrBase::scalarValue(double frame) const
{
    return effectiveInt(frame);
}

void AT_EnumAttrBase::addValue(ValueTable& table, int value, const QString& keyword, const QString& label, bool flag)
{
    if (table.size() >= table.max_size())
        throw std::length_error("map/set too long");
    table.emplace(value, EnumValue{keyword, label, flag});
}

int AT_EnumAttrBase::toInt(double value)
{
    constexpr double kLowest = std::numeric_limits<int>::min();
    constexpr double kHighest = std::numeric_limits<int>::max();
    return static_cast<int>(std::round(std::clamp(value, kLowest, kHighest)));
}

AT_Attr::Parsed AT_EnumAttrBase::parseXmlAttribute(const QString& name, const QString& value, QStringList* warnings)
{
    // The class that knows the format's versions has read this already.
    if (name == kPIO_atributeVersion)
        return Parsed::YES;
    return AT_SimpleAttr::parseXmlAttribute(name, value, warnings);
}

AT_EnumAttrBase::SetLocalValueCmd::SetLocalValueCmd(AT_EnumAttrBase& attr, int value)
    : _attr(&attr), _name(attr.changeName()), _before(attr.localInt()), _after(value)
{}

AT_EnumAttrBase::SetLocalValueCmd::~SetLocalValueCmd() = default;

QString AT_EnumAttrBase::SetLocalValueCmd::name() const
{
    return _name;
}

void AT_EnumAttrBase::SetLocalValueCmd::execute()
{
    if (AT_EnumAttrBase* attr = _attr.get())
        attr->setLocalInt(_after);
}

void AT_EnumAttrBase::SetLocalValueCmd::undo()
{
    if (AT_EnumAttrBase* attr = _attr.get())
        attr->setLocalInt(_before);
}

bool AT_EnumAttrBase::SetLocalValueCmd::hasEffect() const
{
    return _before != _after;
}

bool AT_EnumAttrBase::SetLocalValueCmd::canMergeWith(const CO_Command& later) const
{
    const auto* other = dynamic_cast<const SetLocalValueCmd*>(&later);
    return other && _attr.get() && other->_attr.get() == _attr.get();
}

void AT_EnumAttrBase::SetLocalValueCmd::mergeWith(const CO_Command& later)
{
    _after = static_cast<const SetLocalValueCmd&>(later)._after;
}
