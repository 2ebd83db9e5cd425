// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The colour table and the palettes' submenus.
#include "editors/VolumetricColorEditorImpl.h"

#include "QuarvelBaseCore/UT_DPI.h"
#include "QuarvelSceneCore/MO_PaletteCollector.h"
#include "editors/CornerLabel.h"

#include <QHeaderView>
#include <QImage>
#include <QItemSelectionModel>
#include <QMenu>
#include <QTableWidget>

#include <algorithm>

namespace {

QPixmap swatch(int width, int height, const CM_Rgba& colour)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(qRgb(colour.red, colour.green, colour.blue));
    return QPixmap::fromImage(image);
}

/// The solid colours of a node's palettes; of two with one identifier, that of the later palette.
std::map<CM_ColorId_t, const CM_Color*> solidColours(const std::vector<CM_SharedPtr<CM_Palette>>& palettes)
{
    std::map<CM_ColorId_t, const CM_Color*> colours;
    for (const auto& palette : palettes) {
        if (!palette)
            continue;
        for (const auto& colour : palette->colors())
            if (const auto solid = colour.dynamicCast<CM_Color>())
                colours[solid->GetColorId()] = solid.get();
    }
    return colours;
}

} // namespace

void VolumetricColorEditor::Impl::valueChanged(int row, int value)
{
    const int level = std::clamp(value, 0, 255);
    if (row < 0 || static_cast<std::size_t>(row) >= colors.size())
        return;
    colors[static_cast<std::size_t>(row)].value = level;
    if (node.owner)
        node.owner->componentChanged();
}

void VolumetricColorEditor::Impl::buildTable(bool first)
{
    colorList->clear();
    colorList->setRowCount(static_cast<int>(colors.size()));
    colorList->setColumnCount(1);
    colorList->setHorizontalHeaderLabels(getHeaderTitles());

    // The first table has the same size on every display.
    QSize headerSize(200, 20);
    int margin = 8;
    if (!first) {
        headerSize = UT_DPI_scale(headerSize);
        margin = UT_DPI_scale(margin);
    }
    setCornerLabel(colorList, tr("Name"), margin);
    colorList->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    colorList->horizontalHeaderItem(0)->setSizeHint(headerSize);

    const auto palettes = MO_PaletteCollector(node.find());
    const auto colours = solidColours(palettes);
    for (std::size_t i = 0; i < colors.size(); ++i) {
        const auto found = colours.find(colors[i].colorId);
        addRow(static_cast<int>(i), found == colours.end() ? nullptr : found->second);
    }

    colorList->setMinimumHeight(UT_DPI_scale(175));
    colorList->verticalHeader()->setMaximumWidth(headerSize.width());
    colorList->horizontalHeader()->setStretchLastSection(true);
}

void VolumetricColorEditor::Impl::addRow(int row, const CM_Color* color)
{
    const VallorinAttributes::ColorInformation& record = colors[static_cast<std::size_t>(row)];
    // A colour that is not in a palette any more is shown black.
    const CM_Rgba nominal = color ? color->GetNominalColor() : CM_Rgba{};
    const QPixmap icon = swatch(UT_DPI_scale(8), UT_DPI_scale(16), nominal);
    colorList->setVerticalHeaderItem(row, new QTableWidgetItem(QIcon(icon), record.name));

    auto* control = new SliderSpinBoxCombo(this, row, record.value);
    control->setFixedHeight(UT_DPI_scale(36));
    colorList->setCellWidget(row, 0, control);
}

void VolumetricColorEditor::Impl::addSubmenu(const CM_Palette& palette, const std::map<CM_ColorId_t, int>& listed)
{
    std::vector<CM_SharedPtr<CM_Color>> offered;
    for (const auto& colour : palette.colors())
        if (const auto solid = colour.dynamicCast<CM_Color>(); solid && !listed.contains(solid->GetColorId()))
            offered.push_back(solid);
    if (offered.empty())
        return;
    QMenu* const submenu = menu->addMenu(palette.GetName().ToQString());
    for (const auto& colour : offered) {
        QAction* const action = submenu->addAction(colour->GetColorName().ToQString());
        action->setIcon(QIcon(swatch(16, 16, colour->GetNominalColor())));
        menuActions[action] = {colour->GetColorId(), action->text()};
    }
}

std::set<int> VolumetricColorEditor::Impl::selectedRows() const
{
    std::set<int> rows;
    if (colorList)
        for (const QModelIndex& index : colorList->selectionModel()->selectedRows(0))
            rows.insert(index.row());
    return rows;
}
