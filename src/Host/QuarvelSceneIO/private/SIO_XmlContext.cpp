// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Makes messages about places in a file, and keeps unknown parts.
#include "QuarvelSceneIO/private/SIO_XmlContext.h"

#include "QuarvelPersistentObj/PIO_XmlWritable.h"
#include "QuarvelPersistentObj/PO_XmlReading.h"

#include <QBuffer>
#include <QCoreApplication>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SIO_XmlContext)
};

} // namespace

UT_Error SIO_XmlContext::error(const QDomElement& element, const QString& reason) const
{
    return {placeOf(element) + QStringLiteral(": ") + reason};
}

QString SIO_XmlContext::placeOf(const QDomElement& element) const
{
    return Texts::tr("%1, line %2").arg(_file, QString::number(element.lineNumber()));
}

void SIO_XmlContext::warn(const QDomElement& element, const QString& reason) const
{
    if (_warnings)
        _warnings->add(placeOf(element), reason);
}

void SIO_XmlContext::keepOtherAttributes(const QDomElement& element, const QStringList& understood,
                                         PO_UnknownXml& unknown) const
{
    const QDomNamedNodeMap attributes = element.attributes();
    for (int i = 0; i < attributes.count(); ++i) {
        const QString name = attributes.item(i).nodeName();
        if (understood.contains(name))
            continue;
        unknown.addAttribute(name, attributes.item(i).nodeValue());
        warn(element, Texts::tr("\"%1\" is not understood by this version of the program; it is kept").arg(name));
    }
}

void SIO_XmlContext::keepElement(const QDomElement& element, PO_UnknownXml& unknown) const
{
    unknown.addElement(element);
    warn(element,
         Texts::tr("<%1> is not understood by this version of the program; it is kept").arg(element.tagName()));
}

void SIO_XmlContext::keepAllElements(const QDomElement& element, PO_UnknownXml& unknown) const
{
    for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        keepElement(child, unknown);
}

void SIO_XmlContext::checkVersion(const QDomElement& element, int known) const
{
    if (PO_intAttribute(element, kPIO_atributeVersion).value_or(known) > known)
        warn(element, Texts::tr("a newer version of the program saved this"));
}

QByteArray SIO_document(const std::function<void(PO_XmlWriter&)>& write)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        PO_XmlWriter writer(buffer);
        writer.startDocument();
        write(writer);
        writer.endDocument();
    }
    return buffer.data();
}
