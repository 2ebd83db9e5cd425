// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The state of a VolumetricObjectListEditor; its model reads the table from here.
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
    /// The frame that the user is looking at; 0 in a host without one.
    double currentFrame() const;
    /// The selected rows of the view's model; none without a view or a model.
    QModelIndexList selectedRows() const;

    EditedNode node; ///< and its owner
    QWidget* layoutWidget = nullptr;
    QTableView* objectList = nullptr;
    QPushButton* addObjectButton = nullptr;
    QPointer<QMenu> menu;
    std::map<int, VallorinAttributes::ObjectInformation> objects; ///< row i shows the i-th entry
    bool startupDone = false;
    int startupTimer = 0;
};
