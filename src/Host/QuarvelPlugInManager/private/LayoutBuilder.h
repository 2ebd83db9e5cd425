// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LayoutBuilder: builds the widgets of a node's editor from its layout.
//
//     <layout version="1" context="Lens">
//       <group title="Glass">
//         <attr name="Radius"/>
//         <row>
//           <attr name="Thickness"/>
//           <attr name="Coated"/>
//         </row>
//         <custom type="LensCurve" name="CurveEditor" attr="Curve"/>
//         <text>Measured at the centre.</text>
//       </group>
//     </layout>
//
//  - layout: the whole. "context" is the context in which titles and texts are translated.
//  - group: a frame with a title around its content.
//  - row: its content side by side.
//  - attr: the standard widgets for the attribute of that key, with its label.
//  - custom: a widget of a type that a plug-in's factory makes; with "attr" it has that attribute's label, and
//    edits that attribute alone.
//  - text: a remark.
//
// Unknown elements, attributes that the node does not have, and types that no plug-in makes are left out with a
// warning.
#pragma once

#include "QuarvelPlugInManager/private/AttrEditor.h"

#include <QDomElement>
#include <QStringList>

#include <vector>

class MO_NodeEditorComponentInterface;
class MO_Node;
class PLUG_EditorWidgets;
class QGridLayout;
class QLabel;

/// What was built.
struct BuiltEditor
{
    /// A component found on a custom widget.
    struct Component
    {
        MO_NodeEditorComponentInterface* component;
        QString attr; ///< the key of the attribute that it edits; empty when the layout does not say
    };

    QWidget* content = nullptr;
    std::vector<AttrEditor*> fields;
    std::vector<Component> components;
    QStringList warnings;
};

/// Builds one editor.
class LayoutBuilder
{
public:
    /// @param widgets the custom types; may be null
    /// @param leftOut custom types that are left out without a warning
    LayoutBuilder(MO_Node& node, const AttrEditing& editing, const PLUG_EditorWidgets* widgets,
                  const QStringList& leftOut);

    /// Builds the widgets; for a null element, or one that is not a layout, lists the node's attributes in their order.
    ///
    /// @param parent becomes the parent of the content
    BuiltEditor build(const QDomElement& layout, QWidget* parent);

private:
    /// Adds the element's children, in rows of a label and a field each.
    void addChildren(const QDomElement& element, QGridLayout* grid);
    void addGroup(const QDomElement& element, QGridLayout* grid);
    void addRow(const QDomElement& element, QGridLayout* grid);
    void addAttr(AT_Attr& attr, QGridLayout* grid);
    void addCustom(const QDomElement& element, QGridLayout* grid);
    void addText(const QDomElement& element, QGridLayout* grid);
    AttrEditor* makeField(AT_Attr& attr, QWidget* parent);
    QLabel* makeLabel(const QString& label, QWidget* parent) const;
    AT_Attr* attrOf(const QDomElement& element);
    QString translated(const QString& text) const;
    void alignLabels() const;

    MO_Node& _node;
    const AttrEditing& _editing;
    const PLUG_EditorWidgets* _widgets;
    const QStringList& _leftOut;
    QByteArray _context;
    std::vector<QLabel*> _labels; ///< the labels in the first column
    BuiltEditor _built;
};
