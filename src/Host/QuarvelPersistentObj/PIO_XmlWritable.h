// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PIO_XmlWritable: an object that can write itself as one XML element; and the names of the XML attributes that the
// host's files have in common.
#pragma once

#include "QuarvelPersistentObj/PO_XmlWriter.h"

#include <QLatin1String>

/// The XML attribute that holds a value.
inline constexpr QLatin1String kPIO_attributeValue{"val"};
/// The XML attribute that holds the version of an element's format; version 1 where it is missing.
inline constexpr QLatin1String kPIO_atributeVersion{"version"};
/// The XML attribute that holds the path of the attribute that drives this one.
inline constexpr QLatin1String kPIO_attributeLink{"link"};

/// Something that is written as one XML element.
class QUARVELPERSISTENTOBJ_EXPORT PIO_XmlWritable
{
public:
    PIO_XmlWritable() = default;
    PIO_XmlWritable(const PIO_XmlWritable&) = default;
    PIO_XmlWritable& operator=(const PIO_XmlWritable&) = default;
    virtual ~PIO_XmlWritable();

    /// Writes the whole element: its start, its attributes, its subnodes, its end.
    virtual void writeXml(PO_XmlWriter& writer) const;
    /// The element's name; a valid XML name.
    virtual QString getXmlElementName() const = 0;
    /// Writes the attributes of the element just started. Does nothing unless overridden.
    virtual void writeXmlAttributes(PO_XmlWriter& writer) const;
    /// Writes the content of the element. Does nothing unless overridden.
    virtual void writeXmlSubnodes(PO_XmlWriter& writer) const;

    /// The element as a text, as writeXml() writes it.
    QString toXml() const;
};
