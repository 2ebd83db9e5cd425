// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PLUG_EditorPanel: shows the editor of one node, and turns what people enter into commands on a stack.
//
// The editor is built from the layout that the node supplies (MO_XmlEditable::obtainEditorLayout()); without one, the
// panel lists the node's attributes. The panel follows changes of the node from anywhere: a command, its undo, another
// panel, the current frame. The node may be deleted, or removed from its scene and put back, while it is shown.
//
// Layouts are made of these elements: layout, group, row, attr, custom, text. An example:
//
//     <layout version="1" context="Lens">
//       <group title="Glass">
//         <attr name="Radius"/>
//         <row><attr name="Thickness"/><attr name="Coated"/></row>
//         <custom type="LensCurve" name="CurveEditor" attr="Curve"/>
//         <text>Measured at the centre.</text>
//       </group>
//     </layout>
//
// "attr" gives the standard widgets for an attribute, with its label; "custom" a widget that a plug-in's factory makes
// (PLUG_WidgetFactory), whose editor components (MO_NodeEditorComponentInterface) the panel finds and connects; titles
// and texts are translated in the context that the layout names.
#pragma once

#include "QuarvelBaseCore/UT_SharedWeakBase.h"
#include "QuarvelPlugInManager/QuarvelPlugInManagerExport.h"

#include <QStringList>
#include <QWidget>

#include <memory>

class CO_Command;
class CO_CommandStack;
class MO_Module;
class XUTeller;

/// The panel. GUI thread only.
class QUARVELPLUGINMANAGER_EXPORT PLUG_EditorPanel : public QWidget
{
    Q_OBJECT

public:
    /// @param stack where the commands go; must outlive the panel. With null, the panel shows the node and changes
    /// nothing
    explicit PLUG_EditorPanel(CO_CommandStack* stack, QWidget* parent = nullptr);
    ~PLUG_EditorPanel() override;

    /// Shows the editor of a module, newly built; null shows an empty panel.
    void setModule(MO_Module* module);
    /// The module that is shown; null when there is none or it was deleted.
    MO_Module* module() const;

    /// The editor's widgets without the panel's frame; null when the panel is empty.
    QWidget* content() const;

    /// Whether the panel names the module above its editor; true by default.
    void setHeaderVisible(bool visible);

    /// Leaves custom widgets of these types out of editors that are built from now on, with their labels: for a program
    /// that shows the same values in a better way elsewhere.
    void setLeftOut(const QStringList& types) { _leftOut = types; }

    /// The parts of the module's layout that were not understood.
    const QStringList& warnings() const { return _warnings; }

    /// Shows the module's current state now, instead of when the event loop is next idle.
    void synchronizeNow();

Q_SIGNALS:
    /// A command failed and nothing changed; the text says why.
    void commandFailed(const QString& text);

protected:
    bool event(QEvent* event) override;

private:
    class Watch;
    class ComponentOwner;
    struct Parts;

    void told(const XUTeller& teller);
    void clear();
    void build(MO_Module& module);
    void listenTo(MO_Module& module);
    void componentChanged(ComponentOwner& owner);
    /// @return whether the command was executed
    bool execute(std::unique_ptr<CO_Command> command);
    void endStep();
    void synchronizeFields();
    void synchronizeComponents();
    void synchronizeWhenIdle();
    bool isInUse() const;
    void noticeDeletion();
    void showHeader();
    double frame() const;

    UT_WeakPtr<MO_Module> _module;
    CO_CommandStack* _stack;
    std::unique_ptr<Parts> _parts;
    QStringList _leftOut;
    QStringList _warnings;
};
