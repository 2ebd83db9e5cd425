// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// References to elements.
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"

#include "QuarvelSceneCore/attributes/AT_AttrVisitor.h"
#include "QuarvelSceneCore/attributes/AT_ChangeCmd.h"

#include <QCoreApplication>
#include <QDomElement>

AT_DrawingAttr::AT_DrawingAttr(const AT_AttrMeta& meta, AT_Attr* parent) : AT_Attr(meta, parent) {}

AT_DrawingAttr::~AT_DrawingAttr() = default;

bool AT_DrawingAttr::setElementName(const QString& name)
{
    return setState(State{name, _state.exposures});
}

bool AT_DrawingAttr::setExposures(const AT_ExposureSheet& exposures)
{
    return setState(State{_state.element, exposures});
}

void AT_DrawingAttr::accept(AT_AttrVisitor& visitor)
{
    visitor.visitDrawing(*this);
}

bool AT_DrawingAttr::parseXml(const QDomElement& element, QStringList* warnings)
{
    const State before = _state;
    _state.exposures = AT_ExposureSheet();
    const bool understood = AT_Attr::parseXml(element, warnings);
    if (_state != before)
        tell();
    return understood;
}

QString AT_DrawingAttr::displayText(double frame) const
{
    const QString shown = drawing(frame);
    return shown.isEmpty() ? _state.element : _state.element + QStringLiteral(": ") + shown;
}

bool AT_DrawingAttr::parseText(const QString& text, bool apply)
{
    return !apply || setElementName(text);
}

bool AT_DrawingAttr::equals(const AT_Attr& other) const
{
    return isSameClass(other) && static_cast<const AT_DrawingAttr&>(other)._state == _state;
}

CO_Command* AT_DrawingAttr::createCopyCmd(const AT_Attr& other)
{
    if (!isSameClass(other) || equals(other))
        return nullptr;
    return new AT_ChangeCmd<AT_DrawingAttr, State>(
        *this, changeName(), [](AT_DrawingAttr& attr, const State& state) { attr.setState(state); }, _state,
        static_cast<const AT_DrawingAttr&>(other)._state, QString());
}

void AT_DrawingAttr::writeXmlAttributes(PO_XmlWriter& writer) const
{
    writer.attribute(kPIO_attributeValue, _state.element);
    AT_Attr::writeXmlAttributes(writer);
}

void AT_DrawingAttr::writeXmlSubnodes(PO_XmlWriter& writer) const
{
    _state.exposures.writeXml(writer);
    AT_Attr::writeXmlSubnodes(writer);
}

AT_Attr::Parsed AT_DrawingAttr::parseXmlAttribute(const QString& name, const QString& value, QStringList* warnings)
{
    if (name != kPIO_attributeValue)
        return AT_Attr::parseXmlAttribute(name, value, warnings);
    _state.element = value;
    return Parsed::YES;
}

AT_Attr::Parsed AT_DrawingAttr::parseXmlSubnode(const QDomElement& element, QStringList* warnings)
{
    if (element.tagName() != AT_ExposureSheet::kElementName)
        return AT_Attr::parseXmlSubnode(element, warnings);
    const AT_ExposureSheet::Parsed parsed = _state.exposures.parseExposure(element);
    if (parsed == AT_ExposureSheet::Parsed::YES)
        return Parsed::YES;
    const char* text =
        parsed == AT_ExposureSheet::Parsed::PARTLY
            ? QT_TRANSLATE_NOOP("AT_Attr",
                                "parts of the exposure at frame \"%1\" are not known here and kept as they are")
            : QT_TRANSLATE_NOOP("AT_Attr", "an exposure (frame \"%1\") cannot be read and is left out");
    warn(warnings, QCoreApplication::translate("AT_Attr", text).arg(element.attribute(QStringLiteral("frame"))));
    return Parsed::REFUSED;
}

bool AT_DrawingAttr::setState(const State& state)
{
    if (state == _state)
        return false;
    _state = state;
    tell();
    return true;
}
