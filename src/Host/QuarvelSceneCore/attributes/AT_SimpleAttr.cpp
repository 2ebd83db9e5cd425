// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Attributes with one value, and their surrogates.
#include "QuarvelSceneCore/attributes/AT_SimpleAttr.h"

#include <QCoreApplication>
#include <QScopedValueRollback>

#include <cmath>

/// Passes the surrogate's notifications on to the attribute's listeners. Attributes linked in a circle would notify
/// each other for ever, so a notification that comes back meanwhile is dropped.
class AT_SimpleAttr::Relay : public XUListener
{
public:
    explicit Relay(AT_SimpleAttr& attr) : _attr(attr) {}

    void told(XUTeller&) override
    {
        if (_passingOn)
            return;
        const QScopedValueRollback rollback(_passingOn, true);
        _attr.tell();
    }

private:
    AT_SimpleAttr& _attr;
    bool _passingOn = false;
};

AT_SimpleAttr::AT_SimpleAttr(const AT_AttrMeta& meta, AT_Attr* parent)
    : AT_Attr(meta, parent), _relay(std::make_unique<Relay>(*this))
{}

AT_SimpleAttr::~AT_SimpleAttr()
{
    // A link of this attribute to itself removes itself from _readers when it is destroyed, so it must be destroyed
    // before them.
    _surrogate = UT_SharedPtr<AT_AttrSurrogate>();
}

bool AT_SimpleAttr::setSurrogate(const UT_SharedPtr<AT_AttrSurrogate>& surrogate)
{
    if (surrogate == _surrogate || (surrogate && !isLinkable()))
        return false;
    if (_surrogate)
        _surrogate->removeListener(*_relay);
    _surrogate = surrogate;
    if (_surrogate)
        _surrogate->addListener(*_relay);
    tell();
    return true;
}

AT_AttrLink* AT_SimpleAttr::link() const
{
    return dynamic_cast<AT_AttrLink*>(_surrogate.get());
}

void AT_SimpleAttr::refreshReaders(const AT_LinkScope& scope) const
{
    for (AT_AttrLink* reader : _readers)
        reader->refreshPath(scope);
}

bool AT_SimpleAttr::isLinkable() const
{
    return true;
}

bool AT_SimpleAttr::parseXml(const QDomElement& element, QStringList* warnings)
{
    setSurrogate(nullptr);
    return AT_Attr::parseXml(element, warnings);
}

void AT_SimpleAttr::writeXmlAttributes(PO_XmlWriter& writer) const
{
    writer.attribute(kPIO_attributeValue, localValueXml());
    if (const AT_AttrLink* driving = link())
        writer.attribute(kPIO_attributeLink, driving->path());
    AT_Attr::writeXmlAttributes(writer);
}

std::optional<double> AT_SimpleAttr::surrogateValue(double frame) const
{
    const auto* scalar = dynamic_cast<const AT_ScalarSimpleAttrSurrogate*>(_surrogate.get());
    if (!scalar)
        return std::nullopt;
    const std::optional<double> value = scalar->value(frame);
    return value && !std::isnan(*value) ? value : std::nullopt;
}

AT_Attr::Parsed AT_SimpleAttr::parseXmlAttribute(const QString& name, const QString& value, QStringList* warnings)
{
    if (name == kPIO_attributeValue) {
        if (parseLocalValueXml(value, warnings))
            return Parsed::YES;
        warn(warnings,
             QCoreApplication::translate("AT_Attr", "\"%1\" is not a value for it; it stays as it was").arg(value));
        return Parsed::REFUSED;
    }
    if (name == kPIO_attributeLink && isLinkable()) {
        setSurrogate(UT_makeShared<AT_AttrLink>(value));
        return Parsed::YES;
    }
    return AT_Attr::parseXmlAttribute(name, value, warnings);
}
