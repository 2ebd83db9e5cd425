// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Slider, field and key button, and their commands.
#include "QuarvelPlugInManager/private/NumberAttrEditor.h"

#include "QuarvelPlugInManager/private/KeyButton.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "QuarvelSceneCore/editing/MO_KeyCommands.h"

#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QSlider>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kDecimals = 6;
/// Values closer than this are displayed alike.
constexpr double kShownDifference = 0.5e-6;
/// A slider with more positions than this is too fine to aim at a value.
constexpr double kMostPositions = 10000.0;

/// A spin box that drops trailing zeros, except for one decimal.
class NumberField : public QDoubleSpinBox
{
public:
    using QDoubleSpinBox::QDoubleSpinBox;

    QString textFromValue(double value) const override
    {
        if (decimals() == 0)
            return QDoubleSpinBox::textFromValue(value);
        QString text = locale().toString(value, 'f', decimals());
        const QString point = locale().decimalPoint();
        const auto shortest = text.indexOf(point) + point.size() + 1;
        while (text.size() > shortest && text.endsWith(locale().zeroDigit()))
            text.chop(1);
        return text;
    }

    QSize sizeHint() const override { return {fontMetrics().horizontalAdvance(QStringLiteral("0000.000000")), hint()}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

private:
    int hint() const { return QDoubleSpinBox::sizeHint().height(); }
};

} // namespace

NumberAttrEditor::NumberAttrEditor(AT_DoubleAttr& attr, const AttrEditing& editing, QWidget* parent)
    : AttrEditor(attr, editing, parent), _field(new NumberField(this))
{
    const AT_DoubleAttrMetaContainer& meta = attr.doubleMeta().container();
    _field->setDecimals(kDecimals);
    _field->setSuffix(attr.unit().isEmpty() ? QString() : QLatin1Char(' ') + attr.unit());
    build(attr, {meta.sliderLower, meta.sliderUpper, meta.step});
}

NumberAttrEditor::NumberAttrEditor(AT_IntAttr& attr, const AttrEditing& editing, QWidget* parent)
    : AttrEditor(attr, editing, parent), _field(new NumberField(this))
{
    _field->setDecimals(0);
    build(attr, {attr.lower(), attr.upper(), 1.0});
}

NumberAttrEditor::~NumberAttrEditor() = default;

void NumberAttrEditor::build(const AT_AnimatableAttr& attr, const Range& range)
{
    _range = range;
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    if ((range.sliderUpper - range.sliderLower) / range.step <= kMostPositions) {
        buildSlider(attr.label());
        layout->addWidget(_slider, 1);
        setTabOrder(_slider, _field);
    }

    _field->setRange(attr.lower(), attr.upper());
    _field->setSingleStep(range.step);
    // Partly typed numbers are not values.
    _field->setKeyboardTracking(false);
    prepare(*_field);
    layout->addWidget(_field);
    connect(_field, &QDoubleSpinBox::valueChanged, this, [this](double value) { enterNumber(value); });
    connect(_field, &QDoubleSpinBox::editingFinished, this, [this] { editing().endStep(); });

    if (editing().hasFrames) {
        _key = new KeyButton(this);
        _key->setAccessibleName(attr.label());
        layout->addWidget(_key);
        connect(_key, &QToolButton::clicked, this, [this] { toggleKey(); });
    }
    if (!_slider)
        layout->addStretch(1);
}

void NumberAttrEditor::buildSlider(const QString& label)
{
    _slider = new QSlider(Qt::Horizontal, this);
    _slider->setRange(0, sliderPosition(_range.sliderUpper));
    _slider->setMinimumWidth(60);
    prepare(*_slider);
    _slider->setAccessibleName(label);
    connect(_slider, &QSlider::valueChanged, this, [this](int position) { enterNumber(sliderValue(position)); });
    connect(_slider, &QSlider::sliderPressed, this, [this] { editing().endStep(); });
    connect(_slider, &QSlider::sliderReleased, this, [this] { editing().endStep(); });
}

int NumberAttrEditor::sliderPosition(double value) const
{
    const double held = std::clamp(value, _range.sliderLower, _range.sliderUpper);
    return static_cast<int>(std::lround((held - _range.sliderLower) / _range.step));
}

double NumberAttrEditor::sliderValue(int position) const
{
    // Multiples of 0.1 are not exact in binary; people expect 0.3, not three times the nearest value to 0.1.
    const double exact = std::min(_range.sliderLower + position * _range.step, _range.sliderUpper);
    return QString::number(exact, 'f', kDecimals).toDouble();
}

void NumberAttrEditor::synchronize(double frame)
{
    _frame = frame;
    const auto* const source = attrAs<AT_AnimatableAttr>();
    if (!source)
        return;
    const double value = source->scalarValue(frame).value_or(0.0);
    const QSignalBlocker fieldBlocker(_field);
    // Setting the same value would disturb somebody who is typing.
    if (std::abs(_field->value() - value) > kShownDifference)
        _field->setValue(value);
    if (_slider) {
        const QSignalBlocker sliderBlocker(_slider);
        _slider->setValue(sliderPosition(value));
    }
    followSurrogate();
    if (_key)
        _key->showStateOf(*source, frame);
}

QWidget* NumberAttrEditor::field() const
{
    return _field;
}

void NumberAttrEditor::enterNumber(double value)
{
    editing().execute(changeCmd(value));
}

MO_EditCommand NumberAttrEditor::changeCmd(double value) const
{
    if (auto* const number = attrAs<AT_DoubleAttr>())
        return MO_EditCommand(number->setValueCmd(_frame, value));
    if (auto* const whole = attrAs<AT_IntAttr>())
        return MO_EditCommand(whole->setValueCmd(_frame, static_cast<int>(std::lround(value))));
    return nullptr;
}

void NumberAttrEditor::toggleKey()
{
    auto* const target = attrAs<AT_AnimatableAttr>();
    if (!target)
        return;
    const bool isKey = target->curve().keyAt(_frame) != nullptr;
    enter(isKey ? MO_removeKeyCmd(*target, _frame) : MO_addKeyCmd(*target, _frame));
}
