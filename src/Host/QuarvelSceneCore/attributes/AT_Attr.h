// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// AT_Attr: one named value of a node that can be shown, changed through commands, saved and observed.
//
// As XML an attribute is one element, named by its key, whose XML attribute "val" holds the local value:
//
//     <BlurScale val="1.5"/>
//
// Links and animation add to it (AT_SimpleAttr.h, AT_AnimatableAttr.h). Unknown XML attributes and elements are kept
// and written back.
//
// Threads: an attribute is changed on the thread that owns the scene, while no other thread reads it; while nothing
// changes, any number of threads may read it.
#pragma once

#include "QuarvelBaseCore/UT_SharedWeakBase.h"
#include "QuarvelBaseCore/XUTeller.h"
#include "QuarvelPersistentObj/PIO_XmlWritable.h"
#include "QuarvelPersistentObj/PO_UnknownXml.h"
#include "QuarvelSceneCore/attributes/AT_AttrMeta.h"

#include <QStringList>

#include <typeindex>

class AT_AttrLink;
class AT_AttrVisitor;
class AT_LinkScope;
class CO_Command;
class MO_Node;
class QDomElement;

/// The class of an attribute, for comparisons.
struct AT_TypeDescriptor
{
    std::type_index type = typeid(void);

    friend bool operator==(const AT_TypeDescriptor&, const AT_TypeDescriptor&) = default;
};

/// The base of all attributes. Notifies its listeners after every change of its value, whatever caused it.
class QUARVELSCENECORE_EXPORT AT_Attr : public XUTeller, public PIO_XmlWritable, public UT_SharedWeakBase
{
public:
    /// @param meta must outlive the attribute
    /// @param parent the attribute that this one is a part of, or null; must outlive the attribute
    explicit AT_Attr(const AT_AttrMeta& meta, AT_Attr* parent = nullptr);
    AT_Attr(const AT_Attr&) = delete;
    AT_Attr& operator=(const AT_Attr&) = delete;
    ~AT_Attr() override;

    const AT_AttrMeta& meta() const { return _meta; }
    /// The attribute's name in files, paths and programs.
    const QString& keyword() const { return _meta.key(); }
    /// The attribute's name for people, translated (context "AT_AttrMeta").
    QString label() const;
    AT_Attr* parent() const { return _parent; }
    /// The node that the attribute is registered with; null before that.
    MO_Node* node() const { return _node; }
    /// To be called by the node that registers the attribute.
    void setNode(MO_Node* node) { _node = node; }

    /// Copies the descriptor of the attribute's class into the one given.
    virtual void copyTypeDescriptor(AT_TypeDescriptor& target) const;
    /// Calls the visitor's operation for the attribute's class.
    virtual void accept(AT_AttrVisitor& visitor) = 0;

    /// Reads the attribute from its element. The element replaces the attribute's state (animation and links, too); a
    /// missing or unreadable value leaves the local value unchanged.
    ///
    /// @param warnings if not null, gets a line for everything that was not understood
    /// @return whether everything was understood
    virtual bool parseXml(const QDomElement& element, QStringList* warnings);

    /// The value at a frame as people read it.
    virtual QString displayText(double frame) const = 0;

    /// Reads a value as people write it.
    ///
    /// @param apply false: nothing changes and the result says whether the text is acceptable; true: an acceptable text
    /// becomes the local value and the result says whether that changed it
    virtual bool parseText(const QString& text, bool apply) = 0;

    /// True when the other attribute is of the same class and has the same value.
    virtual bool equals(const AT_Attr& other) const = 0;

    /// The command that gives this attribute the value of another one of the same class.
    ///
    /// @return owned by the caller; null when the other one is of another class or nothing would change
    virtual CO_Command* createCopyCmd(const AT_Attr& other) = 0;

    /// The name of a command that changes this attribute: "Change LABEL", translated.
    QString changeName() const;

    /// The link that the attribute reads, or null. Null unless overridden.
    virtual AT_AttrLink* link() const;
    /// Updates the paths of the links that read this attribute, after its node was renamed or moved. Does nothing
    /// unless overridden.
    virtual void refreshReaders(const AT_LinkScope& scope) const;

    /// Whether a text names a row of a table: true when it equals the label or the keyword, ignoring case and white
    /// space around it. The label is compared first.
    static bool parseString(const QString& text, const QString& label, const QString& keyword);

    /// The keyword.
    QString getXmlElementName() const override;
    /// Writes the unknown XML attributes; to be called by overriding functions.
    void writeXmlAttributes(PO_XmlWriter& writer) const override;
    /// Writes the unknown elements; to be called at the end of overriding functions.
    void writeXmlSubnodes(PO_XmlWriter& writer) const override;

protected:
    /// The outcome of reading one XML attribute or element.
    enum class Parsed
    {
        YES,     ///< understood
        REFUSED, ///< known, but the value is unusable; it is dropped with a warning
        UNKNOWN  ///< not known: to be kept and written back
    };

    /// Reads one XML attribute of the element. Returns UNKNOWN unless overridden.
    virtual Parsed parseXmlAttribute(const QString& name, const QString& value, QStringList* warnings);
    /// Reads one child of the element. Returns UNKNOWN unless overridden.
    virtual Parsed parseXmlSubnode(const QDomElement& element, QStringList* warnings);

    /// Adds the line "KEY: text" to the warnings; does nothing when they are null.
    void warn(QStringList* warnings, const QString& text) const;
    bool isSameClass(const AT_Attr& other) const;

private:
    const AT_AttrMeta& _meta;
    AT_Attr* _parent;
    MO_Node* _node = nullptr;
    PO_UnknownXml _unknown;
};
