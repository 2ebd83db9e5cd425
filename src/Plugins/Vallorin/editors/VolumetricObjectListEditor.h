// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// VolumetricObjectListEditor: the editor of a node's object table. One row per object, with its bevel, elevation and
// smoothness, edited in place. Objects come from a menu of those that Object Definition nodes define upstream; the row
// headers name these nodes.
//
// The editor uses the widgets of "objectList.ui": the table view "objectList" and the button "addObjectButton". It
// fills itself on the first turn of the event loop after its construction, unless it was filled before.
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
        CONNECTED_ELEMENTS = 0,  ///< precedes the names of an object's drawings
        NOT_FOUND = 1,           ///< replaces the name of the defining node
        NOT_DEFINED_HELP = 2,    ///< explains NOT_FOUND
        DEFINITION_SUFFIX = 3,   ///< is left out of the nodes' names
        DEFINED_BY_ONE_NODE = 4, ///< precedes the name of the node
        DEFINED_BY_NODES = 5     ///< precedes the names of several nodes
    };

    /// @param layoutWidget the widgets; unchanged until synchronize()
    explicit VolumetricObjectListEditor(QWidget* layoutWidget);
    ~VolumetricObjectListEditor() override;

    /// Fills the editor at the first timer event.
    bool event(QEvent* event) override;

    void setOwner(MO_NodeEditorComponentInterfaceOwner* owner) override;
    /// Finds the widgets at the first call; reads the node and gives the view a new model at each.
    void synchronize() override;
    /// Appends the command that gives the node the shown table.
    void apply(CO_OrCommand* command) override;

    /// The title of a column, translated. 0 is the object's number; 3 and above are the smoothness.
    static QString getHeaderTitle(int column);
    /// A text, translated; empty for an unknown id.
    static QString getString(eStringId id);

public Q_SLOTS: // NOLINT(readability-redundant-access-specifiers): the functions above are not slots
    /// Rebuilds the menu from the objects that are defined upstream. Does nothing without an owner or a menu.
    void refreshMenu();
    /// Adds the object or the objects of a menu action, or removes the selected ones. For an action without a number,
    /// does nothing and reports nothing.
    void addObjectTriggered(QAction* action);

private:
    friend class ObjectTableModel;
    struct Impl;
    std::unique_ptr<Impl> impl;
};
