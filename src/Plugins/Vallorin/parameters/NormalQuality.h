// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The attribute that holds the quality of the normals. In files:
//
//     <NormalQuality val="HIGH_NORMAL_QUALITY"/>
//
// with an XML attribute "version" when the format's version is not 1. All versions have the same values.
#pragma once

#include "QuarvelSceneCore/AT_EnumAttr.h"
#include "VallorinExport.h"
#include "node/Vallorin.h"
#include "parameters/eNormalQuality.h"

/// One of the qualities; LOW_NORMAL_QUALITY by default. Labels are translated when an attribute is first asked for one.
class VALLORIN_EXPORT Vallorin::NormalQuality : public AT_EnumAttr<eNormalQuality>
{
public:
    using AT_EnumAttr::AT_EnumAttr;
    ~NormalQuality() override;

    /// Reads the format's version (1 when it is missing or not an integer) and then the rest like every attribute.
    bool parseXml(const QDomElement& element, QStringList* warnings) override;
    /// Writes the version after the rest, unless it is 1.
    void writeXmlAttributes(PO_XmlWriter& writer) const override;

protected:
    void fillValueTable(ValueTable& table) const override;
};
