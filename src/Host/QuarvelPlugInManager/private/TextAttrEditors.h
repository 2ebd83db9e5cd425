// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The editors of text attributes, and the widget for attributes that have no editor.
#pragma once

#include "QuarvelPlugInManager/private/AttrEditor.h"

class AT_StringAttr;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

/// One line; with a button that chooses a file where the text is a path. The text is entered when Return is pressed or
/// the field is left.
class TextAttrEditor : public AttrEditor
{
public:
    TextAttrEditor(AT_StringAttr& attr, const AttrEditing& editing, QWidget* parent);
    ~TextAttrEditor() override;

    void synchronize(double frame) override;
    QWidget* field() const override;

private:
    void enterText(const QString& text);
    void chooseFile();

    QLineEdit* _line;
    QString _shown; ///< the value
};

/// Several lines. The text is entered when the field is left.
class LongTextAttrEditor : public AttrEditor
{
public:
    LongTextAttrEditor(AT_StringAttr& attr, const AttrEditing& editing, QWidget* parent);
    ~LongTextAttrEditor() override;

    void synchronize(double frame) override;
    QWidget* field() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPlainTextEdit* _text;
    QString _shown; ///< the value
};

/// Shows the text of any attribute.
class ShownAttrEditor : public AttrEditor
{
public:
    ShownAttrEditor(AT_Attr& attr, const AttrEditing& editing, QWidget* parent);
    ~ShownAttrEditor() override;

    void synchronize(double frame) override;
    QWidget* field() const override;

private:
    QLabel* _text;
};
