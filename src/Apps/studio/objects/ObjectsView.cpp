// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The search filters the model; the selection is that of the document.
#include "studio/objects/ObjectsView.h"

#include "studio/objects/ObjectActions.h"
#include "studio/objects/ObjectsModel.h"
#include "studio/objects/ValueField.h"

#include <QBoxLayout>
#include <QEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QStyledItemDelegate>
#include <QTableView>

#include <algorithm>

namespace {

constexpr int kRowHeight = 34;
constexpr int kSideMargins = 12;

class ValueDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const override
    {
        if (!ObjectsModel::isValue(index.column()))
            return nullptr;
        auto* const field = new ValueField(ObjectsModel::valueOf(index.column()), parent);
        field->setFrame(false);
        field->setButtonSymbols(QAbstractSpinBox::NoButtons);
        return field;
    }
};

} // namespace

ObjectsView::ObjectsView(DocumentObjects& objects, ObjectActions& actions, QWidget* parent)
    : QWidget(parent)
    , _objects(objects)
    , _actions(actions)
    , _model(new ObjectsModel(objects, this))
    , _found(new QSortFilterProxyModel(this))
    , _search(new QLineEdit)
    , _table(new QTableView)
{
    setObjectName(QStringLiteral("Objects"));
    _search->setObjectName(QStringLiteral("ObjectsSearch"));
    _search->setPlaceholderText(tr("Search objects"));
    _search->setAccessibleName(tr("Search objects"));
    _search->setToolTip(tr("Shows only the objects whose names hold this text"));
    _search->setClearButtonEnabled(true);
    _found->setSourceModel(_model);
    _found->setFilterKeyColumn(ObjectsModel::NAME);
    _found->setFilterCaseSensitivity(Qt::CaseInsensitive);
    makeTable();

    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(6, 6, 6, 0);
    rows->setSpacing(6);
    rows->addWidget(_search);
    rows->addWidget(_table, 1);
    setFocusProxy(_table);
    _actions.addKeysTo(*_table);

    connect(_search, &QLineEdit::textChanged, this, [this](const QString& text) {
        // Rows that appear and disappear during typing must not change the selection.
        _synchronizing = true;
        _found->setFilterFixedString(text);
        _synchronizing = false;
        showSelection();
    });
    connect(&objects, &DocumentObjects::changed, this, &ObjectsView::showSelection);
    connect(_table->selectionModel(), &QItemSelectionModel::selectionChanged, this, &ObjectsView::takeSelection);
    connect(_table, &QTableView::entered, this, &ObjectsView::showHovered);
    connect(_table, &QTableView::customContextMenuRequested, this, &ObjectsView::showMenu);
    showSelection();
}

ObjectsView::~ObjectsView() = default;

void ObjectsView::makeTable()
{
    _table->setObjectName(QStringLiteral("ObjectsTable"));
    _table->setAccessibleName(tr("Objects"));
    _table->setModel(_found);
    _table->setItemDelegate(new ValueDelegate(_table));
    _table->setSelectionBehavior(QAbstractItemView::SelectRows);
    _table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    _table->setFrameShape(QFrame::NoFrame);
    _table->setShowGrid(false);
    _table->setAlternatingRowColors(true);
    _table->setIconSize(QSize(ObjectsModel::kThumbnail, ObjectsModel::kThumbnail));
    _table->setMouseTracking(true);
    _table->setTabKeyNavigation(false);
    _table->setWordWrap(false);
    _table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    _table->setContextMenuPolicy(Qt::CustomContextMenu);
    _table->verticalHeader()->hide();
    _table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    _table->verticalHeader()->setDefaultSectionSize(kRowHeight);
    QHeaderView* const header = _table->horizontalHeader();
    header->setHighlightSections(false);
    // Titles are wider than numbers, and eight columns are seen beside the picture on a small screen.
    QFont small = header->font();
    small.setPointSizeF(0.88 * small.pointSizeF());
    header->setFont(small);
    header->setMinimumSectionSize(32);
    // The columns are as wide as their titles and contents; the names take the rest.
    for (int column = 0; column < ObjectsModel::COLUMN_COUNT; ++column)
        header->setSectionResizeMode(column, column == ObjectsModel::NAME ? QHeaderView::Stretch
                                                                          : QHeaderView::ResizeToContents);
    _table->viewport()->installEventFilter(this);
    // All columns are always seen.
    constexpr int kNameWidth = 156;
    int width = kNameWidth + _table->verticalScrollBar()->sizeHint().width() + kSideMargins;
    for (int column = ObjectsModel::NUMBER; column < ObjectsModel::COLUMN_COUNT; ++column)
        width += std::max(header->sectionSizeHint(column), header->minimumSectionSize());
    setMinimumWidth(width);
}

QModelIndex ObjectsView::indexOf(const SceneObject& object) const
{
    for (int row = 0; row < _model->rowCount(); ++row)
        if (isSame(*_model->object(row), object))
            return _found->mapFromSource(_model->index(row, ObjectsModel::NAME));
    return {};
}

void ObjectsView::takeSelection()
{
    if (_synchronizing)
        return;
    // The current row comes last, so that its object is the current one.
    std::vector<SceneObject> chosen;
    const SceneObject* const current = _model->object(_found->mapToSource(_table->currentIndex()).row());
    for (const QModelIndex& index : _table->selectionModel()->selectedRows())
        if (const SceneObject* const object = _model->object(_found->mapToSource(index).row()); object != current)
            chosen.push_back(*object);
    if (current && _table->selectionModel()->isRowSelected(_table->currentIndex().row()))
        chosen.push_back(*current);
    _objects.select(chosen);
}

void ObjectsView::showSelection()
{
    if (_synchronizing)
        return;
    _synchronizing = true;
    QItemSelection rows;
    QModelIndex last;
    for (const SceneObject& object : _objects.selected())
        if (const QModelIndex index = indexOf(object); index.isValid()) {
            rows.select(index, index.siblingAtColumn(ObjectsModel::COLUMN_COUNT - 1));
            last = index;
        }
    QItemSelectionModel& selection = *_table->selectionModel();
    QItemSelection now = selection.selection();
    const bool isSame = now.indexes().size() == rows.indexes().size() &&
                        std::ranges::all_of(rows.indexes(), [&](const QModelIndex& one) { return now.contains(one); });
    if (!isSame) {
        selection.select(rows, QItemSelectionModel::ClearAndSelect);
        if (last.isValid()) {
            selection.setCurrentIndex(last, QItemSelectionModel::NoUpdate);
            _table->scrollTo(last);
        }
    }
    _synchronizing = false;
}

void ObjectsView::showHovered(const QModelIndex& index)
{
    _objects.setHovered(_model->object(_found->mapToSource(index).row()));
}

bool ObjectsView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Leave)
        _objects.setHovered(nullptr);
    return QWidget::eventFilter(watched, event);
}

void ObjectsView::showMenu(const QPoint& place)
{
    auto* const menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("objectsMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    _actions.fillMenu(*menu);
    menu->popup(_table->viewport()->mapToGlobal(place));
}
