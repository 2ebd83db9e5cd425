// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// As long as the rows show the same objects, the model only signals changed data, so that editors stay open and the
// view does not scroll.
#include "studio/objects/ObjectsModel.h"

#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "studio/docks/scene/DrawingThumbnail.h"

#include <QGuiApplication>
#include <QLocale>

#include <algorithm>
#include <cmath>

namespace {

// Short titles, so that all columns are seen in a narrow window; the tool tips have the words.
QString columnTitle(ObjectValue value)
{
    switch (value) {
    case ObjectValue::RIM:
        return ObjectsModel::tr("Rim", "the title of a narrow column");
    case ObjectValue::TILT_RIGHT:
        return ObjectsModel::tr("Tilt \u2192", "the title of a narrow column: a tilt to the right");
    case ObjectValue::TILT_UP:
        return ObjectsModel::tr("Tilt \u2191", "the title of a narrow column: a tilt upwards");
    default:
        return ObjectTexts::name(value);
    }
}

// Few digits, so that the columns leave room for the names; the field that opens over a number has all of them.
QString compact(double value)
{
    const double size = std::abs(value);
    if (size < 0.1)
        return QLocale().toString(value, 'g', 2);
    const double step = size < 100.0 ? 100.0 : 10.0;
    return ObjectTexts::number(std::round(value * step) / step);
}

} // namespace

ObjectsModel::ObjectsModel(DocumentObjects& objects, QObject* parent) : QAbstractTableModel(parent), _objects(objects)
{
    connect(&objects, &DocumentObjects::changed, this, &ObjectsModel::follow);
    connect(&objects.document(), &StudioDocument::sceneReplaced, this, [this] { _thumbnails.clear(); });
    follow();
}

ObjectsModel::~ObjectsModel() = default;

void ObjectsModel::follow()
{
    // Drawings that nothing else holds have left the scene and its history.
    std::erase_if(_thumbnails, [](const auto& known) { return known.second.drawing->refCount() == 1; });
    std::vector<const ObjectDefinition*> rows;
    for (const SceneObject& object : _objects.all())
        rows.push_back(object.definitions.front());
    if (rows != _rows) {
        beginResetModel();
        _rows = std::move(rows);
        endResetModel();
    } else if (!_rows.empty()) {
        Q_EMIT dataChanged(index(0, 0), index(static_cast<int>(_rows.size()) - 1, COLUMN_COUNT - 1));
    }
}

const SceneObject* ObjectsModel::object(int row) const
{
    const auto& all = _objects.all();
    return row >= 0 && row < static_cast<int>(all.size()) ? &all[static_cast<std::size_t>(row)] : nullptr;
}

int ObjectsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(_rows.size());
}

int ObjectsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : COLUMN_COUNT;
}

QPixmap ObjectsModel::thumbnail(const SceneObject& object) const
{
    if (object.elements.empty())
        return {};
    const MO_ElementModule& element = *object.elements.front();
    const auto& drawings = element.drawings();
    auto shown = drawings.find(element.drawingAttr()->drawing(_objects.document().currentFrame()));
    if (shown == drawings.end())
        shown = drawings.begin();
    if (shown == drawings.end() || !shown->second)
        return {};
    auto [known, isNew] = _thumbnails.try_emplace(shown->second.get());
    if (isNew)
        known->second = {shown->second, drawingThumbnail(*shown->second, kThumbnail, qGuiApp->devicePixelRatio(),
                                                         frameInDrawing(_objects.document().scene(), element,
                                                                        _objects.document().currentFrame()))};
    return known->second.picture;
}

QVariant ObjectsModel::data(const QModelIndex& index, int role) const
{
    const SceneObject* const object = this->object(index.row());
    if (!object)
        return {};
    const int column = index.column();
    if (column == NAME) {
        if (role == Qt::DisplayRole)
            return object->name;
        if (role == Qt::DecorationRole)
            return thumbnail(*object);
        if (role == Qt::CheckStateRole)
            return object->isHidden ? Qt::Unchecked : Qt::Checked;
        if (role == Qt::ToolTipRole)
            return tr("%1: shown when the box is ticked").arg(object->name);
        return {};
    }
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    if (column == NUMBER) {
        if (role == Qt::DisplayRole)
            return object->isCutOut() ? tr("cut") : QString::number(object->number());
        if (role == Qt::ToolTipRole && object->isCutOut())
            return tr("A cut-out: whatever lies below it is removed");
        return {};
    }
    if (object->isCutOut())
        return {};
    const double value = ::valueOf(*object, valueOf(column));
    if (role == Qt::DisplayRole)
        return compact(value);
    if (role == Qt::ToolTipRole)
        return ObjectTexts::number(value);
    return role == Qt::EditRole ? QVariant(value) : QVariant();
}

std::vector<SceneObject> ObjectsModel::changedBy(int row) const
{
    const SceneObject* const object = this->object(row);
    if (!object)
        return {};
    if (!_objects.isSelected(*object))
        return {*object};
    // The edited row comes last, because the last object names the change.
    std::vector<SceneObject> objects = _objects.selected();
    std::stable_partition(objects.begin(), objects.end(),
                          [&](const SceneObject& one) { return !isSame(one, *object); });
    return objects;
}

bool ObjectsModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    const std::vector<SceneObject> objects = changedBy(index.row());
    if (objects.empty())
        return false;
    if (index.column() == NAME && role == Qt::CheckStateRole) {
        _objects.change(hideCmd(objects, value.toInt() == Qt::Unchecked));
        return true;
    }
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (!isValue(index.column()) || role != Qt::EditRole || !isNumber)
        return false;
    _objects.change(changeValueCmd(objects, valueOf(index.column()), _objects.document().currentFrame(),
                                   [number](const SceneObject&) { return number; }));
    return true;
}

QVariant ObjectsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (isValue(section)) {
        if (role == Qt::DisplayRole)
            return columnTitle(valueOf(section));
        if (role == Qt::AccessibleTextRole)
            return ObjectTexts::name(valueOf(section));
        return role == Qt::ToolTipRole ? QVariant(ObjectTexts::explanation(valueOf(section))) : QVariant();
    }
    if (role == Qt::DisplayRole)
        return section == NAME ? tr("Object") : tr("No.");
    if (role == Qt::ToolTipRole)
        return section == NAME ? tr("The object; its box shows and hides it")
                               : tr("The object's number; drawings of the same number are one object");
    return {};
}

Qt::ItemFlags ObjectsModel::flags(const QModelIndex& index) const
{
    const SceneObject* const object = this->object(index.row());
    if (!object)
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    if (index.column() == NAME)
        flags |= Qt::ItemIsUserCheckable;
    if (isValue(index.column()) && !object->isCutOut())
        flags |= Qt::ItemIsEditable;
    return flags;
}
