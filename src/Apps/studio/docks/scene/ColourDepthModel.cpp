// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// While the rows are the same colours, only their contents are told anew, so that a drag goes on and the view keeps its
// place.
#include "studio/docks/scene/ColourDepthModel.h"

#include "studio/docks/scene/ColourSwatch.h"
#include "studio/docks/scene/PaletteView.h"
#include "studio/objects/ObjectChanges.h"

#include <QGuiApplication>

#include <algorithm>

ColourDepthModel::ColourDepthModel(StudioDocument& document, QObject* parent)
    : QAbstractTableModel(parent), _document(document), _together([](int row) { return QList<int>{row}; })
{
    connect(&document, &StudioDocument::sceneReplaced, this, &ColourDepthModel::reread);
    connect(&document, &StudioDocument::sceneChanged, this, &ColourDepthModel::reread);
    connect(&document, &StudioDocument::edited, this, &ColourDepthModel::reread);
    connect(&document, &StudioDocument::selectionChanged, this, &ColourDepthModel::reread);
    reread();
}

void ColourDepthModel::reread()
{
    MO_Module* const node = this->node();
    std::vector<ColourDepth> colours = node ? colourDepthsOf(_document.scene(), *node) : std::vector<ColourDepth>();
    if (std::ranges::equal(colours, _colours, {}, &ColourDepth::id, &ColourDepth::id)) {
        _colours = std::move(colours);
        if (!_colours.empty())
            Q_EMIT dataChanged(index(0, 0), index(static_cast<int>(_colours.size()) - 1, COLUMN_COUNT - 1));
        return;
    }
    beginResetModel();
    _colours = std::move(colours);
    endResetModel();
}

const ColourDepth* ColourDepthModel::colour(int row) const
{
    return row >= 0 && row < rowCount() ? &_colours[static_cast<std::size_t>(row)] : nullptr;
}

int ColourDepthModel::nearestRow(const QColor& seen) const
{
    const auto distance = [&](const ColourDepth& each) {
        const int red = each.colour.red() - seen.red();
        const int green = each.colour.green() - seen.green();
        const int blue = each.colour.blue() - seen.blue();
        return red * red + green * green + blue * blue;
    };
    int nearest = -1;
    for (int row = 0; row < rowCount(); ++row)
        if (colour(row)->colour.isValid() && (nearest < 0 || distance(*colour(row)) < distance(*colour(nearest))))
            nearest = row;
    return nearest;
}

DepthHint ColourDepthModel::whyUnseen(int row) const
{
    const MO_Module* const node = this->node();
    return node && colour(row) ? whyDepthIsUnseen(_document, *node, *colour(row)) : DepthHint();
}

void ColourDepthModel::makeSeen(int row)
{
    const DepthHint hint = whyUnseen(row);
    if (!hint.object)
        return;
    finishChange();
    _document.execute(changeValueCmd({*hint.object}, ObjectValue::BEVEL, _document.currentFrame(),
                                     [&](const SceneObject&) { return hint.bevel; }));
    finishChange();
}

void ColourDepthModel::changeOn(int row, std::optional<int> depth)
{
    MO_Module* const node = this->node();
    if (!node || !colour(row))
        return;
    // The row that is taken hold of gives the change its name.
    std::vector<ColourDepth> colours{*colour(row)};
    for (const int other : _together(row))
        if (other != row && colour(other))
            colours.push_back(*colour(other));
    _document.execute(setDepthsCmd(*node, colours, depth));
}

int ColourDepthModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(_colours.size());
}

int ColourDepthModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : COLUMN_COUNT;
}

QVariant ColourDepthModel::data(const QModelIndex& index, int role) const
{
    const ColourDepth* const colour = this->colour(index.row());
    if (!colour)
        return {};
    return index.column() == NAME ? nameData(*colour, role) : depthData(*colour, role);
}

QVariant ColourDepthModel::nameData(const ColourDepth& colour, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return colour.name;
    case Qt::DecorationRole:
        return colourSwatch(colour.colour.isValid() ? colour.colour : QColor(Qt::transparent), qGuiApp->palette(),
                            qGuiApp->devicePixelRatio());
    case Qt::CheckStateRole:
        return colour.depth ? Qt::Checked : Qt::Unchecked;
    case Qt::ToolTipRole:
        return colour.colour.isValid() ? tr("%1, %2: has a depth of its own when the box is ticked")
                                             .arg(colour.name, colour.colour.name().toUpper())
                                       : tr("%1: a colour that is in no palette any more").arg(colour.name);
    default:
        return {};
    }
}

QVariant ColourDepthModel::depthData(const ColourDepth& colour, int role)
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return colour.depth ? QString::number(*colour.depth) : QStringLiteral("\u2013");
    case Qt::EditRole:
        return colour.depth.value_or(kAddedDepth);
    case Qt::ToolTipRole:
        return tr("0 carves fully, 255 adds fully to the volume; without a number, the object's own level applies");
    default:
        return {};
    }
}

bool ColourDepthModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!colour(index.row()))
        return false;
    std::optional<int> depth;
    if (index.column() == NAME && role == Qt::CheckStateRole) {
        if (value.toInt() == Qt::Checked)
            depth = kAddedDepth;
    } else if (index.column() == DEPTH && role == Qt::EditRole) {
        depth = std::clamp(value.toInt(), kCarvedDepth, kAddedDepth);
    } else {
        return false;
    }
    finishChange();
    changeOn(index.row(), depth);
    finishChange();
    return true;
}

QVariant ColourDepthModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::DisplayRole)
        return section == NAME ? tr("Colour") : tr("Carved \u2013 Added");
    if (role == Qt::ToolTipRole)
        return section == NAME ? tr("The colours of the drawing; those with a tick have a depth of their own")
                               : tr("How deep a colour lies: drag the slider, or double-click the number");
    return {};
}

Qt::ItemFlags ColourDepthModel::flags(const QModelIndex& index) const
{
    if (!colour(index.row()))
        return Qt::NoItemFlags;
    const Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    return flags | (index.column() == NAME ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}
