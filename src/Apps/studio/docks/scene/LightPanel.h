// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LightPanel: the scene's lights: which there are, what each of them is, and what all have in common. The wheel over
// the panel scrolls it and changes nothing.
#pragma once

#include "studio/preview/LightModel.h"

#include <QWidget>

#include <functional>

class LightKeyButton;
class LightNumber;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QHBoxLayout;
class QLineEdit;
class QMenu;
class QPushButton;
class QToolButton;

class LightPanel : public QWidget
{
    Q_OBJECT

public:
    explicit LightPanel(LightModel& lights, QWidget* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QWidget* listRow();
    QWidget* switchRow();
    QWidget* colourRow(QPushButton*& button, LightKeyButton*& key, const QString& what);
    QToolButton* addButton(QHBoxLayout& row, const char* name, const QString& text, const QString& toolTip);
    LightNumber* addNumber(QFormLayout& form, const QString& label, const QString& toolTip,
                           const AT_DoubleAttrMetaContainer& limits);
    LightNumber* addLightNumber(QFormLayout& form, MO_Light::Number which, const QString& label, const QString& toolTip,
                                double StudioLight::*member);
    LightNumber* addPlaceNumber(QFormLayout& form, MO_Light::Number which, const QString& label, const QString& toolTip,
                                void (QPointF::*set)(qreal));
    LightNumber* addCommonNumber(QFormLayout& form, MO_Lighting::Number which, const QString& label,
                                 const QString& toolTip, double MO_LightingValues::*member);
    void addLightRows(QFormLayout& form);
    void addNameRow(QFormLayout& form);
    void addKindRow(QFormLayout& form);
    void addCommonRows(QFormLayout& form);
    void fillPresets(QMenu& menu);
    StudioLight currentLight() const;
    void changeCurrent(const std::function<void(StudioLight&)>& change);
    void chooseLightColour();
    void chooseAmbientColour();
    void chooseColour(const QString& title, const QColor& before, const std::function<void(const QColor&)>& set);
    void refill();
    void showColour(QPushButton& button, const QColor& colour) const;

    struct ShownLightNumber
    {
        LightNumber* row;
        MO_Light::Number which;
        double StudioLight::*member;
    };
    struct ShownCommonNumber
    {
        LightNumber* row;
        MO_Lighting::Number which;
        double MO_LightingValues::*member;
    };

    LightModel& _lights;
    bool _showing = false;
    QComboBox* _which = nullptr;
    QToolButton* _add = nullptr;
    QToolButton* _duplicate = nullptr;
    QToolButton* _remove = nullptr;
    QLineEdit* _name = nullptr;
    QComboBox* _kind = nullptr;
    QCheckBox* _on = nullptr;
    QCheckBox* _solo = nullptr;
    QToolButton* _turn = nullptr;
    LightNumber* _x = nullptr;
    LightNumber* _y = nullptr;
    LightNumber* _reach = nullptr;
    QPushButton* _colour = nullptr;
    LightKeyButton* _colourKey = nullptr;
    QPushButton* _ambientColour = nullptr;
    LightKeyButton* _ambientKey = nullptr;
    std::vector<ShownLightNumber> _lightNumbers;
    std::vector<ShownCommonNumber> _commonNumbers;
};
