// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The ranges are wide, so that they only exclude typing errors.
#include "studio/objects/ValueField.h"

#include <QWheelEvent>

ValueField::ValueField(ObjectValue value, QWidget* parent) : QDoubleSpinBox(parent)
{
    setDecimals(4);
    setKeyboardTracking(false);
    setFocusPolicy(Qt::StrongFocus);
    setAccelerated(true);
    setToolTip(ObjectTexts::explanation(value));
    setAccessibleName(ObjectTexts::name(value));
    const ValueRange range = rangeOf(value);
    setRange(range.least, range.most);
    setSingleStep(range.step);
}

QString ValueField::textFromValue(double value) const
{
    return ObjectTexts::number(value);
}

void ValueField::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QDoubleSpinBox::wheelEvent(event);
    else
        event->ignore();
}
