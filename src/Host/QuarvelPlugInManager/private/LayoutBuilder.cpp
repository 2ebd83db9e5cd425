// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Elements to widgets.
#include "QuarvelPlugInManager/private/LayoutBuilder.h"

#include "QuarvelPlugInManager/PLUG_EditorWidgets.h"
#include "QuarvelSceneCore/graph/MO_Node.h"
#include "QuarvelSceneCore/graph/MO_NodeEditorComponentInterface.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace {

QGridLayout* gridIn(QWidget* widget)
{
    auto* grid = new QGridLayout(widget);
    grid->setColumnStretch(1, 1);
    return grid;
}

} // namespace

LayoutBuilder::LayoutBuilder(MO_Node& node, const AttrEditing& editing, const PLUG_EditorWidgets* widgets,
                             const QStringList& leftOut)
    : _node(node), _editing(editing), _widgets(widgets), _leftOut(leftOut)
{}

BuiltEditor LayoutBuilder::build(const QDomElement& layout, QWidget* parent)
{
    _built = {};
    _built.content = new QWidget(parent);
    auto* rows = new QVBoxLayout(_built.content);
    auto* grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    rows->addLayout(grid);
    rows->addStretch();
    if (layout.tagName() == QLatin1String("layout")) {
        _context = layout.attribute(QStringLiteral("context")).toUtf8();
        addChildren(layout, grid);
    } else {
        for (AT_Attr* const attr : _node.attrs())
            addAttr(*attr, grid);
    }
    alignLabels();
    return std::move(_built);
}

void LayoutBuilder::addChildren(const QDomElement& element, QGridLayout* grid)
{
    for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
        const QString tag = child.tagName();
        if (tag == QLatin1String("group"))
            addGroup(child, grid);
        else if (tag == QLatin1String("row"))
            addRow(child, grid);
        else if (tag == QLatin1String("custom"))
            addCustom(child, grid);
        else if (tag == QLatin1String("text"))
            addText(child, grid);
        else if (tag != QLatin1String("attr"))
            _built.warnings.append(
                QStringLiteral("the editor layout has an element <%1>, which is not known").arg(tag));
        else if (AT_Attr* const attr = attrOf(child))
            addAttr(*attr, grid);
    }
}

void LayoutBuilder::addGroup(const QDomElement& element, QGridLayout* grid)
{
    auto* box = new QGroupBox(translated(element.attribute(QStringLiteral("title"))), grid->parentWidget());
    grid->addWidget(box, grid->rowCount(), 0, 1, -1);
    addChildren(element, gridIn(box));
}

void LayoutBuilder::addRow(const QDomElement& element, QGridLayout* grid)
{
    auto* row = new QWidget(grid->parentWidget());
    auto* fields = new QHBoxLayout(row);
    fields->setContentsMargins(0, 0, 0, 0);
    for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
        auto* cell = new QWidget(row);
        gridIn(cell)->setContentsMargins(0, 0, 0, 0);
        fields->addWidget(cell);
        // Labels inside a row are not aligned with the first column.
        const std::vector<QLabel*> labels = _labels;
        QDomElement alone = element.cloneNode(false).toElement();
        alone.appendChild(child.cloneNode(true));
        addChildren(alone, qobject_cast<QGridLayout*>(cell->layout()));
        _labels = labels;
    }
    grid->addWidget(row, grid->rowCount(), 0, 1, -1);
}

void LayoutBuilder::addAttr(AT_Attr& attr, QGridLayout* grid)
{
    QWidget* const parent = grid->parentWidget();
    const int row = grid->rowCount();
    AttrEditor* const field = makeField(attr, parent);
    grid->addWidget(field, row, 1);
    if (field->showsLabel())
        return;
    QLabel* const label = makeLabel(attr.label(), parent);
    label->setBuddy(field->field());
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    grid->addWidget(label, row, 0);
    _labels.push_back(label);
}

AttrEditor* LayoutBuilder::makeField(AT_Attr& attr, QWidget* parent)
{
    AttrEditor* const field = AttrEditor::make(attr, _editing, parent);
    _built.fields.push_back(field);
    return field;
}

QLabel* LayoutBuilder::makeLabel(const QString& label, QWidget* parent) const
{
    auto* shown = new QLabel(parent);
    shown->setTextFormat(Qt::PlainText);
    shown->setText(label);
    return shown;
}

void LayoutBuilder::addCustom(const QDomElement& element, QGridLayout* grid)
{
    const QString type = element.attribute(QStringLiteral("type"));
    if (_leftOut.contains(type))
        return;
    QWidget* const parent = grid->parentWidget();
    QWidget* const widget =
        _widgets ? _widgets->create(type, parent, element.attribute(QStringLiteral("name"))) : nullptr;
    if (!widget) {
        _built.warnings.append(
            QStringLiteral("the editor layout asks for a widget of type %1, which no plug-in makes").arg(type));
        return;
    }
    const bool namesAttr = element.hasAttribute(QStringLiteral("attr"));
    const AT_Attr* const attr = namesAttr ? _node.findAttr(element.attribute(QStringLiteral("attr"))) : nullptr;
    if (attr) {
        QLabel* const label = makeLabel(attr->label(), parent);
        grid->addWidget(label, grid->rowCount(), 0, 1, -1);
        // Who cannot see the label above a table hears it with the table.
        for (QAbstractItemView* const table : widget->findChildren<QAbstractItemView*>())
            if (table->accessibleName().isEmpty())
                table->setAccessibleName(attr->label());
    }
    grid->addWidget(widget, grid->rowCount(), 0, 1, -1);
    for (MO_NodeEditorComponentInterface* const component : widget->findChildren<MO_NodeEditorComponentInterface*>())
        _built.components.push_back({component, attr ? attr->keyword() : QString()});
}

void LayoutBuilder::addText(const QDomElement& element, QGridLayout* grid)
{
    QLabel* const remark = makeLabel(translated(element.text()), grid->parentWidget());
    remark->setWordWrap(true);
    grid->addWidget(remark, grid->rowCount(), 0, 1, -1);
}

AT_Attr* LayoutBuilder::attrOf(const QDomElement& element)
{
    const QString key = element.attribute(QStringLiteral("name"));
    AT_Attr* const attr = _node.findAttr(key);
    if (!attr)
        _built.warnings.append(
            QStringLiteral("the editor layout names an attribute %1, which the node does not have").arg(key));
    return attr;
}

QString LayoutBuilder::translated(const QString& text) const
{
    return _context.isEmpty() ? text : QCoreApplication::translate(_context.constData(), text.toUtf8().constData());
}

void LayoutBuilder::alignLabels() const
{
    int width = 0;
    for (const QLabel* const label : _labels)
        width = std::max(width, label->sizeHint().width());
    for (QLabel* const label : _labels)
        label->setMinimumWidth(width);
}
