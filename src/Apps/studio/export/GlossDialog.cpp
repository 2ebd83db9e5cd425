// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Percents are whole numbers, so that 80 % is the same double as a typed 0.8.
#include "studio/export/GlossDialog.h"

#include "studio/docks/scene/ColourSwatch.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kWhole = 100.0;

class PercentDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant& value, const QLocale& locale) const override
    {
        return GlossDialog::tr("%1 %", "the gloss of a colour").arg(locale.toString(value.toInt()));
    }

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const override
    {
        auto* const field = new QSpinBox(parent);
        field->setRange(0, static_cast<int>(kWhole));
        field->setSingleStep(5);
        field->setFrame(false);
        field->setAccessibleName(GlossDialog::tr("Gloss"));
        return field;
    }
};

} // namespace

GlossDialog::GlossDialog(std::vector<DrawnColour> colours, const GlossSettings& gloss, QWidget* parent)
    : QDialog(parent), _colours(std::move(colours)), _table(new QTableWidget(0, COLUMN_COUNT))
{
    setWindowTitle(tr("Gloss of the Colours"));
    auto* const words = new QLabel(tr("How glossy each colour is: 0 % is dull, 100 % shines like polished metal."));
    words->setWordWrap(true);
    _table->setObjectName(QStringLiteral("glossTable"));
    _table->setAccessibleName(tr("Gloss of the colours"));
    _table->setHorizontalHeaderLabels({tr("Colour"), tr("Gloss")});
    _table->horizontalHeader()->setSectionResizeMode(COLOUR, QHeaderView::Stretch);
    _table->horizontalHeader()->setSectionResizeMode(GLOSS, QHeaderView::ResizeToContents);
    _table->horizontalHeader()->setHighlightSections(false);
    _table->verticalHeader()->hide();
    _table->setItemDelegateForColumn(GLOSS, new PercentDelegate(_table));
    _table->setEditTriggers(QAbstractItemView::AllEditTriggers);
    _table->setSelectionMode(QAbstractItemView::SingleSelection);
    _table->setTabKeyNavigation(false);
    _table->setIconSize(QSize(kColourSwatch, kColourSwatch));
    addRow({}, tr("All other colours"), gloss.others);
    for (const DrawnColour& colour : _colours) {
        const auto set = std::ranges::find_if(
            gloss.colours, [&](const ColourGloss& one) { return one.colour.rgb() == colour.colour.rgb(); });
        addRow(colourSwatch(colour.colour, palette(), devicePixelRatioF()), colour.name,
               set == gloss.colours.end() ? gloss.others : set->gloss);
        _table->item(_table->rowCount() - 1, COLOUR)->setToolTip(colour.colour.name().toUpper());
    }
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    // Qt translates its own text only where its translations are installed.
    buttons->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
    // Enter ends the typing of a number, and another one follows.
    for (QAbstractButton* const button : buttons->buttons())
        qobject_cast<QPushButton*>(button)->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const rows = new QVBoxLayout(this);
    rows->addWidget(words);
    rows->addWidget(_table, 1);
    rows->addWidget(buttons);
    resize(360, 420);
}

void GlossDialog::addRow(const QIcon& swatch, const QString& name, double gloss)
{
    const int row = _table->rowCount();
    _table->insertRow(row);
    auto* const colour = new QTableWidgetItem(swatch, name);
    colour->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    auto* const number = new QTableWidgetItem;
    number->setData(Qt::EditRole, static_cast<int>(std::lround(gloss * kWhole)));
    number->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    _table->setItem(row, COLOUR, colour);
    _table->setItem(row, GLOSS, number);
}

void GlossDialog::accept()
{
    // A number that is being typed counts.
    _table->setCurrentItem(nullptr);
    QDialog::accept();
}

double GlossDialog::glossIn(int row) const
{
    return std::clamp(_table->item(row, GLOSS)->data(Qt::EditRole).toInt() / kWhole, 0.0, 1.0);
}

GlossSettings GlossDialog::gloss() const
{
    GlossSettings gloss;
    gloss.others = glossIn(0);
    for (std::size_t i = 0; i < _colours.size(); ++i)
        if (const double own = glossIn(static_cast<int>(i) + 1); own != gloss.others)
            gloss.colours.push_back({_colours[i].colour, own});
    return gloss;
}
