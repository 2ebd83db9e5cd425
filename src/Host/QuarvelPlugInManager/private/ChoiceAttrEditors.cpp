// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Check boxes and lists.
#include "QuarvelPlugInManager/private/ChoiceAttrEditors.h"

#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_EnumAttrBase.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QSignalBlocker>

namespace {

/// A label as a button's text, in which no character makes a shortcut.
QString withoutShortcut(QString label)
{
    return label.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

} // namespace

BoolAttrEditor::BoolAttrEditor(AT_BoolAttr& attr, const AttrEditing& editing, QWidget* parent)
    : AttrEditor(attr, editing, parent), _box(new QCheckBox(withoutShortcut(attr.label()), this))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(_box);
    layout->addStretch();
    prepare(*_box);
    connect(_box, &QCheckBox::clicked, this, [this](bool checked) {
        if (auto* const target = attrAs<AT_BoolAttr>())
            enter(MO_EditCommand(target->setValueCmd(0.0, checked)));
    });
}

BoolAttrEditor::~BoolAttrEditor() = default;

void BoolAttrEditor::synchronize(double frame)
{
    if (const auto* const source = attrAs<AT_BoolAttr>())
        _box->setChecked(source->value(frame));
    followSurrogate();
}

QWidget* BoolAttrEditor::field() const
{
    return _box;
}

EnumAttrEditor::EnumAttrEditor(AT_EnumAttrBase& attr, const AttrEditing& editing, QWidget* parent)
    : AttrEditor(attr, editing, parent), _list(new QComboBox(this))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(_list);
    layout->addStretch();
    prepare(*_list);
    fill(attr, attr.localInt());
    connect(_list, &QComboBox::activated, this, [this](int row) {
        if (auto* const target = attrAs<AT_EnumAttrBase>())
            enter(MO_EditCommand(target->setIntCmd(0.0, _list->itemData(row).toInt())));
    });
}

EnumAttrEditor::~EnumAttrEditor() = default;

void EnumAttrEditor::fill(const AT_EnumAttrBase& attr, int value)
{
    const QSignalBlocker blocker(_list);
    _list->clear();
    const auto [begin, end] = attr.values();
    for (auto row = begin; row != end; ++row)
        if (!row->second.flag || row->first == value)
            _list->addItem(row->second.label, row->first);
}

void EnumAttrEditor::synchronize(double frame)
{
    if (const auto* const source = attrAs<AT_EnumAttrBase>()) {
        const int value = source->effectiveInt(frame);
        if (_list->findData(value) < 0)
            fill(*source, value);
        // A value that is not in the table selects nothing.
        _list->setCurrentIndex(_list->findData(value));
    }
    followSurrogate();
}

QWidget* EnumAttrEditor::field() const
{
    return _list;
}
