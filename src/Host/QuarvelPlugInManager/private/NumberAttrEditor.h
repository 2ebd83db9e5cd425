// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// NumberAttrEditor: a number as a slider, a field with the unit, and a button for the key at the frame.
//
// The slider offers the range that the attribute's metadata names, in steps of its step; a drag is one change to undo.
// The field takes every value within the limits and shows as many decimals as the value has.
#pragma once

#include "QuarvelPlugInManager/private/AttrEditor.h"

class AT_AnimatableAttr;
class AT_DoubleAttr;
class AT_IntAttr;
class KeyButton;
class QDoubleSpinBox;
class QSlider;

/// The editor of numbers, integers or not.
class NumberAttrEditor : public AttrEditor
{
public:
    NumberAttrEditor(AT_DoubleAttr& attr, const AttrEditing& editing, QWidget* parent);
    NumberAttrEditor(AT_IntAttr& attr, const AttrEditing& editing, QWidget* parent);
    ~NumberAttrEditor() override;

    void synchronize(double frame) override;
    QWidget* field() const override;

private:
    /// The range of the slider, and the step.
    struct Range
    {
        double sliderLower;
        double sliderUpper;
        double step;
    };

    void build(const AT_AnimatableAttr& attr, const Range& range);
    void buildSlider(const QString& label);
    void enterNumber(double value);
    void toggleKey();
    MO_EditCommand changeCmd(double value) const;
    int sliderPosition(double value) const;
    double sliderValue(int position) const;

    Range _range{};
    double _frame = 0.0;
    QSlider* _slider = nullptr; ///< null where the range is too wide for one
    QDoubleSpinBox* _field = nullptr;
    KeyButton* _key = nullptr; ///< null where there are no frames
};
