// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PaletteView: the scene's palettes with their colours: swatch, name, and the colour as people write it (#RRGGBB, and
// #RRGGBBAA for one that is not opaque).
#pragma once

#include "QuarvelGraphicCore/CM_Palette.h"
#include "studio/document/StudioDocument.h"

#include <QWidget>

class QTreeWidget;
class QTreeWidgetItem;
class QPushButton;

/// The contents of the dock "Palette".
class PaletteView : public QWidget
{
    Q_OBJECT

public:
    explicit PaletteView(StudioDocument& document, QWidget* parent = nullptr);

    QTreeWidget& tree() const { return *_tree; }
    /// Gives a colour another value, as the colour dialogue does.
    void recolor(const CM_SharedPtr<CM_Palette>& palette, const CM_ColorId_t& id, const QColor& color);
    /// Opens the colour dialogue for the current row.
    void pickColor();

    /// How a colour is written.
    static QString colorText(const CM_Rgba& color);
    /// Reads what colorText() writes, upper or lower case, with or without "#"; invalid for anything else.
    static QColor parseColor(const QString& text);

Q_SIGNALS:
    /// The entered text was refused; the text says why.
    void refused(const QString& why);

private:
    struct Row
    {
        CM_SharedPtr<CM_Palette> palette;
        CM_ColorId_t color; // null for the palette's own row
    };

    void refresh();
    void rebuild();
    void takeEdit(QTreeWidgetItem* item, int column);
    Row rowOf(const QTreeWidgetItem* item) const;
    void showWhatCanBePicked();

    StudioDocument& _document;
    QTreeWidget* _tree;
    QPushButton* _pick;
    std::vector<CM_SharedPtr<CM_Palette>> _shown;
    bool _taking = false;   // while a row that was edited is read
    bool _editable = false; // false while the view itself fills the tree
};
