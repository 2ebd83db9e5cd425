// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// GlossDialog: sets how glossy each colour of the drawing is, for masks of gloss.
#pragma once

#include "studio/export/GlossColours.h"

#include <QDialog>

class QTableWidget;

/// A table of the colours. Its first row stands for all colours that it does not list.
class GlossDialog : public QDialog
{
    Q_OBJECT

public:
    enum Column
    {
        COLOUR,
        GLOSS, ///< in percent
        COLUMN_COUNT
    };

    GlossDialog(std::vector<DrawnColour> colours, const GlossSettings& gloss, QWidget* parent = nullptr);

    /// The gloss of the colours and of others. Colours that are as glossy as the others are not listed.
    GlossSettings gloss() const;
    QTableWidget& table() const { return *_table; }

    void accept() override;

private:
    void addRow(const QIcon& swatch, const QString& name, double gloss);
    double glossIn(int row) const;

    std::vector<DrawnColour> _colours;
    QTableWidget* _table;
};
