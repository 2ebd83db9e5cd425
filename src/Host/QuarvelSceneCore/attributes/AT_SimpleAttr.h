// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// AT_SimpleAttr: an attribute with one value, which a surrogate may drive. Of the surrogates, files hold links:
//
//     <BlurScale link="Normal-Map_1.BlurScale" val="1.5"/>
#pragma once

#include "QuarvelSceneCore/attributes/AT_Attr.h"
#include "QuarvelSceneCore/attributes/AT_AttrLink.h"

#include <memory>
#include <vector>

/// An attribute with a local value and, optionally, a surrogate for it.
class QUARVELSCENECORE_EXPORT AT_SimpleAttr : public AT_Attr
{
public:
    explicit AT_SimpleAttr(const AT_AttrMeta& meta, AT_Attr* parent = nullptr);
    ~AT_SimpleAttr() override;

    /// What drives the attribute, or null.
    const UT_SharedPtr<AT_AttrSurrogate>& surrogate() const { return _surrogate; }
    /// Lets a surrogate drive the attribute; null ends that.
    ///
    /// @return whether anything changed; false when the attribute cannot be driven
    bool setSurrogate(const UT_SharedPtr<AT_AttrSurrogate>& surrogate);
    /// The surrogate when it is a link, else null.
    AT_AttrLink* link() const override;
    void refreshReaders(const AT_LinkScope& scope) const override;

    /// Whether a surrogate may drive the attribute. True unless overridden.
    virtual bool isLinkable() const;

    /// The attribute's value at a frame as a number, surrogate and animation included (truth values are 0 and 1,
    /// enumerations their integers); nothing when it is not a number.
    virtual std::optional<double> scalarValue(double frame) const = 0;

    /// Drops the surrogate and then reads the element as AT_Attr does.
    bool parseXml(const QDomElement& element, QStringList* warnings) override;
    /// Writes the value (localValueXml()) and the link.
    void writeXmlAttributes(PO_XmlWriter& writer) const override;

protected:
    /// The surrogate's value at a frame; nothing when there is none, or it is not a number.
    std::optional<double> surrogateValue(double frame) const;

    /// The local value in the form that files hold.
    virtual QString localValueXml() const = 0;
    /// Sets the local value from a file's text.
    ///
    /// @return whether the text was a value; otherwise nothing changed
    virtual bool parseLocalValueXml(const QString& text, QStringList* warnings) = 0;

    Parsed parseXmlAttribute(const QString& name, const QString& value, QStringList* warnings) override;

private:
    friend class AT_AttrLink;
    class Relay;

    UT_SharedPtr<AT_AttrSurrogate> _surrogate;
    std::unique_ptr<Relay> _relay;
    std::vector<AT_AttrLink*> _readers; // the resolved links to this attribute, which add and remove themselves
};
