// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Numbers that may change over time.
#include "QuarvelSceneCore/attributes/AT_AnimatableAttr.h"

#include "QuarvelPersistentObj/PO_XmlText.h"
#include "QuarvelSceneCore/attributes/AT_ChangeCmd.h"
#include "QuarvelSceneCore/attributes/AT_CurveKeys.h"

#include <QDomElement>

#include <algorithm>
#include <cassert>
#include <cmath>

AT_AnimatableAttr::AT_AnimatableAttr(const AT_AttrMeta& meta, AT_Attr* parent, Linkable linkable, double defaultValue,
                                     double lower, double upper)
    : AT_SimpleAttr(meta, parent), _linkable(linkable), _lower(lower), _upper(upper), _state{defaultValue, AT_Curve()}
{
    assert(lower <= upper);
    _state.local = held(defaultValue);
}

AT_AnimatableAttr::~AT_AnimatableAttr() = default;

bool AT_AnimatableAttr::setCurve(const AT_Curve& curve)
{
    return setState({_state.local, curve});
}

bool AT_AnimatableAttr::setState(const State& state)
{
    if (state == _state)
        return false;
    _state = state;
    tell();
    return true;
}

bool AT_AnimatableAttr::isLinkable() const
{
    return _linkable == LINKABLE;
}

bool AT_AnimatableAttr::equals(const AT_Attr& other) const
{
    if (!isSameClass(other))
        return false;
    const auto& number = static_cast<const AT_AnimatableAttr&>(other);
    if (surrogate() || number.surrogate())
        return scalarValue(0.0) == number.scalarValue(0.0);
    return _state == number._state;
}

CO_Command* AT_AnimatableAttr::createCopyCmd(const AT_Attr& other)
{
    if (!isSameClass(other))
        return nullptr;
    State copy = static_cast<const AT_AnimatableAttr&>(other)._state;
    copy.local = held(copy.local);
    return changeCmd(copy, QString());
}

std::optional<double> AT_AnimatableAttr::scalarValue(double frame) const
{
    return number(frame);
}

bool AT_AnimatableAttr::parseXml(const QDomElement& element, QStringList* warnings)
{
    setCurve(AT_Curve());
    return AT_SimpleAttr::parseXml(element, warnings);
}

void AT_AnimatableAttr::writeXmlSubnodes(PO_XmlWriter& writer) const
{
    _state.curve.writeXml(writer);
    AT_SimpleAttr::writeXmlSubnodes(writer);
}

bool AT_AnimatableAttr::setLocalNumber(double value)
{
    if (!std::isfinite(value) || held(value) == _state.local)
        return false;
    _state.local = held(value);
    tell();
    return true;
}

double AT_AnimatableAttr::number(double frame) const
{
    double value = _state.local;
    if (const std::optional<double> driven = surrogateValue(frame))
        value = *driven;
    else if (isAnimated())
        value = _state.curve.value(frame);
    return held(std::isnan(value) ? _state.local : value);
}

AT_AnimatableAttr::State AT_AnimatableAttr::stateWith(double frame, double value) const
{
    State after = _state;
    if (!std::isfinite(value))
        return after;
    if (isAnimated())
        AT_putValue(after.curve, frame, held(value));
    else
        after.local = held(value);
    return after;
}

CO_Command* AT_AnimatableAttr::setNumberCmd(double frame, double value)
{
    const QString subject = isAnimated() ? AT_Curve::kElementName + QLatin1Char(' ') + PO_formatDouble(frame)
                                         : QString(kPIO_attributeValue);
    return changeCmd(stateWith(frame, value), subject);
}

double AT_AnimatableAttr::held(double value) const
{
    return std::clamp(value, _lower, _upper);
}

AT_Attr::Parsed AT_AnimatableAttr::parseXmlSubnode(const QDomElement& element, QStringList* warnings)
{
    if (element.tagName() != AT_Curve::kElementName)
        return AT_SimpleAttr::parseXmlSubnode(element, warnings);
    AT_Curve curve;
    QStringList lines;
    const bool understood = curve.parseXml(element, &lines);
    for (const QString& line : lines)
        warn(warnings, line);
    setCurve(curve);
    return understood ? Parsed::YES : Parsed::REFUSED;
}

CO_Command* AT_AnimatableAttr::changeCmd(const State& after, const QString& subject)
{
    if (after == _state)
        return nullptr;
    return new AT_ChangeCmd<AT_AnimatableAttr, State>(
        *this, changeName(), [](AT_AnimatableAttr& attr, const State& state) { attr.setState(state); }, _state, after,
        subject);
}
