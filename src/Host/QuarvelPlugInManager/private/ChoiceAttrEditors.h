// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The editors of attributes with a few possible values: a check box for truth values, a list for enumerations.
#pragma once

#include "QuarvelPlugInManager/private/AttrEditor.h"

class AT_BoolAttr;
class AT_EnumAttrBase;
class QCheckBox;
class QComboBox;

/// A check box with the attribute's label.
class BoolAttrEditor : public AttrEditor
{
public:
    BoolAttrEditor(AT_BoolAttr& attr, const AttrEditing& editing, QWidget* parent);
    ~BoolAttrEditor() override;

    void synchronize(double frame) override;
    bool showsLabel() const override { return true; }
    QWidget* field() const override;

private:
    QCheckBox* _box;
};

/// A list of the values' labels. Values kept for old files are listed only while the attribute has them.
class EnumAttrEditor : public AttrEditor
{
public:
    EnumAttrEditor(AT_EnumAttrBase& attr, const AttrEditing& editing, QWidget* parent);
    ~EnumAttrEditor() override;

    void synchronize(double frame) override;
    QWidget* field() const override;

private:
    void fill(const AT_EnumAttrBase& attr, int value);

    QComboBox* _list;
};
