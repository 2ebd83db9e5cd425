// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The slider and the spin box, which follow each other.
#include "editors/SliderSpinBoxCombo.h"

#include <QHBoxLayout>
#include <QSlider>
#include <QSpinBox>

#include <algorithm>
#include <cstdint>

namespace {

/// A level in percent, rounded towards zero and clamped. Tables in files may hold any level.
int toPercent(int level)
{
    const std::int64_t percent = std::int64_t{level} * 100 / 255;
    return static_cast<int>(std::clamp<std::int64_t>(percent, 0, 100));
}

int toLevel(int percent)
{
    return percent * 255 / 100;
}

} // namespace

SliderSpinBoxCombo::SliderSpinBoxCombo(Callback* callbackArg, int idArg, int value)
    : callback(callbackArg), slider(nullptr), spinBox(nullptr), id(idArg)
{
    const int percent = toPercent(value);
    auto* layout = new QHBoxLayout;
    layout->setContentsMargins(2, 2, 2, 2);

    slider = new QSlider;
    slider->setRange(0, 100);
    slider->setValue(percent);
    slider->setOrientation(Qt::Horizontal);
    slider->setTickPosition(QSlider::TicksBothSides);
    slider->setTickInterval(20);

    spinBox = new QSpinBox;
    spinBox->setRange(0, 100);
    spinBox->setValue(percent);

    layout->addWidget(slider);
    layout->addWidget(spinBox);
    setLayout(layout);

    connect(slider, SIGNAL(sliderMoved(int)), this, SLOT(onSliderMoved(int)));
    connect(slider, SIGNAL(sliderReleased()), this, SLOT(onSliderReleased()));
    connect(spinBox, SIGNAL(valueChanged(int)), this, SLOT(onSpinBoxChanged(int)));
}

SliderSpinBoxCombo::~SliderSpinBoxCombo() = default;

void SliderSpinBoxCombo::onSliderMoved(int value)
{
    spinBox->blockSignals(true);
    spinBox->setValue(value);
    // Stays blocked: after a drag the spin box only displays.
    spinBox->blockSignals(true);
}

void SliderSpinBoxCombo::onSliderReleased()
{
    report();
}

void SliderSpinBoxCombo::onSpinBoxChanged(int value)
{
    slider->blockSignals(true);
    slider->setValue(value);
    slider->blockSignals(false);
    report();
}

void SliderSpinBoxCombo::report()
{
    if (callback)
        callback->valueChanged(id, toLevel(slider->value()));
}
