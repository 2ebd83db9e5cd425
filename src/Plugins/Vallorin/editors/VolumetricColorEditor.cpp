// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The colour editor: its exchange with its owner, and its menu.
#include "editors/VolumetricColorEditor.h"

#include "QuarvelBaseCore/UT_DPI.h"
#include "QuarvelCommand/CO_OrCommand.h"
#include "QuarvelSceneCore/AT_StringAttr.h"
#include "QuarvelSceneCore/MO_PaletteCollector.h"
#include "editors/VolumetricColorEditorImpl.h"

#include <QMenu>
#include <QPushButton>
#include <QTableWidget>

#include <cstdio>

using VallorinAttributes::ColorInformation;
using VallorinAttributes::getColorInformation;

VolumetricColorEditor::VolumetricColorEditor(QWidget* layoutWidget)
    : MO_NodeEditorComponentInterface(layoutWidget), impl(std::make_unique<Impl>(layoutWidget))
{}

VolumetricColorEditor::~VolumetricColorEditor() = default;

QList<QString> VolumetricColorEditor::getHeaderTitles()
{
    return {tr("Carving <------> Adding")};
}

void VolumetricColorEditor::setOwner(MO_NodeEditorComponentInterfaceOwner* owner)
{
    impl->node.owner = owner;
}

void VolumetricColorEditor::synchronize()
{
    bool first = false;
    if (!impl->colorList) {
        impl->colorList = impl->layoutWidget->findChild<QTableWidget*>(QStringLiteral("colorList"));
        if (impl->colorList)
            impl->colorList->setMinimumWidth(UT_DPI_scale(500));
        first = true;
    }
    if (!impl->addColorButton) {
        impl->addColorButton = impl->layoutWidget->findChild<QPushButton*>(QStringLiteral("addColorButton"));
        if (impl->addColorButton) {
            impl->menu = new QMenu;
            connect(impl->menu, SIGNAL(aboutToShow()), this, SLOT(refreshMenu()));
            impl->addColorButton->setMenu(impl->menu);
            connect(impl->menu, SIGNAL(triggered(QAction*)), this, SLOT(addColorTriggered(QAction*)));
        }
    }
    if (impl->colorList) {
        Vallorin* const node = impl->node.askOwner();
        getColorInformation(node, impl->colors);
        getColorInformation(node, impl->colorValues);
        impl->buildTable(first);
    }
}

void VolumetricColorEditor::apply(CO_OrCommand* command)
{
    const Vallorin* const node = impl->node.find();
    if (!node)
        return;
    const QString text = VallorinAttributes::encodeColorInformation(impl->colors);
    AT_StringAttr* const attr = node->colorInformation();
    if (text == attr->localValue())
        return;
    if (CO_Command* const change = attr->setValueCmd(0.0, text))
        command->append(change);
}

void VolumetricColorEditor::refreshMenu()
{
    if (!impl->menu)
        return;
    Vallorin* const node = impl->node.find();
    std::map<CM_ColorId_t, int> listed;
    getColorInformation(node, listed);

    impl->menuActions.clear();
    impl->menu->clear();
    // QMenu::clear() removes submenus without deleting them.
    qDeleteAll(impl->menu->findChildren<QMenu*>(Qt::FindDirectChildrenOnly));

    const auto palettes = MO_PaletteCollector(node);
    std::printf("There are: %d palettes\n", static_cast<int>(palettes.size()));
    for (const auto& palette : palettes) {
        if (!palette)
            continue;
        std::printf("palette : %s\n", palette->GetName().c_str());
        impl->addSubmenu(*palette, listed);
    }
    impl->menu->addSeparator();
    QAction* const remove = impl->menu->addAction(tr("Remove Selected Colours"));
    remove->setEnabled(!impl->selectedRows().empty());
}

void VolumetricColorEditor::addColorTriggered(QAction* action)
{
    const auto entry = impl->menuActions.find(action);
    Vallorin* const node = impl->node.find();
    std::vector<ColorInformation> records;
    std::map<CM_ColorId_t, int> listed;
    getColorInformation(node, records);
    getColorInformation(node, listed);

    if (entry == impl->menuActions.end()) {
        const std::set<int> removed = impl->selectedRows();
        const std::vector<ColorInformation> source = impl->colors;
        impl->colors.clear();
        impl->colorValues.clear();
        for (std::size_t i = 0; i < source.size(); ++i)
            if (!removed.contains(static_cast<int>(i)))
                impl->colors.push_back(source[i]);
    } else {
        if (listed.contains(entry->second.colorId))
            return;
        records.push_back({entry->second.colorId, 255, entry->second.name});
        impl->colors = records;
        impl->colorValues = listed;
    }
    if (impl->node.owner)
        impl->node.owner->componentChanged();
    synchronize();
}
