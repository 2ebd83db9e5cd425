// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The rows of the object table, and their header texts.
#include "editors/ObjectTableModel.h"

#include "QuarvelBaseCore/UT_DPI.h"
#include "editors/VolumetricObjectListEditorImpl.h"
#include "objects/ObjectDefinitionDiscovery.h"

#include <QStringList>
#include <QTableView>

#include <iterator>
#include <set>

namespace {

using VallorinAttributes::ObjectInformation;
using ObjectMap = std::map<int, ObjectInformation>;

QString joined(const std::set<QString>& names, const QString& separator)
{
    return QStringList(names.begin(), names.end()).join(separator);
}

/// The object in a row, or null.
template<typename Map>
auto* objectAt(Map& objects, int row)
{
    const bool isThere = row >= 0 && static_cast<std::size_t>(row) < objects.size();
    return isThere ? &std::next(objects.begin(), row)->second : nullptr;
}

QVariant number(const ObjectInformation& object, int column)
{
    switch (column) {
    case 0:
        return object.objectId;
    case 1:
        return object.bevelSize;
    case 2:
        return object.elevation;
    default:
        return object.elevationSmoothness;
    }
}

/// The number in an editable column; null for any other column.
double* editable(ObjectInformation& object, int column)
{
    switch (column) {
    case 1:
        return &object.bevelSize;
    case 2:
        return &object.elevation;
    case 3:
        return &object.elevationSmoothness;
    default:
        return nullptr;
    }
}

} // namespace

ObjectTableModel::ObjectTableModel(QTableView* view, VolumetricObjectListEditor::Impl& editor)
    : QAbstractTableModel(view), _editor(editor)
{}

ObjectTableModel::~ObjectTableModel() = default;

void ObjectTableModel::reload()
{
    beginResetModel();
    VallorinAttributes::getObjectInformation(_editor.node.find(), _editor.objects);
    endResetModel();
}

int ObjectTableModel::rowCount(const QModelIndex&) const
{
    return static_cast<int>(_editor.objects.size());
}

int ObjectTableModel::columnCount(const QModelIndex&) const
{
    return 4;
}

Qt::ItemFlags ObjectTableModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    return index.column() == 0 ? flags : flags | Qt::ItemIsEditable;
}

QVariant ObjectTableModel::data(const QModelIndex& index, int role) const
{
    const ObjectInformation* const object = objectAt(_editor.objects, index.row());
    if (!object)
        return {};
    if (role == Qt::SizeHintRole)
        return UT_DPI_scale(QSize(10, 36));
    if (role == Qt::DisplayRole)
        return number(*object, index.column());
    if (role == Qt::ToolTipRole && index.column() == 0) {
        std::set<QString> elements;
        ObjectDefinitionDiscovery::findConnectedElements(_editor.node.find(), object->objectId, _editor.currentFrame(),
                                                         elements);
        return VolumetricObjectListEditor::getString(VolumetricObjectListEditor::CONNECTED_ELEMENTS) +
               joined(elements, QStringLiteral(",\n"));
    }
    return {};
}

bool ObjectTableModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role == Qt::EditRole) {
        ObjectInformation* const object = objectAt(_editor.objects, index.row());
        if (!object)
            return false;
        if (double* const target = editable(*object, index.column())) {
            bool isNumber = false;
            const double entered = value.toDouble(&isNumber);
            if (!isNumber)
                return false;
            *target = entered;
        }
    }
    // Reports for every role: the owner finds out whether anything has changed.
    if (_editor.node.owner)
        _editor.node.owner->componentChanged();
    return true;
}

QVariant ObjectTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const bool isShown = !_editor.objectList || _editor.objectList->isVisible();
    const bool isText = role == Qt::DisplayRole || (role == Qt::ToolTipRole && orientation == Qt::Vertical);
    // A hidden table does not need the walk through the graph.
    if (!isShown || !isText)
        return QAbstractItemModel::headerData(section, orientation, role);
    if (orientation == Qt::Horizontal)
        return VolumetricObjectListEditor::getHeaderTitle(section);
    const ObjectInformation* const object = objectAt(_editor.objects, section);
    if (object)
        return definingNodes(object->objectId, role);
    return role == Qt::DisplayRole
               ? VolumetricObjectListEditor::getString(VolumetricObjectListEditor::NOT_FOUND)
               : VolumetricObjectListEditor::getString(VolumetricObjectListEditor::NOT_DEFINED_HELP);
}

QVariant ObjectTableModel::definingNodes(int objectId, int role) const
{
    using Editor = VolumetricObjectListEditor;
    const bool isName = role == Qt::DisplayRole;
    const QString suffix = isName ? Editor::getString(Editor::DEFINITION_SUFFIX) : QString();
    std::set<QString> names;
    ObjectDefinitionDiscovery::collectObjectDefinitionNames(_editor.node.find(), objectId, _editor.currentFrame(),
                                                            names, suffix);
    if (names.empty())
        return Editor::getString(isName ? Editor::NOT_FOUND : Editor::NOT_DEFINED_HELP);
    if (isName)
        return names.size() > 1 ? *names.begin() + QLatin1Char('*') : *names.begin();
    if (names.size() == 1)
        return Editor::getString(Editor::DEFINED_BY_ONE_NODE) + QStringLiteral(" : ") + *names.begin();
    return Editor::getString(Editor::DEFINED_BY_NODES) + QStringLiteral(" :\n") + joined(names, QStringLiteral("\n"));
}
