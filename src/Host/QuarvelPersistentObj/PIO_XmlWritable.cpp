// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Writing the start and the end of an element.
#include "QuarvelPersistentObj/PIO_XmlWritable.h"

PIO_XmlWritable::~PIO_XmlWritable() = default;

void PIO_XmlWritable::writeXml(PO_XmlWriter& writer) const
{
    writer.startElement(getXmlElementName());
    writeXmlAttributes(writer);
    writeXmlSubnodes(writer);
    writer.endElement();
}

void PIO_XmlWritable::writeXmlAttributes(PO_XmlWriter&) const {}

void PIO_XmlWritable::writeXmlSubnodes(PO_XmlWriter&) const {}

QString PIO_XmlWritable::toXml() const
{
    QString text;
    PO_XmlWriter writer(text);
    writeXml(writer);
    return text;
}
