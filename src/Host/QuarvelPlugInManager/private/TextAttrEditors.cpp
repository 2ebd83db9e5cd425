// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Fields for text.
#include "QuarvelPlugInManager/private/TextAttrEditors.h"

#include "QuarvelSceneCore/attributes/AT_StringAttr.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QToolButton>

namespace {

QHBoxLayout* rowIn(QWidget* editor)
{
    auto* layout = new QHBoxLayout(editor);
    layout->setContentsMargins(0, 0, 0, 0);
    return layout;
}

} // namespace

TextAttrEditor::TextAttrEditor(AT_StringAttr& attr, const AttrEditing& editing, QWidget* parent)
    : AttrEditor(attr, editing, parent), _line(new QLineEdit(this))
{
    QHBoxLayout* const layout = rowIn(this);
    layout->addWidget(_line);
    prepare(*_line);
    connect(_line, &QLineEdit::editingFinished, this, [this] { enterText(_line->text()); });
    if (!attr.isFilePath())
        return;
    auto* look = new QToolButton(this);
    look->setText(QStringLiteral("…"));
    look->setToolTip(QCoreApplication::translate("AttrEditor", "Choose a file"));
    look->setAccessibleName(look->toolTip());
    layout->addWidget(look);
    connect(look, &QToolButton::clicked, this, [this] { chooseFile(); });
}

TextAttrEditor::~TextAttrEditor() = default;

void TextAttrEditor::enterText(const QString& text)
{
    if (auto* const target = attrAs<AT_StringAttr>())
        enter(MO_EditCommand(target->setValueCmd(0.0, text)));
}

void TextAttrEditor::chooseFile()
{
    const QString path = QFileDialog::getOpenFileName(this, QString(), _line->text());
    if (!path.isEmpty())
        enterText(path);
}

void TextAttrEditor::synchronize(double)
{
    // Setting the same text would disturb somebody who is typing.
    const auto* const source = attrAs<AT_StringAttr>();
    if (!source || source->localValue() == _shown)
        return;
    _shown = source->localValue();
    if (_line->text() != _shown)
        _line->setText(_shown);
}

QWidget* TextAttrEditor::field() const
{
    return _line;
}

LongTextAttrEditor::LongTextAttrEditor(AT_StringAttr& attr, const AttrEditing& editing, QWidget* parent)
    : AttrEditor(attr, editing, parent), _text(new QPlainTextEdit(this))
{
    rowIn(this)->addWidget(_text);
    _text->setTabChangesFocus(true);
    prepare(*_text);
}

LongTextAttrEditor::~LongTextAttrEditor() = default;

bool LongTextAttrEditor::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut)
        if (auto* const target = attrAs<AT_StringAttr>())
            enter(MO_EditCommand(target->setValueCmd(0.0, _text->toPlainText())));
    return AttrEditor::eventFilter(watched, event);
}

void LongTextAttrEditor::synchronize(double)
{
    const auto* const source = attrAs<AT_StringAttr>();
    if (!source || source->localValue() == _shown)
        return;
    _shown = source->localValue();
    if (_text->toPlainText() != _shown)
        _text->setPlainText(_shown);
}

QWidget* LongTextAttrEditor::field() const
{
    return _text;
}

ShownAttrEditor::ShownAttrEditor(AT_Attr& attr, const AttrEditing& editing, QWidget* parent)
    : AttrEditor(attr, editing, parent), _text(new QLabel(this))
{
    rowIn(this)->addWidget(_text);
    _text->setTextFormat(Qt::PlainText);
    _text->setTextInteractionFlags(Qt::TextSelectableByMouse);
}

ShownAttrEditor::~ShownAttrEditor() = default;

void ShownAttrEditor::synchronize(double frame)
{
    if (const AT_Attr* const source = attr())
        _text->setText(source->displayText(frame));
}

QWidget* ShownAttrEditor::field() const
{
    return _text;
}
