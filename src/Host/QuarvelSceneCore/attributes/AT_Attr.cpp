// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What all attributes share: names, reading and writing XML, unknown XML.
#include "QuarvelSceneCore/attributes/AT_Attr.h"

#include "QuarvelPersistentObj/PO_XmlText.h"

#include <QCoreApplication>
#include <QDomElement>

namespace {

// The names of an element's XML attributes, sorted, because the tree's own order differs from run to run.
QStringList sortedNames(const QDomElement& element)
{
    QStringList names;
    const QDomNamedNodeMap attributes = element.attributes();
    for (int i = 0; i < attributes.count(); ++i)
        names.append(attributes.item(i).nodeName());
    names.sort();
    return names;
}

} // namespace

AT_Attr::AT_Attr(const AT_AttrMeta& meta, AT_Attr* parent) : _meta(meta), _parent(parent) {}

AT_Attr::~AT_Attr() = default;

QString AT_Attr::label() const
{
    return QCoreApplication::translate("AT_AttrMeta", _meta.label().toUtf8().constData());
}

void AT_Attr::copyTypeDescriptor(AT_TypeDescriptor& target) const
{
    target.type = typeid(*this);
}

bool AT_Attr::parseXml(const QDomElement& element, QStringList* warnings)
{
    _unknown.clear();
    bool understood = true;
    for (const QString& name : sortedNames(element)) {
        const QString written = element.attribute(name);
        const Parsed parsed = parseXmlAttribute(name, PO_unescape(written), warnings);
        understood = understood && parsed == Parsed::YES;
        if (parsed != Parsed::UNKNOWN)
            continue;
        _unknown.addAttribute(name, written);
        warn(warnings, QCoreApplication::translate("AT_Attr", "\"%1\" is not known here and kept as it is").arg(name));
    }
    for (QDomElement inner = element.firstChildElement(); !inner.isNull(); inner = inner.nextSiblingElement()) {
        const Parsed parsed = parseXmlSubnode(inner, warnings);
        understood = understood && parsed == Parsed::YES;
        if (parsed != Parsed::UNKNOWN)
            continue;
        _unknown.addElement(inner);
        warn(warnings, QCoreApplication::translate("AT_Attr", "the element \"%1\" is not known here and kept as it is")
                           .arg(inner.tagName()));
    }
    return understood;
}

AT_AttrLink* AT_Attr::link() const
{
    return nullptr;
}

void AT_Attr::refreshReaders(const AT_LinkScope&) const {}

bool AT_Attr::parseString(const QString& text, const QString& label, const QString& keyword)
{
    const QString trimmed = text.trimmed();
    return trimmed.compare(label, Qt::CaseInsensitive) == 0 || trimmed.compare(keyword, Qt::CaseInsensitive) == 0;
}

QString AT_Attr::getXmlElementName() const
{
    return keyword();
}

void AT_Attr::writeXmlAttributes(PO_XmlWriter& writer) const
{
    _unknown.writeAttributes(writer);
}

void AT_Attr::writeXmlSubnodes(PO_XmlWriter& writer) const
{
    _unknown.writeElements(writer);
}

AT_Attr::Parsed AT_Attr::parseXmlAttribute(const QString&, const QString&, QStringList*)
{
    return Parsed::UNKNOWN;
}

AT_Attr::Parsed AT_Attr::parseXmlSubnode(const QDomElement&, QStringList*)
{
    return Parsed::UNKNOWN;
}

void AT_Attr::warn(QStringList* warnings, const QString& text) const
{
    if (warnings)
        warnings->append(keyword() + QStringLiteral(": ") + text);
}

QString AT_Attr::changeName() const
{
    return QCoreApplication::translate("AT_Attr", "Change %1").arg(label());
}

bool AT_Attr::isSameClass(const AT_Attr& other) const
{
    return typeid(*this) == typeid(other);
}
