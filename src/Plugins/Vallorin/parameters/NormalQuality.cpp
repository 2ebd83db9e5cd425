// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The values of the normal quality, and how the format's version is read and written.
#include "parameters/NormalQuality.h"

#include "QuarvelPersistentObj/PO_XmlReading.h"

#include <QCoreApplication>
#include <QDomElement>

Vallorin::NormalQuality::~NormalQuality() = default;

bool Vallorin::NormalQuality::parseXml(const QDomElement& element, QStringList* warnings)
{
    setFormatVersion(PO_intAttribute(element, kPIO_atributeVersion).value_or(1));
    return AT_EnumAttr::parseXml(element, warnings);
}

void Vallorin::NormalQuality::writeXmlAttributes(PO_XmlWriter& writer) const
{
    AT_EnumAttr::writeXmlAttributes(writer);
    if (formatVersion() != 1)
        writer.attribute(kPIO_atributeVersion, formatVersion());
}

void Vallorin::NormalQuality::fillValueTable(ValueTable& table) const
{
    const auto add = [&table](eNormalQuality value, const char* keyword, const char* label) {
        addValue(table, value, QLatin1String(keyword), QCoreApplication::translate("Vallorin::NormalQuality", label),
                 false);
    };
    add(LOW_NORMAL_QUALITY, "LOW_NORMAL_QUALITY", QT_TRANSLATE_NOOP("Vallorin::NormalQuality", "Low"));
    add(MEDIUM_NORMAL_QUALITY, "MEDIUM_NORMAL_QUALITY", QT_TRANSLATE_NOOP("Vallorin::NormalQuality", "Medium"));
    add(HIGH_NORMAL_QUALITY, "HIGH_NORMAL_QUALITY", QT_TRANSLATE_NOOP("Vallorin::NormalQuality", "High"));
}
