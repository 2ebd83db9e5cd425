// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// AT_DrawingAttr: the attribute of a node that shows drawings: the name of their element, and which of its drawings is
// shown at which frame.
//
//     <drawing val="Hero">
//       <exposure drawing="1" frame="1"/>
//     </drawing>
#pragma once

#include "QuarvelSceneCore/attributes/AT_Attr.h"
#include "QuarvelSceneCore/attributes/AT_ExposureSheet.h"

/// A reference to an element, with its exposures.
class QUARVELSCENECORE_EXPORT AT_DrawingAttr : public AT_Attr
{
public:
    explicit AT_DrawingAttr(const AT_AttrMeta& meta, AT_Attr* parent = nullptr);
    ~AT_DrawingAttr() override;

    /// The element's name; empty when there is none.
    const QString& getElementName() const { return _state.element; }
    /// @return whether anything changed; listeners are notified only then
    bool setElementName(const QString& name);

    const AT_ExposureSheet& exposures() const { return _state.exposures; }
    /// The name of the drawing shown at a frame; empty when there is none.
    QString drawing(double frame) const { return _state.exposures.drawing(frame); }
    /// @return whether anything changed; listeners are notified only then
    bool setExposures(const AT_ExposureSheet& exposures);

    void accept(AT_AttrVisitor& visitor) override;
    bool parseXml(const QDomElement& element, QStringList* warnings) override;
    /// The element and the drawing shown: "Hero: 1".
    QString displayText(double frame) const override;
    /// Accepts every text as the element's name.
    bool parseText(const QString& text, bool apply) override;
    bool equals(const AT_Attr& other) const override;
    CO_Command* createCopyCmd(const AT_Attr& other) override;
    void writeXmlAttributes(PO_XmlWriter& writer) const override;
    void writeXmlSubnodes(PO_XmlWriter& writer) const override;

protected:
    Parsed parseXmlAttribute(const QString& name, const QString& value, QStringList* warnings) override;
    Parsed parseXmlSubnode(const QDomElement& element, QStringList* warnings) override;

private:
    struct State
    {
        QString element;
        AT_ExposureSheet exposures;

        friend bool operator==(const State&, const State&) = default;
    };

    bool setState(const State& state);

    State _state;
};
