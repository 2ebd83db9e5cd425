// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Curves in files.
#include "QuarvelPersistentObj/PIO_XmlWritable.h"
#include "QuarvelPersistentObj/PO_XmlReading.h"
#include "QuarvelSceneCore/attributes/AT_Curve.h"

#include <QCoreApplication>

#include <array>

namespace {

using Key = AT_Curve::Key;
using Interpolation = AT_Curve::Interpolation;

constexpr QLatin1String kKeyElement{"key"};
constexpr QLatin1String kFrame{"frame"};
constexpr QLatin1String kType{"type"};
constexpr QLatin1String kInFrame{"inFrame"};
constexpr QLatin1String kInValue{"inVal"};
constexpr QLatin1String kOutFrame{"outFrame"};
constexpr QLatin1String kOutValue{"outVal"};

// The names of the interpolations, in the order of the enumeration.
constexpr std::array<QLatin1String, 3> kTypeNames = {QLatin1String("hold"), QLatin1String("linear"),
                                                     QLatin1String("bezier")};

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(AT_Curve)
};

void warn(QStringList* warnings, const QString& text)
{
    if (warnings)
        warnings->append(text);
}

void writeHandle(PO_XmlWriter& writer, QLatin1String frameName, QLatin1String valueName, const AT_Curve::Handle& handle)
{
    if (handle == AT_Curve::Handle())
        return;
    writer.attribute(frameName, handle.frame);
    writer.attribute(valueName, handle.value);
}

void writeKey(PO_XmlWriter& writer, const Key& key)
{
    writer.startElement(kKeyElement);
    writer.attribute(kFrame, key.frame);
    writer.attribute(kPIO_attributeValue, key.value);
    writer.attribute(kType, key.otherType.isEmpty() ? QString(kTypeNames[static_cast<std::size_t>(key.interpolation)])
                                                    : key.otherType);
    writeHandle(writer, kInFrame, kInValue, key.in);
    writeHandle(writer, kOutFrame, kOutValue, key.out);
    key.unknown.writeAttributes(writer);
    key.unknown.writeElements(writer);
    writer.endElement();
}

bool isKnownName(const QString& name)
{
    return name == kFrame || name == kPIO_attributeValue || name == kType || name == kInFrame || name == kInValue ||
           name == kOutFrame || name == kOutValue;
}

// Keeps the key's unknown XML. @return whether there was any
bool keepUnknown(const QDomElement& element, Key& key)
{
    const QDomNamedNodeMap attributes = element.attributes();
    for (int i = 0; i < attributes.count(); ++i) {
        const QString name = attributes.item(i).nodeName();
        if (!isKnownName(name))
            key.unknown.addAttribute(name, attributes.item(i).nodeValue());
    }
    for (QDomElement inner = element.firstChildElement(); !inner.isNull(); inner = inner.nextSiblingElement())
        key.unknown.addElement(inner);
    return !key.unknown.isEmpty();
}

// Reads a type. @return whether it is known
bool readType(const QDomElement& element, Key& key)
{
    const QString name = PO_attribute(element, kType);
    for (std::size_t i = 0; i < kTypeNames.size(); ++i)
        if (name == kTypeNames[i]) {
            key.interpolation = static_cast<Interpolation>(i);
            return true;
        }
    key.otherType = name;
    return name.isEmpty();
}

// Reads an optional number.
bool readNumber(const QDomElement& element, QLatin1String name, double& target)
{
    if (!element.hasAttribute(name))
        return true;
    const std::optional<double> number = PO_doubleAttribute(element, name);
    target = number.value_or(target);
    return number.has_value();
}

} // namespace

void AT_Curve::writeXml(PO_XmlWriter& writer) const
{
    if (isEmpty() && _unknown.isEmpty())
        return;
    writer.startElement(kElementName);
    _unknown.writeAttributes(writer);
    for (const Key& key : _keys)
        writeKey(writer, key);
    _unknown.writeElements(writer);
    writer.endElement();
}

bool AT_Curve::parseXml(const QDomElement& element, QStringList* warnings)
{
    *this = AT_Curve();
    bool understood = true;
    const QDomNamedNodeMap attributes = element.attributes();
    for (int i = 0; i < attributes.count(); ++i)
        _unknown.addAttribute(attributes.item(i).nodeName(), attributes.item(i).nodeValue());
    for (QDomElement inner = element.firstChildElement(); !inner.isNull(); inner = inner.nextSiblingElement()) {
        if (inner.tagName() == kKeyElement)
            understood = parseKey(inner, warnings) && understood;
        else
            _unknown.addElement(inner);
    }
    if (!_unknown.isEmpty())
        warn(warnings, Texts::tr("parts of the curve are not known here and kept as they are"));
    return understood && _unknown.isEmpty();
}

bool AT_Curve::parseKey(const QDomElement& element, QStringList* warnings)
{
    const std::optional<double> frame = PO_doubleAttribute(element, kFrame);
    const std::optional<double> value = PO_doubleAttribute(element, kPIO_attributeValue);
    Key key{frame.value_or(0.0), value.value_or(0.0), Interpolation::LINEAR, {}, {}, {}};
    const bool readable =
        frame && value && readNumber(element, kInFrame, key.in.frame) && readNumber(element, kInValue, key.in.value) &&
        readNumber(element, kOutFrame, key.out.frame) && readNumber(element, kOutValue, key.out.value);
    const bool typeKnown = readType(element, key);
    const bool anyUnknown = keepUnknown(element, key) || !typeKnown;
    if (!readable || !setKey(key)) {
        warn(warnings, Texts::tr("a key of the curve (frame \"%1\") cannot be read and is left out")
                           .arg(element.attribute(kFrame)));
        return false;
    }
    if (anyUnknown)
        warn(warnings, Texts::tr("parts of the key at frame %1 are not known here and kept as they are")
                           .arg(element.attribute(kFrame)));
    return !anyUnknown;
}
