// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// VolumetricColorEditor: the editor of a node's colour table. One row per palette colour that takes part in volume
// building, with its level between carving and adding. Colours come from a menu of the node's palettes.
//
// The editor uses the widgets of "volumetricDefinition.ui": the table "colorList" and the button
// "addColorButton".
#pragma once

#include "QuarvelSceneCore/MO_NodeEditorComponentInterface.h"
#include "VallorinExport.h"

#include <QList>
#include <QString>

#include <memory>

class QAction;

/// The editor. GUI thread only.
class VALLORIN_EXPORT VolumetricColorEditor : public MO_NodeEditorComponentInterface
{
    Q_OBJECT

public:
    /// @param layoutWidget the widgets; unchanged until synchronize()
    explicit VolumetricColorEditor(QWidget* layoutWidget);
    ~VolumetricColorEditor() override;

    void setOwner(MO_NodeEditorComponentInterfaceOwner* owner) override;
    /// Finds the widgets at the first call; rebuilds the table from the node at each. Without an owner
    /// there are no colours.
    void synchronize() override;
    /// Appends the command that gives the node the shown table.
    void apply(CO_OrCommand* command) override;

    /// The titles of the columns, translated.
    static QList<QString> getHeaderTitles();

    /// Registers the module's widget factory with the host; does nothing in a host without editors.
    ///
    /// @param path the folder of the layout files, with a separator at its end; only the first one given is used
    static void registerFactory(const QString& path);

public Q_SLOTS: // NOLINT(readability-redundant-access-specifiers): the functions above are not slots
    /// Rebuilds the menu from the node's palettes. Does nothing without a menu.
    void refreshMenu();
    /// Adds the colour of a menu action; any other action removes the selected rows.
    void addColorTriggered(QAction* action);

private:
    class Impl;
    std::unique_ptr<Impl> impl;
};
