// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What a VolumetricObjectListEditor holds; its model reads the table from here.
#pragma once

#include "editors/EditedNode.h"
#include "editors/VolumetricObjectListEditor.h"
#include "parameters/VallorinAttributes.h"

#include <QModelIndex>
#include <QPointer>

#include <map>

class QMenu;
class QPushButton;
class QTableView;

/// The state of an editor.
struct VolumetricObjectListEditor::Impl
{
    /// The frame that people look at; 0 in a host that has none.
    double currentFrame() const;
    /// The selected rows of the view's model; none where there is no view or no model yet.
    QModelIndexList selectedRows() const;

    EditedNode node; ///< and the owner
    QWidget* layoutWidget = nullptr;
    QTableView* objectList = nullptr;
    QPushButton* addObjectButton = nullptr;
    QPointer<QMenu> menu;
    std::map<int, VallorinAttributes::ObjectInformation> objects; ///< row i shows the i-th entry
    bool startupDone = false;
    int startupTimer = 0;
};
