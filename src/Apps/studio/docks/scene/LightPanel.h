// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LightPanel: the lights in numbers: place, height, colour and intensity of each, and what all have in common.
#pragma once

#include "studio/preview/LightModel.h"

#include <QWidget>

#include <functional>

class QComboBox;
class QDoubleSpinBox;
class QFormLayout;
class QPushButton;
class QSlider;
class QToolButton;

class LightPanel : public QWidget
{
    Q_OBJECT

public:
    explicit LightPanel(LightModel& lights, QWidget* parent = nullptr);

private:
    using Change = std::function<void(StudioLight& light, double value)>;

    // A number with a slider beside it.
    struct Number
    {
        QSlider* slider = nullptr;
        QDoubleSpinBox* box = nullptr;
    };

    QWidget* lightRow();
    Number addNumber(QFormLayout& form, const QString& label, const QString& toolTip, double low, double high,
                     const std::function<void(double)>& set);
    std::function<void(double)> changeOfCurrent(const Change& change);
    void chooseColour();
    void refill();
    void show(const Number& number, double value);

    LightModel& _lights;
    bool _showing = false;
    QComboBox* _which = nullptr;
    QToolButton* _add = nullptr;
    QToolButton* _remove = nullptr;
    QPushButton* _colour = nullptr;
    Number _x;
    Number _y;
    Number _height;
    Number _intensity;
    Number _ambient;
    Number _highlight;
};
