// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ValueField: the field for a value of objects, in the bar and in the table. It does not show insignificant digits, and
// ignores the wheel without the focus, so that the surrounding view scrolls.
#pragma once

#include "studio/objects/ObjectValues.h"

#include <QDoubleSpinBox>

/// A field with the range and the step of a value.
class ValueField : public QDoubleSpinBox
{
    Q_OBJECT

public:
    explicit ValueField(ObjectValue value, QWidget* parent = nullptr);

    QString textFromValue(double value) const override;

protected:
    void wheelEvent(QWheelEvent* event) override;
};
