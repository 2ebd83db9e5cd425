// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
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
    setRange(limitsOf(value).least, limitsOf(value).most);
    setSingleStep(stepOf(value));
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
