// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The panel holds no values of its own: it shows the model's, and every change goes there.
#include "studio/docks/scene/LightPanel.h"

#include <QColorDialog>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QFrame>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSlider>
#include <QToolButton>

#include <cmath>

namespace {

constexpr double kSliderSteps = 100.0;

QIcon swatch(const QColor& colour, const QPalette& palette)
{
    QPixmap pixmap(40, 20);
    pixmap.setDevicePixelRatio(1.0);
    pixmap.fill(colour);
    QPainter painter(&pixmap);
    painter.setPen(palette.color(QPalette::Mid));
    painter.drawRect(0, 0, 39, 19);
    return pixmap;
}

QFrame* line()
{
    auto* const made = new QFrame;
    made->setFrameShape(QFrame::HLine);
    made->setFrameShadow(QFrame::Sunken);
    return made;
}

} // namespace

LightPanel::LightPanel(LightModel& lights, QWidget* parent) : QWidget(parent), _lights(lights)
{
    auto* const form = new QFormLayout(this);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->addRow(tr("&Light"), lightRow());
    form->itemAt(0, QFormLayout::LabelRole)->widget()->setToolTip(tr("Which light is shown below"));

    const auto ofCurrent = [this](const Change& change) { return changeOfCurrent(change); };
    _x = addNumber(*form, tr("&Across"), tr("How far right of the picture's centre the light stands"), -2.0, 2.0,
                   ofCurrent([](StudioLight& light, double value) { light.place.setX(value); }));
    _y = addNumber(*form, tr("&Up"), tr("How far above the picture's centre the light stands"), -2.0, 2.0,
                   ofCurrent([](StudioLight& light, double value) { light.place.setY(value); }));
    _height = addNumber(*form, tr("&Height"),
                        tr("How high the light hangs over the drawing: low light grazes, high light flattens\n"
                           "(Shift and the wheel over the picture)"),
                        StudioLight::kLowest, StudioLight::kHighest,
                        ofCurrent([](StudioLight& light, double value) { light.height = value; }));
    _intensity = addNumber(*form, tr("&Intensity"), tr("How bright the light is"), 0.0, StudioLight::kBrightest,
                           ofCurrent([](StudioLight& light, double value) { light.intensity = value; }));
    _colour = new QPushButton;
    _colour->setObjectName(QStringLiteral("lightColour"));
    _colour->setToolTip(tr("The light's colour"));
    _colour->setIconSize(QSize(40, 20));
    connect(_colour, &QPushButton::clicked, this, &LightPanel::chooseColour);
    form->addRow(tr("&Colour"), _colour);

    form->addRow(line());
    _ambient = addNumber(*form, tr("A&mbient"), tr("Light from everywhere, which fills the shadows"), 0.0, 1.0,
                         [this](double value) { _lights.setAmbient(value); });
    _highlight = addNumber(*form, tr("Hi&ghlights"), tr("How much the surface gleams"), 0.0, 1.0,
                           [this](double value) { _lights.setHighlight(value); });
    auto* const reset = new QPushButton(tr("&Reset lights"));
    reset->setToolTip(tr("Back to one white light from the upper left"));
    connect(reset, &QPushButton::clicked, &_lights, &LightModel::reset);
    form->addRow(QString(), reset);

    connect(&lights, &LightModel::changed, this, &LightPanel::refill);
    connect(&lights, &LightModel::currentChanged, this, &LightPanel::refill);
    refill();
}

QWidget* LightPanel::lightRow()
{
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    _which = new QComboBox;
    _which->setObjectName(QStringLiteral("lightChoice"));
    _which->setToolTip(tr("Which light is shown below"));
    _add = new QToolButton;
    _add->setObjectName(QStringLiteral("addLight"));
    _add->setText(tr("Add"));
    _add->setToolTip(tr("Adds a light"));
    _remove = new QToolButton;
    _remove->setObjectName(QStringLiteral("removeLight"));
    _remove->setText(tr("Remove"));
    _remove->setToolTip(tr("Takes this light away"));
    for (QToolButton* const button : {_add, _remove})
        button->setFocusPolicy(Qt::StrongFocus);
    layout->addWidget(_which, 1);
    layout->addWidget(_add);
    layout->addWidget(_remove);
    row->setFocusProxy(_which);
    connect(_which, &QComboBox::activated, &_lights, &LightModel::setCurrent);
    connect(_add, &QToolButton::clicked, this, [this] {
        _lights.add({.place = {0.6, 0.4}, .height = 0.6, .colour = QColor(0xff, 0xd9, 0xa0), .intensity = 0.6});
    });
    connect(_remove, &QToolButton::clicked, this, [this] { _lights.remove(_lights.current()); });
    return row;
}

LightPanel::Number LightPanel::addNumber(QFormLayout& form, const QString& label, const QString& toolTip, double low,
                                         double high, const std::function<void(double)>& set)
{
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    Number number{new QSlider(Qt::Horizontal), new QDoubleSpinBox};
    number.slider->setRange(static_cast<int>(std::lround(low * kSliderSteps)),
                            static_cast<int>(std::lround(high * kSliderSteps)));
    number.slider->setToolTip(toolTip);
    number.slider->setMinimumWidth(60);
    number.box->setRange(low, high);
    number.box->setSingleStep(0.05);
    number.box->setDecimals(2);
    number.box->setToolTip(toolTip);
    layout->addWidget(number.slider, 1);
    layout->addWidget(number.box);
    row->setFocusProxy(number.box);
    form.addRow(label, row);
    form.labelForField(row)->setToolTip(toolTip);
    connect(number.slider, &QSlider::valueChanged, this, [this, set](int value) {
        if (!_showing)
            set(value / kSliderSteps);
    });
    connect(number.box, &QDoubleSpinBox::valueChanged, this, [this, set](double value) {
        if (!_showing)
            set(value);
    });
    return number;
}

std::function<void(double)> LightPanel::changeOfCurrent(const Change& change)
{
    return [this, change](double value) {
        StudioLight light = _lights.lights().at(static_cast<std::size_t>(_lights.current()));
        change(light, value);
        _lights.setLight(_lights.current(), light);
    };
}

void LightPanel::chooseColour()
{
    const int index = _lights.current();
    const StudioLight before = _lights.lights().at(static_cast<std::size_t>(index));
    QColorDialog dialog(before.colour, this);
    dialog.setWindowTitle(tr("Colour of the light"));
    const auto set = [&](const QColor& colour) {
        StudioLight light = before;
        light.colour = colour;
        _lights.setLight(index, light);
    };
    // The picture answers while the colour is being chosen.
    connect(&dialog, &QColorDialog::currentColorChanged, this, set);
    set(dialog.exec() == QDialog::Accepted ? dialog.selectedColor() : before.colour);
}

void LightPanel::refill()
{
    const QScopedValueRollback showing(_showing, true);
    if (_which->count() != _lights.count()) {
        _which->clear();
        for (int i = 1; i <= _lights.count(); ++i)
            _which->addItem(tr("Light %1").arg(i));
    }
    _which->setCurrentIndex(_lights.current());
    _add->setEnabled(_lights.count() < LightModel::kMaxLights);
    _remove->setEnabled(_lights.count() > 1);
    const StudioLight& light = _lights.lights().at(static_cast<std::size_t>(_lights.current()));
    show(_x, light.place.x());
    show(_y, light.place.y());
    show(_height, light.height);
    show(_intensity, light.intensity);
    show(_ambient, _lights.ambient());
    show(_highlight, _lights.highlight());
    _colour->setIcon(swatch(light.colour, palette()));
    _colour->setText(light.colour.name());
}

void LightPanel::show(const Number& number, double value)
{
    number.slider->setValue(static_cast<int>(std::lround(value * kSliderSteps)));
    // What is being typed is not to be rounded under the typist's fingers.
    if (!qFuzzyCompare(1.0 + number.box->value(), 1.0 + value))
        number.box->setValue(value);
}
