// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Palettes are never changed in place, so comparing the objects tells whether anything is new.
#include "studio/docks/scene/PaletteView.h"

#include "QuarvelCelCore/CELVEC_Kvd.h"
#include "QuarvelSceneCore/editing/MO_PaletteCommands.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "studio/docks/scene/ColourSwatch.h"

#include <QBoxLayout>
#include <QColorDialog>
#include <QHeaderView>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <QTreeWidget>

#include <functional>
#include <set>

namespace {

constexpr int kNameColumn = 0;
constexpr int kValueColumn = 1;
// Of a row's value: whether no shape is painted in it, because pictures have pixels of their own.
constexpr int kIsOfPixels = Qt::UserRole;

using Colours = std::set<std::pair<const CM_Palette*, CM_ColorId_t>>;

// The colours that pictures have and no other shape has.
Colours coloursOfPixels(const MO_Scene& scene)
{
    Colours ofPixels;
    Colours painted;
    scene.root().forEachModule([&](const MO_Module& module) {
        const auto* const element = dynamic_cast<const MO_ElementModule*>(&module);
        if (!element)
            return;
        for (const auto& [name, drawing] : element->drawings())
            for (const GR_Art art : kGR_allArts)
                if (drawing)
                    for (const CELVEC_Shape& shape : drawing->shapes(art))
                        (shape.picture.isNull() ? painted : ofPixels).emplace(drawing->palette().get(), shape.color);
    });
    std::erase_if(ofPixels, [&](const auto& colour) { return painted.contains(colour); });
    return ofPixels;
}

// A swatch that is clicked twice asks for another colour; the name and the value beside it are typed.
class RowDelegate : public QStyledItemDelegate
{
public:
    RowDelegate(std::function<void()> pick, QObject* parent) : QStyledItemDelegate(parent), _pick(std::move(pick)) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        if (index.column() == kValueColumn && index.data(kIsOfPixels).toBool())
            return nullptr;
        return QStyledItemDelegate::createEditor(parent, option, index);
    }

    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override
    {
        const bool isTwice = event->type() == QEvent::MouseButtonDblClick;
        const bool isClick = isTwice || event->type() == QEvent::MouseButtonRelease;
        if (!isClick || !swatchRect(option, index).contains(static_cast<QMouseEvent*>(event)->position().toPoint()))
            return QStyledItemDelegate::editorEvent(event, model, option, index);
        if (isTwice)
            _pick();
        return true;
    }

private:
    QRect swatchRect(QStyleOptionViewItem option, const QModelIndex& index) const
    {
        initStyleOption(&option, index);
        if (option.icon.isNull())
            return {};
        return option.widget->style()->subElementRect(QStyle::SE_ItemViewItemDecoration, &option, option.widget);
    }

    std::function<void()> _pick;
};

} // namespace

PaletteView::PaletteView(StudioDocument& document, QWidget* parent)
    : QWidget(parent), _document(document), _tree(new QTreeWidget), _pick(new QPushButton(tr("Change Colour\u2026")))
{
    setObjectName(QStringLiteral("Palette"));
    _tree->setObjectName(QStringLiteral("PaletteTree"));
    _tree->setAccessibleName(tr("Palettes"));
    _tree->setHeaderLabels({tr("Name"), tr("Colour")});
    _tree->setIconSize(QSize(kColourSwatch, kColourSwatch));
    _tree->setFrameShape(QFrame::NoFrame);
    _tree->setEditTriggers(QTreeWidget::DoubleClicked | QTreeWidget::EditKeyPressed | QTreeWidget::SelectedClicked);
    _tree->header()->setStretchLastSection(false);
    _tree->header()->setSectionResizeMode(kNameColumn, QHeaderView::Stretch);
    _tree->header()->setSectionResizeMode(kValueColumn, QHeaderView::ResizeToContents);
    // The tree is still at work on the click.
    const auto pickSoon = [this] { QMetaObject::invokeMethod(this, &PaletteView::pickColor, Qt::QueuedConnection); };
    _tree->setItemDelegate(new RowDelegate(pickSoon, _tree));
    _pick->setObjectName(QStringLiteral("PickColor"));
    _pick->setToolTip(tr("Choose another value for the selected colour"));

    auto* bar = new QHBoxLayout;
    bar->setContentsMargins(8, 6, 8, 6);
    bar->addStretch();
    bar->addWidget(_pick);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(_tree, 1);
    rows->addLayout(bar);
    setFocusProxy(_tree);

    connect(_tree, &QTreeWidget::itemChanged, this, &PaletteView::takeEdit);
    connect(_tree, &QTreeWidget::currentItemChanged, this, &PaletteView::showWhatCanBePicked);
    connect(_pick, &QPushButton::clicked, this, &PaletteView::pickColor);
    connect(&_document, &StudioDocument::sceneReplaced, this, &PaletteView::rebuild);
    connect(&_document, &StudioDocument::sceneChanged, this, &PaletteView::refresh);
    connect(&_document, &StudioDocument::edited, this, &PaletteView::refresh);
    rebuild();
}

QString PaletteView::colorText(const CM_Rgba& color)
{
    const QString text = toQColor(color).name(QColor::HexRgb).toUpper();
    return color.alpha == 255 ? text : text + QStringLiteral("%1").arg(color.alpha, 2, 16, QLatin1Char('0')).toUpper();
}

QColor PaletteView::parseColor(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("^#?([0-9a-fA-F]{6})([0-9a-fA-F]{2})?$"));
    const auto match = form.match(text.trimmed());
    if (!match.hasMatch())
        return {};
    QColor color(QLatin1Char('#') + match.captured(1));
    if (match.capturedLength(2) > 0)
        color.setAlpha(match.captured(2).toInt(nullptr, 16));
    return color;
}

void PaletteView::refresh()
{
    if (!_taking && _document.scene().palettes() != _shown)
        rebuild();
}

void PaletteView::rebuild()
{
    const QTreeWidgetItem* const current = _tree->currentItem();
    const Row before = rowOf(current);
    const int column = _tree->currentColumn();
    _editable = false;
    _tree->clear();
    _shown = _document.scene().palettes();
    const Colours ofPixels = coloursOfPixels(_document.scene());
    for (const CM_SharedPtr<CM_Palette>& palette : _shown) {
        auto* top = new QTreeWidgetItem(_tree, {palette->GetName().ToQString()});
        top->setFlags(top->flags() | Qt::ItemIsEditable);
        for (const auto& color : palette->colors()) {
            auto* row =
                new QTreeWidgetItem(top, {color->GetColorName().ToQString(), colorText(color->GetNominalColor())});
            row->setFlags(row->flags() | Qt::ItemIsEditable);
            row->setIcon(kNameColumn,
                         colourSwatch(toQColor(color->GetNominalColor()), this->palette(), devicePixelRatioF()));
            if (ofPixels.contains({palette.get(), color->GetColorId()})) {
                row->setData(kValueColumn, kIsOfPixels, true);
                for (const int each : {kNameColumn, kValueColumn})
                    row->setToolTip(each, tr("Stands for pixels of a bitmap, which keep their own colours"));
            }
            if (before.palette && before.palette->GetId() == palette->GetId() && before.color == color->GetColorId())
                _tree->setCurrentItem(row, column);
        }
        if (before.palette && before.palette->GetId() == palette->GetId() && before.color.isNull())
            _tree->setCurrentItem(top, column);
        top->setExpanded(true);
    }
    _editable = true;
    showWhatCanBePicked();
}

PaletteView::Row PaletteView::rowOf(const QTreeWidgetItem* item) const
{
    const QTreeWidgetItem* const top = item && item->parent() ? item->parent() : item;
    const int index = top ? _tree->indexOfTopLevelItem(const_cast<QTreeWidgetItem*>(top)) : -1;
    if (index < 0 || index >= static_cast<int>(_shown.size()))
        return {};
    const CM_SharedPtr<CM_Palette>& palette = _shown[static_cast<std::size_t>(index)];
    if (item == top)
        return {palette, {}};
    const auto place = static_cast<std::size_t>(top->indexOfChild(const_cast<QTreeWidgetItem*>(item)));
    return {palette, palette->colors()[place]->GetColorId()};
}

void PaletteView::showWhatCanBePicked()
{
    const Row row = rowOf(_tree->currentItem());
    _pick->setEnabled(row.palette && !row.color.isNull() &&
                      !_tree->currentItem()->data(kValueColumn, kIsOfPixels).toBool());
}

void PaletteView::takeEdit(QTreeWidgetItem* item, int column)
{
    const Row row = rowOf(item);
    if (!_editable || !row.palette)
        return;
    // The tree is made anew either way, but not while it is still at work on this item.
    const QScopedValueRollback taking(_taking, true);
    QMetaObject::invokeMethod(this, &PaletteView::rebuild, Qt::QueuedConnection);
    const QString text = item->text(column);
    MO_EditCommand command;
    if (column == kValueColumn && !row.color.isNull()) {
        const QColor color = parseColor(text);
        if (!color.isValid())
            Q_EMIT refused(tr("\"%1\" is not a colour; write it as #RRGGBB or #RRGGBBAA").arg(text));
        else
            return recolor(row.palette, row.color, color);
    } else if (column == kNameColumn && !text.trimmed().isEmpty()) {
        command = row.color.isNull() ? MO_renamePaletteCmd(_document.scene(), row.palette, text)
                                     : MO_renameColorCmd(_document.scene(), row.palette, row.color, text);
    }
    _document.execute(std::move(command));
}

void PaletteView::recolor(const CM_SharedPtr<CM_Palette>& palette, const CM_ColorId_t& id, const QColor& color)
{
    const auto channel = [](int value) { return static_cast<std::uint8_t>(value); };
    const CM_Rgba rgba{channel(color.red()), channel(color.green()), channel(color.blue()), channel(color.alpha())};
    _document.execute(MO_recolorCmd(_document.scene(), palette, id, rgba));
}

void PaletteView::pickColor()
{
    const Row row = rowOf(_tree->currentItem());
    const auto color = row.palette ? row.palette->findColor(row.color) : nullptr;
    if (!color || !_pick->isEnabled())
        return;
    auto* dialog = new QColorDialog(toQColor(color->GetNominalColor()), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(tr("Colour \"%1\"").arg(color->GetColorName().ToQString()));
    dialog->setOption(QColorDialog::ShowAlphaChannel);
    connect(dialog, &QColorDialog::colorSelected, this, [this, row](const QColor& chosen) {
        // The palette may have been changed while the dialogue was open.
        for (const CM_SharedPtr<CM_Palette>& palette : _document.scene().palettes())
            if (palette->GetId() == row.palette->GetId())
                return recolor(palette, row.color, chosen);
    });
    dialog->open();
}
