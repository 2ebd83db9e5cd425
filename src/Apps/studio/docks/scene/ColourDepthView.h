// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ColourDepthView: how deep each colour of the drawing lies, in the table of the normal-map node: a swatch, the name, a
// slider that the picture follows, and the number. It is the studio's own editor of what other hosts edit with the
// node's.
//
//   drag in a row          sets the depth of its colour, or of all selected ones when it is one of them
//   left, right            by one; with Shift by sixteen
//   double click, F2       types the number
//   box                    gives the colour a depth of its own, or takes it away
//   Pick from Picture      the next click in the picture selects the colour that is seen there
//
// Where the depth of the current colour cannot be seen, the panel says why; where a lower bevel would show it, a button
// sets that.
#pragma once

#include "studio/docks/scene/ColourDepthModel.h"

#include <QTimer>
#include <QWidget>

class QLabel;
class QLineEdit;
class QMouseEvent;
class QPushButton;
class QSortFilterProxyModel;
class QTableView;

/// The contents of the dock "Depth by Colour". Must not outlive the document.
class ColourDepthView : public QWidget
{
    Q_OBJECT

public:
    explicit ColourDepthView(StudioDocument& document, QWidget* parent = nullptr);
    ~ColourDepthView() override;

    QTableView& table() const { return *_table; }
    QLineEdit& search() const { return *_search; }
    QPushButton& pickButton() const { return *_pick; }
    /// Where the slider of a row has a depth, in the coordinates of the table's viewport.
    QPoint sliderPlace(const QModelIndex& index, int depth) const;

    /// Ends picking, and selects the row of the colour that was picked; an invalid one was given up.
    void takePicked(const QColor& colour);

Q_SIGNALS:
    /// A colour is to be picked in the picture, or none any more.
    void pickWanted(bool wanted);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeTable();
    void makeHint(const StudioDocument& document);
    void showHint();
    int modelRow() const;
    QList<int> rowsTogether(int row) const;
    bool press(const QMouseEvent& event);
    void dragTo(const QPoint& place);
    bool step(int key, bool far);
    void endDrag();

    ColourDepthModel* _model;
    QSortFilterProxyModel* _found;
    QLineEdit* _search;
    QPushButton* _pick;
    QTableView* _table;
    QLabel* _hint;                  ///< why the depth of the current row cannot be seen; hidden where it can
    QPushButton* _lowerBevel;       ///< does what the hint says; hidden where it says nothing of a bevel
    QTimer _rest;                   ///< runs out when nothing has changed for a moment
    QPersistentModelIndex _dragged; ///< of the model, in the column of depths
};
