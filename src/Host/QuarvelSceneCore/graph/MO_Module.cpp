// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The module: its defaults, and how it is written and read. interfaces/MO_ModuleInRender.cpp has its defaults in a
// render.
#include "QuarvelSceneCore/graph/MO_Module.h"

#include "QuarvelPersistentObj/PO_XmlReading.h"
#include "QuarvelPersistentObj/PO_XmlText.h"
#include "QuarvelSceneCore/attributes/AT_Attr.h"
#include "QuarvelSceneCore/graph/MO_AbstractModuleVisitor.h"
#include "QuarvelSceneCore/graph/MO_PortContext.h"

#include <QCoreApplication>

#include <cmath>

namespace {

const QString kAttributeType = QStringLiteral("type");
const QString kAttributeName = QStringLiteral("name");
const QString kAttributeEnabled = QStringLiteral("enabled");
const QString kAttributeMode = QStringLiteral("mode");
const QString kAttributePlace = QStringLiteral("place");
const QString kElementAttrs = QStringLiteral("attrs");

QString placeText(const MO_GraphPlace& place)
{
    return QStringLiteral("%1 %2").arg(PO_formatDouble(place.x), PO_formatDouble(place.y));
}

std::optional<MO_GraphPlace> parsePlace(const QString& text)
{
    const QStringList numbers = text.split(u' ');
    if (numbers.size() != 2)
        return std::nullopt;
    const auto x = PO_parseDouble(numbers[0]);
    const auto y = PO_parseDouble(numbers[1]);
    // A comparison with NaN is false.
    const auto isInside = [](const std::optional<double>& value) {
        return value && std::abs(*value) <= MO_GraphPlace::kLimit;
    };
    return isInside(x) && isInside(y) ? std::optional(MO_GraphPlace{*x, *y}) : std::nullopt;
}

} // namespace

MO_XmlEditable::~MO_XmlEditable() = default;

QDomElement MO_XmlEditable::obtainEditorLayout()
{
    return {};
}

MO_Module::MO_Module(unsigned outPorts)
{
    for (unsigned i = 0; i < outPorts; ++i)
        addOutImagePort();
}

MO_Module::~MO_Module() = default;

void MO_Module::accept(MO_AbstractModuleVisitor& visitor)
{
    visitor.visit(*this);
}

Math::Box2di MO_Module::computeInputRect(const MO_PortContext&, int, const Math::Box2di& rect)
{
    return rect;
}

MO_CompositeType::CompositeOrder MO_Module::compositeOrder(const MO_BaseContext&)
{
    return MO_CompositeType::LAST_PORT_FIRST;
}

bool MO_Module::isSceneOutput() const
{
    return false;
}

void MO_Module::shareFiles(const MO_Module&, MO_FileSharing) {}

bool MO_Module::hasFiles() const
{
    return false;
}

QString MO_Module::getXmlElementName() const
{
    return QStringLiteral("module");
}

void MO_Module::writeXmlAttributes(PO_XmlWriter& writer) const
{
    writer.attribute(kAttributeType, keyword());
    writer.attribute(kAttributeName, instanceName());
    writer.attribute(kAttributeEnabled, enabled());
    if (mode() != 0)
        writer.attribute(kAttributeMode, mode());
    if (_graphPlace)
        writer.attribute(kAttributePlace, placeText(*_graphPlace));
    _unknown.writeAttributes(writer);
}

void MO_Module::writeXmlSubnodes(PO_XmlWriter& writer) const
{
    writer.startElement(kElementAttrs);
    _unknownAttrs.writeAttributes(writer);
    for (const AT_Attr* attr : attrs())
        attr->writeXml(writer);
    _unknownAttrs.writeElements(writer);
    writer.endElement();
    _unknown.writeElements(writer);
}

bool MO_Module::parseXmlAttribute(const QString&, const QString&, QStringList*)
{
    return false;
}

bool MO_Module::parseXmlSubnode(const QDomElement&, QStringList*)
{
    return false;
}

class MO_Module::Reader final : public PIO_ComponentReader
{
public:
    explicit Reader(MO_Module& module) : _module(module) {}

    bool readElement(const QDomElement& element, QStringList* warnings) override
    {
        _warnings = warnings;
        if (element.tagName() != _module.getXmlElementName() ||
            PO_attribute(element, kAttributeType) != _module.keyword()) {
            warn(
                QCoreApplication::translate("MO_Module", "The element <%1> at line %2 is not a node of the kind \"%3\"")
                    .arg(element.tagName(), QString::number(element.lineNumber()), _module.keyword()));
            return false;
        }
        _module._graphPlace.reset();
        _module._unknown.clear();
        _module._unknownAttrs.clear();
        const QDomNamedNodeMap attributes = element.attributes();
        for (int i = 0; i < attributes.count(); ++i)
            readXmlAttribute(attributes.item(i).toAttr());
        for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
            readXmlSubnode(child);
        return true;
    }

private:
    void readXmlAttribute(const QDomAttr& attribute)
    {
        const QString name = attribute.name();
        const QString value = PO_unescape(attribute.value());
        if (name == kAttributeType)
            return;
        if (name == kAttributeName)
            return _module.setInstanceName(value);
        if (name == kAttributeEnabled) {
            if (const auto enabled = PO_parseBool(value))
                return _module.setEnabled(*enabled);
        } else if (name == kAttributeMode) {
            if (const auto mode = PO_parseInt(value))
                return _module.setMode(*mode);
        } else if (name == kAttributePlace) {
            if (const auto place = parsePlace(value))
                return _module.setGraphPlace(place);
        } else if (!_module.parseXmlAttribute(name, value, _warnings)) {
            _module._unknown.addAttribute(name, attribute.value());
        } else {
            return;
        }
        warn(notUnderstood().arg(name));
    }

    void readXmlSubnode(const QDomElement& element)
    {
        if (element.tagName() == kElementAttrs)
            return readAttrs(element);
        if (_module.parseXmlSubnode(element, _warnings))
            return;
        _module._unknown.addElement(element);
        warn(notUnderstood().arg(element.tagName()));
    }

    void readAttrs(const QDomElement& element)
    {
        const QDomNamedNodeMap attributes = element.attributes();
        for (int i = 0; i < attributes.count(); ++i)
            _module._unknownAttrs.addAttribute(attributes.item(i).nodeName(), attributes.item(i).nodeValue());
        for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
            if (AT_Attr* attr = _module.findAttr(child.tagName())) {
                attr->parseXml(child, _warnings);
                continue;
            }
            _module._unknownAttrs.addElement(child);
            warn(notUnderstood().arg(child.tagName()));
        }
    }

    static QString notUnderstood()
    {
        return QCoreApplication::translate("MO_Module", "\"%1\" is not understood by this version of the program");
    }

    void warn(const QString& text)
    {
        if (_warnings)
            *_warnings << QStringLiteral("%1: %2").arg(_module.instanceName(), text);
    }

    MO_Module& _module;
    QStringList* _warnings = nullptr;
};

std::unique_ptr<PIO_ComponentReader> MO_Module::componentReader()
{
    return std::make_unique<Reader>(*this);
}
