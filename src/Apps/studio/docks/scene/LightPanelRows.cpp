// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The widgets of the light panel, row by row.
#include "studio/docks/scene/LightNumber.h"
#include "studio/docks/scene/LightPanel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

namespace {

QHBoxLayout* rowOf(QWidget& widget)
{
    auto* const layout = new QHBoxLayout(&widget);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    return layout;
}

} // namespace

QToolButton* LightPanel::addButton(QHBoxLayout& row, const char* name, const QString& text, const QString& toolTip)
{
    auto* const button = new QToolButton;
    button->setObjectName(QLatin1String(name));
    button->setText(text);
    button->setToolTip(toolTip);
    button->setFocusPolicy(Qt::StrongFocus);
    row.addWidget(button);
    return button;
}

QWidget* LightPanel::listRow()
{
    // Two lines, since choice and buttons side by side would make the panel wider than it is on a small screen.
    auto* const row = new QWidget;
    auto* const lines = new QVBoxLayout(row);
    lines->setContentsMargins(0, 0, 0, 0);
    _which = new QComboBox;
    _which->setObjectName(QStringLiteral("lightChoice"));
    _which->setToolTip(tr("Which light is shown below"));
    // A long name is no reason for a wide panel.
    _which->setMinimumContentsLength(8);
    _which->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    lines->addWidget(_which);
    row->setFocusProxy(_which);
    auto* const buttons = new QWidget;
    lines->addWidget(buttons);
    QHBoxLayout& layout = *rowOf(*buttons);
    _add = addButton(layout, "addLight", tr("Add"), tr("Adds a light"));
    _duplicate = addButton(layout, "duplicateLight", tr("Duplicate"), tr("Adds a light like this one, keys included"));
    _remove = addButton(layout, "removeLight", tr("Remove"), tr("Takes this light away"));
    layout.addStretch();
    auto* const presets = new QPushButton(tr("&Presets"));
    presets->setObjectName(QStringLiteral("lightPresets"));
    presets->setToolTip(tr("Replaces these lights by a ready-made set"));
    auto* const menu = new QMenu(presets);
    fillPresets(*menu);
    presets->setMenu(menu);
    layout.addWidget(presets);
    connect(_which, &QComboBox::activated, &_lights, &LightModel::setCurrent);
    connect(_add, &QToolButton::clicked, this, [this] {
        _lights.add({.place = {0.6, 0.4}, .height = 0.6, .colour = QColor(0xff, 0xd9, 0xa0), .intensity = 0.6});
    });
    connect(_duplicate, &QToolButton::clicked, this, [this] { _lights.duplicate(_lights.current()); });
    connect(_remove, &QToolButton::clicked, this, [this] { _lights.remove(_lights.current()); });
    return row;
}

QWidget* LightPanel::switchRow()
{
    auto* const row = new QWidget;
    QHBoxLayout& layout = *rowOf(*row);
    const auto addSwitch = [&](const char* name, const QString& text, const QString& toolTip,
                               bool StudioLight::*member) {
        auto* const box = new QCheckBox(text);
        box->setObjectName(QLatin1String(name));
        box->setToolTip(toolTip);
        layout.addWidget(box);
        connect(box, &QCheckBox::clicked, this, [this, member](bool checked) {
            _lights.endChange();
            changeCurrent([=](StudioLight& light) { light.*member = checked; });
            _lights.endChange();
        });
        return box;
    };
    _on = addSwitch("lightOn", tr("&On"), tr("Whether the light shines"), &StudioLight::on);
    _solo =
        addSwitch("lightSolo", tr("&Solo"), tr("While any light is solo, only solo lights shine"), &StudioLight::solo);
    layout.addStretch();
    _turn = addButton(layout, "turnLight", tr("&Turn"),
                      tr("Moves the light in a circle, to judge the volume; the scene itself does not change"));
    _turn->setCheckable(true);
    connect(_turn, &QToolButton::clicked, &_lights, &LightModel::setTurning);
    return row;
}

QWidget* LightPanel::colourRow(QPushButton*& button, LightKeyButton*& key, const QString& what)
{
    auto* const row = new QWidget;
    QHBoxLayout& layout = *rowOf(*row);
    button = new QPushButton;
    button->setToolTip(what);
    button->setIconSize(QSize(40, 20));
    key = new LightKeyButton(what);
    layout.addWidget(button, 1);
    layout.addWidget(key);
    row->setFocusProxy(button);
    return row;
}

LightNumber* LightPanel::addNumber(QFormLayout& form, const QString& label, const QString& toolTip,
                                   const AT_DoubleAttrMetaContainer& limits)
{
    auto* const row = new LightNumber(QString(label).remove(QLatin1Char('&')), toolTip, limits);
    form.addRow(label, row);
    form.labelForField(row)->setToolTip(toolTip);
    connect(row, &LightNumber::finished, &_lights, &LightModel::endChange);
    return row;
}

LightNumber* LightPanel::addLightNumber(QFormLayout& form, MO_Light::Number which, const QString& label,
                                        const QString& toolTip, double StudioLight::*member)
{
    LightNumber* const row = addNumber(form, label, toolTip, MO_Light().number(which).doubleMeta().container());
    row->setObjectName(QStringLiteral("light") + MO_Light().number(which).keyword());
    connect(row, &LightNumber::changed, this,
            [this, member](double value) { changeCurrent([=](StudioLight& light) { light.*member = value; }); });
    connect(row, &LightNumber::keyClicked, this, [this, which] { _lights.toggleLightKey({which}); });
    _lightNumbers.push_back({row, which, member});
    return row;
}

LightNumber* LightPanel::addCommonNumber(QFormLayout& form, MO_Lighting::Number which, const QString& label,
                                         const QString& toolTip, double MO_LightingValues::*member)
{
    LightNumber* const row = addNumber(form, label, toolTip, MO_Lighting().number(which).doubleMeta().container());
    row->setObjectName(QStringLiteral("lights") + MO_Lighting().number(which).keyword());
    connect(row, &LightNumber::changed, this, [this, member](double value) {
        MO_LightingValues common = _lights.common();
        common.*member = value;
        _lights.setCommon(common);
    });
    connect(row, &LightNumber::keyClicked, this, [this, which] { _lights.toggleCommonKey({which}); });
    _commonNumbers.push_back({row, which, member});
    return row;
}

LightNumber* LightPanel::addPlaceNumber(QFormLayout& form, MO_Light::Number which, const QString& label,
                                        const QString& toolTip, void (QPointF::*set)(qreal))
{
    LightNumber* const row = addNumber(form, label, toolTip, MO_Light().number(which).doubleMeta().container());
    row->setObjectName(QStringLiteral("light") + MO_Light().number(which).keyword());
    connect(row, &LightNumber::changed, this,
            [this, set](double value) { changeCurrent([=](StudioLight& light) { (light.place.*set)(value); }); });
    connect(row, &LightNumber::keyClicked, this, [this, which] { _lights.toggleLightKey({which}); });
    return row;
}

void LightPanel::addLightRows(QFormLayout& form)
{
    form.addRow(tr("&Light"), listRow());
    form.itemAt(0, QFormLayout::LabelRole)->widget()->setToolTip(tr("Which light is shown below"));
    form.addRow(QString(), switchRow());
    addNameRow(form);
    addKindRow(form);
    _x = addPlaceNumber(form, MO_Light::X, tr("&Across"), tr("How far right of the picture's centre the light stands"),
                        &QPointF::setX);
    _y = addPlaceNumber(form, MO_Light::Y, tr("&Up"), tr("How far above the picture's centre the light stands"),
                        &QPointF::setY);
    addLightNumber(form, MO_Light::HEIGHT, tr("&Height"),
                   tr("How high the light hangs over the drawing: low light grazes, high light flattens\n"
                      "(Shift and the wheel over the picture)"),
                   &StudioLight::height);
    _reach = addLightNumber(form, MO_Light::REACH, tr("&Reach"),
                            tr("How far from the point below it a point light is half as bright"), &StudioLight::reach);
    addLightNumber(form, MO_Light::INTENSITY, tr("&Intensity"), tr("How bright the light is"), &StudioLight::intensity);
    form.addRow(tr("&Colour"), colourRow(_colour, _colourKey, tr("The light's colour")));
    _colour->setObjectName(QStringLiteral("lightColour"));
    connect(_colour, &QPushButton::clicked, this, &LightPanel::chooseLightColour);
    connect(_colourKey, &LightKeyButton::clicked, this, [this] {
        _lights.toggleLightKey({MO_Light::RED, MO_Light::GREEN, MO_Light::BLUE});
    });
}

void LightPanel::addNameRow(QFormLayout& form)
{
    _name = new QLineEdit;
    _name->setObjectName(QStringLiteral("lightName"));
    _name->setToolTip(tr("What the light is called"));
    connect(_name, &QLineEdit::editingFinished, this, [this] {
        if (!_name->isModified())
            return;
        _name->setModified(false);
        const QString name = _name->text().trimmed();
        changeCurrent([&](StudioLight& light) { light.name = name; });
        _lights.endChange();
    });
    form.addRow(tr("&Name"), _name);
}

void LightPanel::addKindRow(QFormLayout& form)
{
    _kind = new QComboBox;
    _kind->setObjectName(QStringLiteral("lightKind"));
    _kind->addItems({tr("Directional"), tr("Point")});
    _kind->setToolTip(tr("Directional: as from far away, the same everywhere.\n"
                         "Point: from where the light stands, weaker with the distance"));
    connect(_kind, &QComboBox::activated, this, [this](int index) {
        changeCurrent([=](StudioLight& light) { light.kind = static_cast<MO_LightKind>(index); });
        _lights.endChange();
    });
    form.addRow(tr("&Kind"), _kind);
}

void LightPanel::addCommonRows(QFormLayout& form)
{
    addCommonNumber(form, MO_Lighting::AMBIENT_INTENSITY, tr("A&mbient"),
                    tr("Light from everywhere, which fills the shadows"), &MO_LightingValues::ambientIntensity);
    form.addRow(tr("Am&bient colour"), colourRow(_ambientColour, _ambientKey, tr("The ambient light's colour")));
    _ambientColour->setObjectName(QStringLiteral("ambientColour"));
    connect(_ambientColour, &QPushButton::clicked, this, &LightPanel::chooseAmbientColour);
    connect(_ambientKey, &LightKeyButton::clicked, this, [this] {
        _lights.toggleCommonKey({MO_Lighting::AMBIENT_RED, MO_Lighting::AMBIENT_GREEN, MO_Lighting::AMBIENT_BLUE});
    });
    addCommonNumber(form, MO_Lighting::HIGHLIGHT, tr("Hi&ghlights"), tr("How much the surface gleams"),
                    &MO_LightingValues::highlight);
}
