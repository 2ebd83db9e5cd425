// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Slider and field follow each other, and only what a person does is passed on.
#include "studio/docks/scene/LightNumber.h"

#include <QDoubleSpinBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QScopedValueRollback>
#include <QSlider>
#include <QToolButton>

#include <cmath>

namespace {

constexpr double kSliderSteps = 100.0;
constexpr int kIconSize = 12;

QIcon keyIcon(bool isFilled, const QPalette& palette, double density)
{
    QPixmap pixmap(QSize(kIconSize, kIconSize) * density);
    pixmap.setDevicePixelRatio(density);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor colour = palette.color(isFilled ? QPalette::Highlight : QPalette::ButtonText);
    painter.setPen(QPen(colour, 1.3));
    painter.setBrush(isFilled ? QBrush(colour) : QBrush());
    painter.drawPolygon(QPolygonF({{6.0, 1.5}, {10.5, 6.0}, {6.0, 10.5}, {1.5, 6.0}}));
    return pixmap;
}

} // namespace

LightKeyButton::LightKeyButton(const QString& what, QWidget* parent) : QWidget(parent), _button(new QToolButton)
{
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(_button);
    _button->setAutoRaise(true);
    _button->setFocusPolicy(Qt::TabFocus);
    _button->setIconSize(QSize(kIconSize, kIconSize));
    _button->setAccessibleName(tr("Key of %1").arg(what));
    connect(_button, &QToolButton::clicked, this, &LightKeyButton::clicked);
    paintIcon();
}

void LightKeyButton::setKeyed(bool isKeyed)
{
    if (isKeyed == _isKeyed)
        return;
    _isKeyed = isKeyed;
    paintIcon();
}

void LightKeyButton::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        paintIcon();
}

void LightKeyButton::paintIcon()
{
    _button->setIcon(keyIcon(_isKeyed, palette(), devicePixelRatioF()));
    _button->setToolTip(_isKeyed ? tr("Removes the key at this frame") : tr("Sets a key at this frame"));
}

LightNumber::LightNumber(const QString& what, const QString& toolTip, const AT_DoubleAttrMetaContainer& limits,
                         QWidget* parent)
    : QWidget(parent), _slider(new QSlider(Qt::Horizontal)), _box(new QDoubleSpinBox), _key(new LightKeyButton(what))
{
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    _slider->setRange(static_cast<int>(std::lround(limits.sliderLower * kSliderSteps)),
                      static_cast<int>(std::lround(limits.sliderUpper * kSliderSteps)));
    _slider->setToolTip(toolTip);
    _slider->setAccessibleName(what);
    _slider->setMinimumWidth(60);
    _box->setRange(limits.lower, limits.upper);
    _box->setSingleStep(0.05);
    _box->setDecimals(2);
    _box->setToolTip(toolTip);
    _box->setAccessibleName(what);
    layout->addWidget(_slider, 1);
    layout->addWidget(_box);
    layout->addWidget(_key);
    setFocusProxy(_box);
    connect(_slider, &QSlider::valueChanged, this, [this](int value) {
        if (!_showing)
            Q_EMIT changed(value / kSliderSteps);
    });
    connect(_box, &QDoubleSpinBox::valueChanged, this, [this](double value) {
        if (!_showing)
            Q_EMIT changed(value);
    });
    connect(_slider, &QSlider::sliderReleased, this, &LightNumber::finished);
    connect(_box, &QDoubleSpinBox::editingFinished, this, &LightNumber::finished);
    connect(_key, &LightKeyButton::clicked, this, &LightNumber::keyClicked);
}

void LightNumber::show(double value, bool isKeyed)
{
    const QScopedValueRollback showing(_showing, true);
    _slider->setValue(static_cast<int>(std::lround(value * kSliderSteps)));
    // What is being typed is not to be rounded under the typist's fingers.
    if (std::abs(_box->value() - value) > 0.5 / kSliderSteps)
        _box->setValue(value);
    _key->setKeyed(isKeyed);
}
