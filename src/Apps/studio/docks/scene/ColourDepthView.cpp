// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The mouse is followed here and not in the delegate, which hears nothing of a mouse that has left the row.
#include "studio/docks/scene/ColourDepthView.h"

#include "studio/docks/scene/ColourDepthDelegate.h"
#include "studio/docks/scene/ColourSwatch.h"
#include "studio/objects/ObjectValues.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QTableView>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kRowHeight = 30;
constexpr int kFarStep = 16;
constexpr int kRest = 200; // milliseconds

} // namespace

ColourDepthView::ColourDepthView(StudioDocument& document, QWidget* parent)
    : QWidget(parent)
    , _model(new ColourDepthModel(document, this))
    , _found(new QSortFilterProxyModel(this))
    , _search(new QLineEdit)
    , _pick(new QPushButton(tr("&Pick from Picture")))
    , _table(new QTableView)
    , _hint(new QLabel)
    , _lowerBevel(new QPushButton)
{
    setObjectName(QStringLiteral("ColourDepths"));
    _search->setObjectName(QStringLiteral("ColourDepthsSearch"));
    _search->setPlaceholderText(tr("Search colours"));
    _search->setAccessibleName(tr("Search colours"));
    _search->setToolTip(tr("Shows only the colours whose names hold this text"));
    _search->setClearButtonEnabled(true);
    _pick->setObjectName(QStringLiteral("ColourDepthsPick"));
    _pick->setCheckable(true);
    _pick->setToolTip(tr("The next click in the picture selects the colour that is seen there"));
    _found->setSourceModel(_model);
    _found->setFilterKeyColumn(ColourDepthModel::NAME);
    _found->setFilterCaseSensitivity(Qt::CaseInsensitive);
    makeTable();
    makeHint(document);

    auto* const bar = new QHBoxLayout;
    bar->addWidget(_search, 1);
    bar->addWidget(_pick);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(6, 6, 6, 0);
    rows->setSpacing(6);
    rows->addLayout(bar);
    rows->addWidget(_table, 1);
    rows->addWidget(_hint);
    rows->addWidget(_lowerBevel, 0, Qt::AlignLeft);
    setFocusProxy(_table);

    _model->setTogether([this](int row) { return rowsTogether(row); });
    connect(_search, &QLineEdit::textChanged, _found, &QSortFilterProxyModel::setFilterFixedString);
    connect(_pick, &QPushButton::toggled, this, &ColourDepthView::pickWanted);
}

ColourDepthView::~ColourDepthView() = default;

void ColourDepthView::makeTable()
{
    _table->setObjectName(QStringLiteral("ColourDepthsTable"));
    _table->setAccessibleName(tr("Depth by colour"));
    _table->setModel(_found);
    _table->setItemDelegateForColumn(ColourDepthModel::DEPTH, new ColourDepthDelegate(_table));
    _table->setSelectionBehavior(QAbstractItemView::SelectRows);
    _table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    _table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    _table->setFrameShape(QFrame::NoFrame);
    _table->setShowGrid(false);
    _table->setAlternatingRowColors(true);
    _table->setIconSize(QSize(kColourSwatch, kColourSwatch));
    _table->setTabKeyNavigation(false);
    _table->setWordWrap(false);
    _table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    _table->verticalHeader()->hide();
    _table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    _table->verticalHeader()->setDefaultSectionSize(kRowHeight);
    _table->horizontalHeader()->setHighlightSections(false);
    _table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    _table->viewport()->installEventFilter(this);
    _table->installEventFilter(this);
}

void ColourDepthView::makeHint(const StudioDocument& document)
{
    _hint->setObjectName(QStringLiteral("ColourDepthsHint"));
    _hint->setWordWrap(true);
    _hint->setMargin(4);
    _hint->hide();
    _lowerBevel->setObjectName(QStringLiteral("ColourDepthsLowerBevel"));
    _lowerBevel->setAccessibleName(tr("Lower Bevel"));
    _lowerBevel->setToolTip(tr("Gives the object a bevel that is narrow enough for this depth to show"));
    _lowerBevel->hide();
    connect(_lowerBevel, &QPushButton::clicked, this, [this] { _model->makeSeen(modelRow()); });
    _rest.setSingleShot(true);
    _rest.setInterval(kRest);
    const auto wait = [this] { _rest.start(); };
    connect(_model, &QAbstractItemModel::dataChanged, this, wait);
    connect(_model, &QAbstractItemModel::modelReset, this, wait);
    connect(_table->selectionModel(), &QItemSelectionModel::currentChanged, this, wait);
    connect(&document, &StudioDocument::currentFrameChanged, this, wait);
    connect(&_rest, &QTimer::timeout, this, &ColourDepthView::showHint);
}

void ColourDepthView::showHint()
{
    // Looking through all drawings takes time that a drag does not have.
    if (_dragged.isValid())
        return _rest.start();
    const DepthHint hint = _model->whyUnseen(modelRow());
    _hint->setText(hint.text);
    _hint->setVisible(!hint.text.isEmpty());
    if (hint.object)
        _lowerBevel->setText(tr("&Lower Bevel to %1").arg(ObjectTexts::number(hint.bevel)));
    _lowerBevel->setVisible(hint.object.has_value());
}

int ColourDepthView::modelRow() const
{
    return _found->mapToSource(_table->currentIndex()).row();
}

QPoint ColourDepthView::sliderPlace(const QModelIndex& index, int depth) const
{
    const QRect cell = _table->visualRect(index.siblingAtColumn(ColourDepthModel::DEPTH));
    return {static_cast<int>(std::lround(ColourDepthDelegate::handlePlace(cell, depth))), cell.center().y()};
}

QList<int> ColourDepthView::rowsTogether(int row) const
{
    QList<int> rows;
    for (const QModelIndex& index : _table->selectionModel()->selectedRows())
        rows << _found->mapToSource(index).row();
    return rows.contains(row) ? rows : QList<int>{row};
}

void ColourDepthView::takePicked(const QColor& colour)
{
    _pick->setChecked(false);
    const int row = colour.isValid() ? _model->nearestRow(colour) : -1;
    if (row < 0)
        return;
    // A colour that the search hides could not be seen.
    if (!_found->mapFromSource(_model->index(row, 0)).isValid())
        _search->clear();
    const QModelIndex index = _found->mapFromSource(_model->index(row, ColourDepthModel::DEPTH));
    _table->setCurrentIndex(index);
    _table->scrollTo(index);
    _table->setFocus();
}

bool ColourDepthView::press(const QMouseEvent& event)
{
    const QPoint place = event.position().toPoint();
    const QModelIndex index = _table->indexAt(place);
    // With Shift and Ctrl, rows are selected wherever they are clicked.
    if (event.button() != Qt::LeftButton || event.modifiers() != Qt::NoModifier || !index.isValid() ||
        index.column() != ColourDepthModel::DEPTH ||
        !ColourDepthDelegate::sliderRect(_table->visualRect(index)).contains(place))
        return false;
    _table->setFocus(Qt::MouseFocusReason);
    if (!_table->selectionModel()->isRowSelected(index.row()))
        _table->setCurrentIndex(index);
    else
        _table->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    _model->finishChange();
    _dragged = _found->mapToSource(index);
    dragTo(place);
    return true;
}

void ColourDepthView::dragTo(const QPoint& place)
{
    const QRect cell = _table->visualRect(_found->mapFromSource(_dragged));
    if (!cell.isEmpty())
        _model->changeOn(_dragged.row(), ColourDepthDelegate::depthAt(cell, place.x()));
}

void ColourDepthView::endDrag()
{
    _dragged = QPersistentModelIndex();
    _model->finishChange();
}

bool ColourDepthView::step(int key, bool far)
{
    const int row = modelRow();
    const ColourDepth* const colour = _model->colour(row);
    if (!colour || (key != Qt::Key_Left && key != Qt::Key_Right))
        return false;
    const int by = (far ? kFarStep : 1) * (key == Qt::Key_Left ? -1 : 1);
    _model->changeOn(row, std::clamp(colour->depth.value_or(kAddedDepth) + by, kCarvedDepth, kAddedDepth));
    return true;
}

bool ColourDepthView::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return watched == _table->viewport() && press(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseMove:
        if (watched != _table->viewport() || !_dragged.isValid())
            return false;
        dragTo(static_cast<QMouseEvent*>(event)->position().toPoint());
        return true;
    case QEvent::MouseButtonRelease:
        if (watched != _table->viewport() || !_dragged.isValid())
            return false;
        endDrag();
        return true;
    case QEvent::MouseButtonDblClick:
        // On the slider the second click of two is one like the first.
        return watched == _table->viewport() && press(*static_cast<QMouseEvent*>(event));
    case QEvent::KeyPress: {
        const auto* const key = static_cast<QKeyEvent*>(event);
        return watched == _table && step(key->key(), key->modifiers().testFlag(Qt::ShiftModifier));
    }
    case QEvent::KeyRelease:
        // A key that is held down makes one step of the history.
        if (watched == _table && !static_cast<QKeyEvent*>(event)->isAutoRepeat())
            _model->finishChange();
        return false;
    default:
        return false;
    }
}
