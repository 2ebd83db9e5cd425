// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// VolumetricObjectListEditor: the editor of a node's object table. One row per object, with its bevel, elevation and
// smoothness, edited in place. Objects come from a menu of those that Object Definition nodes define upstream; the row
// headers name these nodes.
//
// The editor stands on the widgets of "objectList.ui": the table view "objectList" and the button "addObjectButton". It
// fills itself on the first turn of the event loop after it was made, if nobody asks it to before.
#pragma once

#include "QuarvelSceneCore/MO_NodeEditorComponentInterface.h"
#include "VallorinExport.h"

#include <QString>

#include <memory>

class QAction;

/// The editor. GUI thread only.
class VALLORIN_EXPORT VolumetricObjectListEditor : public MO_NodeEditorComponentInterface
{
    Q_OBJECT

public:
    /// The editor's texts.
    enum eStringId
    {
        CONNECTED_ELEMENTS = 0,  ///< what stands before the names of an object's drawings
        NOT_FOUND = 1,           ///< instead of the name of a node that defines the object
        NOT_DEFINED_HELP = 2,    ///< why there is none
        DEFINITION_SUFFIX = 3,   ///< what is left out of the nodes' names
        DEFINED_BY_ONE_NODE = 4, ///< what stands before the name of the node
        DEFINED_BY_NODES = 5     ///< what stands before the names of several
    };

    /// @param layoutWidget the widgets; nothing happens to them before synchronize()
    explicit VolumetricObjectListEditor(QWidget* layoutWidget);
    ~VolumetricObjectListEditor() override;

    /// Fills the editor at the first event of a timer.
    bool event(QEvent* event) override;

    void setOwner(MO_NodeEditorComponentInterfaceOwner* owner) override;
    /// Finds the widgets at the first call; reads the node and gives the view a new model at each.
    void synchronize() override;
    /// Appends the command that gives the node the table as it is shown.
    void apply(CO_OrCommand* command) override;

    /// The title of a column, translated. 0 is the object's number; 3 and above are the smoothness.
    static QString getHeaderTitle(int column);
    /// A text, translated; empty for an id that is none.
    static QString getString(eStringId id);

public Q_SLOTS:
    /// Builds the menu anew from the objects that are defined upstream. Without an owner or a menu nothing happens.
    void refreshMenu();
    /// Adds the object or the objects that an action of the menu stands for, or removes the selected ones. Nothing
    /// happens, and nothing is reported, for an action that carries no number.
    void addObjectTriggered(QAction* action);

private:
    friend class ObjectTableModel;
    struct Impl;
    std::unique_ptr<Impl> impl;
};
