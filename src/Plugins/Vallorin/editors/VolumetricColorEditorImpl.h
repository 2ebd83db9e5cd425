// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The state of a VolumetricColorEditor, and the parts of its work: the table, and the palettes behind it.
#pragma once

#include "editors/EditedNode.h"
#include "editors/SliderSpinBoxCombo.h"
#include "editors/VolumetricColorEditor.h"
#include "parameters/VallorinAttributes.h"

#include <QPointer>

#include <map>
#include <set>
#include <vector>

class CM_Color;
class CM_Palette;
class QMenu;
class QPushButton;
class QTableWidget;

/// The state of an editor; receives the levels that people set in the table's rows.
class VolumetricColorEditor::Impl : public SliderSpinBoxCombo::Callback
{
public:
    /// The colour of a menu action.
    struct MenuEntry
    {
        CM_ColorId_t colorId;
        QString name;
    };

    explicit Impl(QWidget* widget) : layoutWidget(widget) {}

    /// Stores a level, clamped to 0 to 255, and reports it. The table stays unchanged.
    void valueChanged(int row, int value) override;

    /// Builds the table from the records.
    ///
    /// @param first whether this is the first table: only later ones follow the display's density
    void buildTable(bool first);
    /// Adds a palette's submenu, unless all its colours are in the table.
    void addSubmenu(const CM_Palette& palette, const std::map<CM_ColorId_t, int>& listed);
    /// The numbers of the selected rows.
    std::set<int> selectedRows() const;

    EditedNode node; ///< and its owner
    QWidget* layoutWidget;
    QTableWidget* colorList = nullptr;
    QPointer<QMenu> menu;
    QPushButton* addColorButton = nullptr;
    std::vector<VallorinAttributes::ColorInformation> colors; ///< row i shows record i
    std::map<CM_ColorId_t, int> colorValues;
    std::map<QAction*, MenuEntry> menuActions; ///< the colours of the latest menu

private:
    void addRow(int row, const CM_Color* color);
};
