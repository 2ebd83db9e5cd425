// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The editor is the host's panel; only the header is this view's own, in place of the panel's.
#include "studio/docks/scene/PropertiesView.h"

#include "QuarvelPlugInManager/PLUG_EditorPanel.h"
#include "QuarvelSceneCore/editing/MO_ModuleCommands.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyle>
#include <QTableView>

#include <algorithm>

namespace {

// The normal-map node's own editor of its colour table, in place of which the window has ColourDepthView.
const QString kColourTableEditor = QStringLiteral("VallorinVolumetricColorDefinition");

// The most width that an editor gets without scrolling sideways: half of the narrowest screen, because the picture is
// to be the larger part.
constexpr int kMostWidth = 508;
const QString kWidestNumber = QStringLiteral("000,00");
// Of frames and groups around a table.
constexpr int kAroundTables = 48;

// Makes the columns as wide as their titles and contents, also when the editor fills its table anew; the last one takes
// the rest.
//
// @return the width of a table that shows all of them in full
int fitColumns(QTableView& table)
{
    QHeaderView& header = *table.horizontalHeader();
    // Editors may say of their cells how high they are and nothing of how wide. Numbers with a comma would break there.
    table.setWordWrap(false);
    const int cellMargin = table.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &table) + 1;
    header.setMinimumSectionSize(table.fontMetrics().horizontalAdvance(kWidestNumber) + 2 * cellMargin + 1);
    header.setSectionResizeMode(QHeaderView::ResizeToContents);
    int width = table.verticalHeader()->isHidden() ? 0 : table.verticalHeader()->sizeHint().width();
    for (int column = 0; column < header.count(); ++column)
        width += std::max(header.sectionSize(column), header.sectionSizeHint(column));
    return width + table.verticalScrollBar()->sizeHint().width() + 2 * table.frameWidth();
}

} // namespace

PropertiesView::PropertiesView(StudioDocument& document, QWidget* parent)
    : QWidget(parent)
    , _document(document)
    , _head(new QWidget)
    , _name(new QLineEdit)
    , _kind(new QLabel)
    , _hint(new QLabel(tr("Select a node to see its properties.")))
    , _enabled(new QCheckBox(tr("Enabled")))
    , _panel(new PLUG_EditorPanel(&document.commands()))
{
    setObjectName(QStringLiteral("Properties"));
    _name->setObjectName(QStringLiteral("PropertiesName"));
    _name->setAccessibleName(tr("Name"));
    _name->setToolTip(tr("The node's name; no two nodes of a scene have the same"));
    _enabled->setObjectName(QStringLiteral("PropertiesEnabled"));
    _enabled->setToolTip(tr("A node that is not enabled passes on its first input"));
    _kind->setTextFormat(Qt::PlainText);
    _hint->setWordWrap(true);
    _hint->setMargin(12);
    _hint->setAlignment(Qt::AlignTop);
    _panel->setHeaderVisible(false);
    _panel->setLeftOut({kColourTableEditor});

    auto* head = new QGridLayout(_head);
    head->setContentsMargins(9, 8, 9, 6);
    head->addWidget(_name, 0, 0, 1, 2);
    head->addWidget(_kind, 1, 0);
    head->addWidget(_enabled, 1, 1, Qt::AlignRight);
    head->setColumnStretch(0, 1);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(_head);
    rows->addWidget(_hint, 1);
    rows->addWidget(_panel, 1);

    connect(_name, &QLineEdit::editingFinished, this, &PropertiesView::takeName);
    connect(_enabled, &QCheckBox::toggled, this, &PropertiesView::takeEnabled);
    connect(_panel, &PLUG_EditorPanel::commandFailed, this, &PropertiesView::commandFailed);
    connect(&_document, &StudioDocument::selectionChanged, this, &PropertiesView::follow);
    connect(&_document, &StudioDocument::sceneReplaced, this, &PropertiesView::follow);
    connect(&_document, &StudioDocument::sceneChanged, this, &PropertiesView::synchronize);
    connect(&_document, &StudioDocument::edited, this, &PropertiesView::synchronize);
    follow();
}

PropertiesView::~PropertiesView() = default;

void PropertiesView::follow()
{
    MO_Module* const current = _document.currentModule();
    if (current != _shown || _panel->module() != current) {
        _shown = current;
        // A name that was being typed was meant for the other node.
        _name->setModified(false);
        _panel->setModule(current);
        makeRoom();
    }
    _head->setVisible(current != nullptr);
    _panel->setVisible(current != nullptr);
    _hint->setVisible(current == nullptr);
    synchronize();
}

// The editor is as wide as its fields and tables need.
void PropertiesView::makeRoom()
{
    const QWidget* const content = _panel->content();
    if (!content)
        return setMinimumWidth(0);
    int width = content->minimumSizeHint().width();
    for (QTableView* const table : content->findChildren<QTableView*>())
        width = std::max(width, fitColumns(*table) + kAroundTables);
    setMinimumWidth(std::min(width + style()->pixelMetric(QStyle::PM_ScrollBarExtent), kMostWidth));
}

void PropertiesView::synchronize()
{
    const MO_Module* const module = _document.currentModule();
    if (!module)
        return;
    const QSignalBlocker quietName(_name);
    const QSignalBlocker quietEnabled(_enabled);
    if (!_name->hasFocus() || !_name->isModified())
        _name->setText(module->instanceName());
    _kind->setText(module->baseDisplayName());
    _enabled->setChecked(module->enabled());
}

void PropertiesView::takeName()
{
    MO_Module* const module = _document.currentModule();
    const QString name = _name->text().trimmed();
    const bool isNew = _name->isModified() && !name.isEmpty();
    _name->setModified(false);
    if (module && isNew)
        _document.execute(MO_renameCmd(*module, name));
    synchronize();
}

void PropertiesView::takeEnabled(bool enabled)
{
    if (MO_Module* const module = _document.currentModule())
        _document.execute(MO_enableCmd({module}, enabled));
}
