// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The panel holds no values of its own: it shows the model's, and every change goes there. LightPanelRows.cpp makes the
// widgets.
#include "studio/docks/scene/LightPanel.h"

#include "jobs/scene/LightPresets.h"
#include "studio/docks/scene/LightNumber.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QFrame>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QToolButton>

#include <algorithm>

namespace {

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

QColor ambientColour(const MO_LightingValues& common)
{
    const auto channel = [](double value) { return static_cast<float>(value / 255.0); };
    return QColor::fromRgbF(channel(common.ambientRed), channel(common.ambientGreen), channel(common.ambientBlue));
}

// Sliders beside fields of one width end at one place.
void makeEquallyWide(const QList<QAbstractSpinBox*>& fields)
{
    int width = 0;
    for (QAbstractSpinBox* const field : fields) {
        field->ensurePolished();
        width = std::max(width, field->sizeHint().width());
    }
    for (QAbstractSpinBox* const field : fields)
        field->setMinimumWidth(width);
}

} // namespace

LightPanel::LightPanel(LightModel& lights, QWidget* parent) : QWidget(parent), _lights(lights)
{
    auto* const form = new QFormLayout(this);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    addLightRows(*form);
    auto* const line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    form->addRow(line);
    addCommonRows(*form);
    makeEquallyWide(findChildren<QAbstractSpinBox*>());

    // Scrolling over a field must not change its value.
    for (QWidget* const child : findChildren<QWidget*>())
        if (qobject_cast<QAbstractSlider*>(child) || qobject_cast<QAbstractSpinBox*>(child) ||
            qobject_cast<QComboBox*>(child))
            child->installEventFilter(this);
    connect(&lights, &LightModel::changed, this, &LightPanel::refill);
    connect(&lights, &LightModel::currentChanged, this, &LightPanel::refill);
    connect(&lights, &LightModel::turningChanged, this, &LightPanel::refill);
    refill();
}

bool LightPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Wheel)
        return QWidget::eventFilter(watched, event);
    event->ignore();
    return true;
}

void LightPanel::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || !_ambientKey)
        return;
    // Their frames have a colour of the palette.
    _colour->setIcon(swatch(currentLight().colour, palette()));
    _ambientColour->setIcon(swatch(ambientColour(_lights.common()), palette()));
}

StudioLight LightPanel::currentLight() const
{
    return _lights.lights().at(static_cast<std::size_t>(_lights.current()));
}

void LightPanel::changeCurrent(const std::function<void(StudioLight&)>& change)
{
    if (_showing)
        return;
    StudioLight light = currentLight();
    change(light);
    _lights.setLight(_lights.current(), light);
}

void LightPanel::chooseLightColour()
{
    // The rest of the light may change while the dialog is open: the animation plays on.
    chooseColour(tr("Colour of the light"), currentLight().colour,
                 [this](const QColor& colour) { changeCurrent([&](StudioLight& light) { light.colour = colour; }); });
}

void LightPanel::chooseAmbientColour()
{
    const MO_LightingValues before = _lights.common();
    chooseColour(tr("Colour of the ambient light"), ambientColour(before), [&](const QColor& colour) {
        const bool isChosen = colour != ambientColour(before);
        MO_LightingValues common = _lights.common();
        common.ambientRed = isChosen ? colour.red() : before.ambientRed;
        common.ambientGreen = isChosen ? colour.green() : before.ambientGreen;
        common.ambientBlue = isChosen ? colour.blue() : before.ambientBlue;
        _lights.setCommon(common);
    });
}

void LightPanel::chooseColour(const QString& title, const QColor& before, const std::function<void(const QColor&)>& set)
{
    QColorDialog dialog(before, this);
    dialog.setWindowTitle(title);
    _lights.endChange();
    // The picture follows while the colour is chosen; all of these changes are one undo step.
    connect(&dialog, &QColorDialog::currentColorChanged, this, set);
    set(dialog.exec() == QDialog::Accepted ? dialog.selectedColor() : before);
    _lights.endChange();
}

void LightPanel::fillPresets(QMenu& menu)
{
    const QMap<QString, QString> labels{{QStringLiteral("standard"), tr("Standard")},
                                        {QStringLiteral("key-and-rim"), tr("Key and Rim")},
                                        {QStringLiteral("sunset"), tr("Sunset")},
                                        {QStringLiteral("torch"), tr("Torch")}};
    for (const LightPreset& preset : lightPresets()) {
        const QString label = labels.value(preset.keyword, preset.label);
        QAction* const action = menu.addAction(
            label, this, [this, label, rig = preset.rig] { _lights.use(tr("Lights: %1").arg(label), rig); });
        action->setObjectName(QStringLiteral("lightPreset-") + preset.keyword);
    }
}

void LightPanel::refill()
{
    const QScopedValueRollback showing(_showing, true);
    QStringList titles;
    for (int i = 0; i < _lights.count(); ++i)
        titles << _lights.titleOf(i);
    QStringList shown;
    for (int i = 0; i < _which->count(); ++i)
        shown << _which->itemText(i);
    if (shown != titles) {
        _which->clear();
        _which->addItems(titles);
    }
    _which->setCurrentIndex(_lights.current());
    _add->setEnabled(_lights.count() < LightModel::kMaxLights);
    _duplicate->setEnabled(_lights.count() < LightModel::kMaxLights);
    _remove->setEnabled(_lights.count() > 1);
    _turn->setChecked(_lights.isTurning());

    const StudioLight light = currentLight();
    if (!_name->hasFocus() || !_name->isModified())
        _name->setText(light.name);
    _name->setPlaceholderText(_lights.titleOf(_lights.current()));
    _kind->setCurrentIndex(static_cast<int>(light.kind));
    _on->setChecked(light.on);
    _solo->setChecked(light.solo);
    _reach->setEnabled(light.kind == MO_LightKind::POINT);
    for (const ShownLightNumber& number : _lightNumbers)
        number.row->show(light.*number.member, _lights.hasKey(number.which));
    _x->show(light.place.x(), _lights.hasKey(MO_Light::X));
    _y->show(light.place.y(), _lights.hasKey(MO_Light::Y));
    showColour(*_colour, light.colour);
    _colourKey->setKeyed(_lights.hasKey(MO_Light::RED));

    const MO_LightingValues& common = _lights.common();
    for (const ShownCommonNumber& number : _commonNumbers)
        number.row->show(common.*number.member, _lights.hasKey(number.which));
    showColour(*_ambientColour, ambientColour(common));
    _ambientKey->setKeyed(_lights.hasKey(MO_Lighting::AMBIENT_RED));
}

// A new icon paints the button again, which is not wanted for every step of a light that is dragged.
void LightPanel::showColour(QPushButton& button, const QColor& colour) const
{
    if (button.text() == colour.name())
        return;
    button.setIcon(swatch(colour, palette()));
    button.setText(colour.name());
}
