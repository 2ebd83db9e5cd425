// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The editors of attributes that are texts, and the widget for those that nobody can edit here.
#pragma once

#include "QuarvelPlugInManager/private/AttrEditor.h"

class AT_StringAttr;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

/// One line; with a button that looks for a file where the text is the path of one. The text counts when Return is
/// pressed or the field is left.
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

/// Several lines. The text counts when the field is left.
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
