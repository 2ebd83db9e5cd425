// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The object editor: its exchange with its owner, and its menu.
#include "editors/VolumetricObjectListEditor.h"

#include "QuarvelBaseCore/UT_DPI.h"
#include "QuarvelCommand/CO_OrCommand.h"
#include "QuarvelPlugInManager/PLUG_Services.h"
#include "QuarvelSceneCore/AT_StringAttr.h"
#include "QuarvelSceneCore/MO_Module.h"
#include "editors/CornerLabel.h"
#include "editors/ObjectTableModel.h"
#include "editors/ObjectValueDelegate.h"
#include "editors/VolumetricObjectListEditorImpl.h"
#include "objects/ObjectDefinitionDiscovery.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <QTimerEvent>

#include <set>

using VallorinAttributes::getObjectInformation;
using VallorinAttributes::ObjectInformation;

namespace {

/// The data of menu actions other than objects' numbers.
constexpr int kAddAll = -2;
constexpr int kRemoveSelected = -3;

} // namespace

double VolumetricObjectListEditor::Impl::currentFrame() const
{
    const PLUG_CurrentFrameInterface* const frames = PLUG_Services::getCurrentFrameInterface();
    const MO_Module* const module = frames && node.owner ? node.owner->module() : nullptr;
    return module ? static_cast<double>(frames->currentFrame(module->sceneCommon())) : 0.0;
}

QModelIndexList VolumetricObjectListEditor::Impl::selectedRows() const
{
    const QItemSelectionModel* const selection = objectList ? objectList->selectionModel() : nullptr;
    return selection ? selection->selectedRows(0) : QModelIndexList();
}

VolumetricObjectListEditor::VolumetricObjectListEditor(QWidget* layoutWidget)
    : MO_NodeEditorComponentInterface(layoutWidget), impl(std::make_unique<Impl>())
{
    impl->layoutWidget = layoutWidget;
    impl->startupTimer = startTimer(0, Qt::CoarseTimer);
    QCoreApplication::postEvent(this, new QTimerEvent(impl->startupTimer));
}

VolumetricObjectListEditor::~VolumetricObjectListEditor() = default;

bool VolumetricObjectListEditor::event(QEvent* event)
{
    if (event->type() == QEvent::Timer && !impl->startupDone) {
        impl->startupDone = true;
        killTimer(impl->startupTimer);
        synchronize();
    }
    return QObject::event(event);
}

void VolumetricObjectListEditor::setOwner(MO_NodeEditorComponentInterfaceOwner* owner)
{
    impl->node.owner = owner;
}

QString VolumetricObjectListEditor::getHeaderTitle(int column)
{
    switch (column) {
    case 0:
        return tr("ID");
    case 1:
        return tr("Bevel Size");
    case 2:
        return tr("Elevation");
    default:
        return tr("Elevation Smoothness");
    }
}

QString VolumetricObjectListEditor::getString(eStringId id)
{
    switch (id) {
    case CONNECTED_ELEMENTS:
        return tr("Connected to elements: ");
    case NOT_FOUND:
        return tr("< Not Found >");
    case NOT_DEFINED_HELP:
        return tr("This object is not defined by any\nObject Definition module.\nIt might have been deleted or is "
                  "disabled.");
    case DEFINITION_SUFFIX:
        return tr("-Definition");
    case DEFINED_BY_ONE_NODE:
        return tr("The object is defined by the following node");
    case DEFINED_BY_NODES:
        return tr("The object is defined by the following nodes");
    }
    return {};
}

void VolumetricObjectListEditor::synchronize()
{
    bool first = false;
    if (!impl->objectList) {
        impl->objectList = impl->layoutWidget->findChild<QTableView*>(QStringLiteral("objectList"));
        setCornerLabel(impl->objectList, tr("Name"), 8);
        if (impl->objectList)
            impl->objectList->setItemDelegate(new ObjectValueDelegate(impl->objectList));
        first = true;
    }
    if (!impl->addObjectButton) {
        impl->addObjectButton = impl->layoutWidget->findChild<QPushButton*>(QStringLiteral("addObjectButton"));
        if (impl->addObjectButton) {
            impl->menu = new QMenu;
            connect(impl->menu, SIGNAL(aboutToShow()), this, SLOT(refreshMenu()));
            impl->addObjectButton->setMenu(impl->menu);
            connect(impl->menu, SIGNAL(triggered(QAction*)), this, SLOT(addObjectTriggered(QAction*)));
        }
    }
    if (!impl->objectList)
        return;
    auto* const model = new ObjectTableModel(impl->objectList, *impl);
    impl->objectList->setModel(model);
    model->reload();
    impl->objectList->setMinimumHeight(UT_DPI_scale(175));
    // The first table has the same columns on every display.
    QHeaderView* const header = impl->objectList->horizontalHeader();
    header->setDefaultSectionSize(first ? 70 : UT_DPI_scale(70));
    header->setStretchLastSection(true);
    header->setFixedHeight(UT_DPI_scale(20));
}

void VolumetricObjectListEditor::apply(CO_OrCommand* command)
{
    const Vallorin* const node = impl->node.find();
    if (!node)
        return;
    const QString text = VallorinAttributes::encodeObjectInformation(impl->objects);
    AT_StringAttr* const attr = node->objectInformation();
    if (text == attr->localValue())
        return;
    if (CO_Command* const change = attr->setValueCmd(0.0, text))
        command->append(change);
}

void VolumetricObjectListEditor::refreshMenu()
{
    if (!impl->node.owner || !impl->menu)
        return;
    Vallorin* const node = impl->node.find();
    std::set<int> defined;
    ObjectDefinitionDiscovery::collectObjectIds(node, impl->currentFrame(), defined);

    impl->menu->clear();
    QAction* const addAll = impl->menu->addAction(tr("Add all Defined Objects"));
    addAll->setData(kAddAll);
    impl->menu->addSeparator();

    std::map<int, ObjectInformation> listed;
    getObjectInformation(node, listed);
    bool offersAny = false;
    for (const int id : defined) {
        if (id <= 0 || listed.contains(id))
            continue;
        impl->menu->addAction(QString::asprintf("Object %d", id))->setData(id);
        offersAny = true;
    }
    if (!offersAny)
        addAll->setEnabled(false);

    impl->menu->addSeparator();
    QAction* const remove = impl->menu->addAction(tr("Remove Selected Objects"));
    remove->setData(kRemoveSelected);
    if (impl->selectedRows().isEmpty())
        remove->setEnabled(false);
}

void VolumetricObjectListEditor::addObjectTriggered(QAction* action)
{
    if (!action || action->data().isNull())
        return;
    const int code = action->data().toInt();
    Vallorin* const node = impl->node.find();
    std::map<int, ObjectInformation> objects;
    getObjectInformation(node, objects);
    std::set<int> added;
    std::set<int> removed;
    if (code == kRemoveSelected) {
        for (const QModelIndex& row : impl->selectedRows())
            if (const int id = row.data(Qt::DisplayRole).toInt(); objects.contains(id))
                removed.insert(id);
    } else if (code == kAddAll) {
        // All defined objects, including cut-outs, which the menu does not list.
        std::set<int> defined;
        ObjectDefinitionDiscovery::collectObjectIds(node, impl->currentFrame(), defined);
        for (const int id : defined)
            if (!objects.contains(id))
                added.insert(id);
    } else if (!objects.contains(code)) {
        added.insert(code);
    }
    if (added.empty() && removed.empty())
        return;
    for (const int id : added)
        objects[id] = {id, 5.0, 1.0, 1.0};
    for (const int id : removed)
        objects.erase(id);
    impl->objects = objects;
    if (impl->node.owner)
        impl->node.owner->componentChanged();
    synchronize();
}
