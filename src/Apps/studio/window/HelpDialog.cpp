// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Only the list that is made from the actions names keys.
#include "studio/window/HelpDialog.h"

#include "studio/window/Shortcuts.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTreeWidget>

HelpDialog::HelpDialog(QMainWindow& window) : QDialog(&window), _window(window), _keys(new QTreeWidget)
{
    setObjectName(QStringLiteral("helpDialog"));
    setWindowTitle(tr("Help"));
    auto* const pages = new QTabWidget;
    pages->addTab(stepsPage(), tr("&First Steps"));
    pages->addTab(keysPage(), tr("&Keys"));
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    // Qt translates its own text only where its translations are installed.
    buttons->button(QDialogButtonBox::Close)->setText(tr("Close"));
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto* const rows = new QVBoxLayout(this);
    rows->addWidget(pages, 1);
    rows->addWidget(buttons);
    resize(560, 660);
    refresh();
}

QString HelpDialog::firstSteps()
{
    return QStringLiteral("<ol><li>%1</li><li>%2</li><li>%3</li><li>%4</li></ol>")
        .arg(tr("<b>Drop a drawing</b> on the window. Its parts become objects, each with a form of its own."),
             tr("<b>Click a part</b> in the picture and pull its handles: bevel, elevation, smoothness, tilt."),
             tr("<b>Drag the light</b> over the picture to judge the volume from all sides."),
             tr("<b>Export</b> the normal map at the drawing's own size."));
}

QWidget* HelpDialog::stepsPage()
{
    auto* const text = new QTextBrowser;
    text->setAccessibleName(tr("First steps"));
    text->setFrameShape(QFrame::NoFrame);
    const QString mouse =
        QStringLiteral("<ul><li>%1</li><li>%2</li><li>%3</li><li>%4</li><li>%5</li></ul>")
            .arg(tr("Click again at the same place to reach the object below."),
                 tr("Drag a rectangle, or hold Shift, to select several; they change together."),
                 tr("The wheel zooms; the middle button pans, and so does the left one with Ctrl."),
                 tr("Hold Shift while a handle is pulled to change finely; Escape takes the pull back."),
                 tr("Hold Shift over the lit picture and turn the wheel to raise and lower the light."));
    const QString words =
        QStringLiteral("<dl><dt><b>%1</b></dt><dd>%2</dd><dt><b>%3</b></dt><dd>%4</dd><dt><b>%5</b></dt><dd>%6</dd>"
                       "<dt><b>%7</b></dt><dd>%8</dd><dt><b>%9</b></dt><dd>%10</dd></dl>")
            .arg(tr("Bevel"),
                 tr("how far the rounding reaches in from the outline, in units of which the picture is "
                    "720 wide"),
                 tr("Elevation"), tr("how high the object rises; 1 is 37.5 of these units, negative values sink in"),
                 tr("Smoothness"), tr("how round the profile is: more is fuller, less is more pointed"), tr("Rim"),
                 tr("the width of a second, narrow bevel at the outline, in the same units; 0 is no rim"), tr("Tilt"),
                 tr("where the object faces, in degrees to the right and upwards; 0, 0 faces the viewer"));
    text->setHtml(QStringLiteral("<h3>%1</h3>%2<h3>%3</h3>%4<h3>%5</h3>%6")
                      .arg(tr("First steps"), firstSteps(), tr("The mouse in the picture"), mouse,
                           tr("What the values mean"), words));
    return text;
}

QWidget* HelpDialog::keysPage()
{
    auto* const page = new QWidget;
    auto* const search = new QLineEdit;
    search->setObjectName(QStringLiteral("helpSearch"));
    search->setPlaceholderText(tr("Search keys"));
    search->setAccessibleName(tr("Search keys"));
    search->setClearButtonEnabled(true);
    _keys->setObjectName(QStringLiteral("helpKeys"));
    _keys->setAccessibleName(tr("Keys"));
    _keys->setHeaderLabels({tr("What it does"), tr("Keys")});
    _keys->setFrameShape(QFrame::NoFrame);
    _keys->header()->setStretchLastSection(false);
    _keys->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    _keys->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    connect(search, &QLineEdit::textChanged, this, &HelpDialog::filter);
    auto* const rows = new QVBoxLayout(page);
    rows->addWidget(search);
    rows->addWidget(_keys, 1);
    return page;
}

void HelpDialog::refresh()
{
    _keys->clear();
    QHash<QString, QTreeWidgetItem*> places;
    for (const Shortcut& shortcut : shortcutsOf(_window)) {
        QTreeWidgetItem*& place = places[shortcut.place];
        if (!place) {
            place = new QTreeWidgetItem(_keys, {shortcut.place});
            place->setFirstColumnSpanned(true);
            QFont bold = font();
            bold.setBold(true);
            place->setFont(0, bold);
        }
        new QTreeWidgetItem(place, {shortcut.text, shortcut.keys});
    }
    _keys->expandAll();
}

void HelpDialog::filter(const QString& words)
{
    for (int i = 0; i < _keys->topLevelItemCount(); ++i) {
        QTreeWidgetItem& place = *_keys->topLevelItem(i);
        bool any = false;
        for (int j = 0; j < place.childCount(); ++j) {
            QTreeWidgetItem& row = *place.child(j);
            const bool isFound =
                row.text(0).contains(words, Qt::CaseInsensitive) || row.text(1).contains(words, Qt::CaseInsensitive);
            row.setHidden(!isFound);
            any = any || isFound;
        }
        place.setHidden(!any);
    }
}
