// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Copied values are text on the clipboard that people can read, "bevel=24:elevation=1:smoothness=1.8:tilt=0,0:rim=0,1",
// so that they can be sent in a message and pasted from there, or used on the command line after --object NAME:.
#include "studio/objects/ObjectActions.h"

#include "jobs/drawing/ObjectWords.h"
#include "studio/objects/ObjectPresets.h"
#include "studio/window/Icons.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QInputDialog>
#include <QMenu>
#include <QWidget>

#include <algorithm>

namespace {

std::optional<ObjectSettings> valuesIn(const QString& text)
{
    ObjectSettings values;
    for (const QString& word : text.trimmed().split(u':'))
        if (!takeObjectWord(values, word))
            return std::nullopt;
    return values;
}

} // namespace

ObjectActions::ObjectActions(DocumentObjects& objects, QWidget& window)
    : QObject(&window)
    , _objects(objects)
    , _window(window)
    , _carve(make(tr("Carve"), tr("Lets the selected objects sink in instead of rising"), QKeySequence(Qt::Key_V)))
    , _cutOut(make(tr("Cut Out"), tr("Turns the selected objects into holes: whatever lies below them is removed"),
                   QKeySequence(Qt::Key_X)))
    , _hide(make(tr("Hide"), tr("Hides the selected objects"), QKeySequence(Qt::Key_H)))
    , _solo(make(tr("Solo"), tr("Shows the selected objects alone"), QKeySequence(Qt::Key_S)))
    , _join(make(tr("Join"), tr("Makes one object of the selected ones, with the values of the one selected last"),
                 QKeySequence(Qt::Key_J)))
    , _separate(make(tr("Separate"), tr("Makes objects of their own of the drawings that were joined into one"),
                     QKeySequence(Qt::SHIFT | Qt::Key_J)))
    , _copy(make(tr("Copy Values"), tr("Copies bevel, elevation, smoothness, tilt and rim of the selected object"),
                 QKeySequence::Copy))
    , _paste(make(tr("Paste Values"), tr("Gives the copied values to the selected objects"), QKeySequence::Paste))
    , _reset(make(tr("Reset Values"),
                  tr("Gives the selected objects the values that were chosen for them when the drawing was opened"),
                  QKeySequence(Qt::SHIFT | Qt::Key_R)))
{
    for (QAction* const action : {_carve, _cutOut, _hide, _solo})
        action->setCheckable(true);
    _carve->setObjectName(QStringLiteral("carve"));
    _cutOut->setObjectName(QStringLiteral("cut-out"));
    _hide->setObjectName(QStringLiteral("hide"));
    _solo->setObjectName(QStringLiteral("solo"));
    connect(_carve, &QAction::triggered, this,
            [this](bool on) { _objects.change(carveCmd(_objects.selected(), frame(), on)); });
    connect(_cutOut, &QAction::triggered, this,
            [this](bool on) { _objects.change(cutOutCmd(_objects.selected(), _objects.all(), on, frame())); });
    connect(_hide, &QAction::triggered, this, [this](bool on) { _objects.change(hideCmd(_objects.selected(), on)); });
    connect(_solo, &QAction::triggered, this,
            [this](bool on) { _objects.change(soloCmd(_objects.selected(), _objects.all(), on)); });
    connect(_join, &QAction::triggered, this, [this] { _objects.change(joinCmd(_objects.selected(), frame())); });
    connect(_separate, &QAction::triggered, this,
            [this] { _objects.change(separateCmd(_objects.selected(), _objects.all(), frame())); });
    connect(_copy, &QAction::triggered, this, &ObjectActions::copyValues);
    connect(_paste, &QAction::triggered, this, &ObjectActions::pasteValues);
    connect(_reset, &QAction::triggered, this, &ObjectActions::resetValues);
    connect(&objects, &DocumentObjects::changed, this, &ObjectActions::update);
    refreshIcons();
    update();
}

QAction* ObjectActions::make(const QString& text, const QString& toolTip, const QKeySequence& keys)
{
    auto* const action = new QAction(text, this);
    action->setShortcut(keys);
    // Single letters must not be shortcuts in text fields.
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    action->setToolTip(tr("%1 (%2)").arg(toolTip, keys.toString(QKeySequence::NativeText)));
    action->setStatusTip(toolTip);
    return action;
}

void ObjectActions::addKeysTo(QWidget& widget) const
{
    widget.addActions({_carve, _cutOut, _hide, _solo, _join, _separate, _copy, _paste, _reset});
}

void ObjectActions::refreshIcons()
{
    for (QAction* const action : {_carve, _cutOut, _hide, _solo})
        action->setIcon(studioIcon(action->objectName(), _window.palette()));
}

void ObjectActions::update()
{
    const std::vector<SceneObject>& selected = _objects.selected();
    const bool any = !selected.empty();
    const auto all = [&](auto&& is) { return any && std::ranges::all_of(selected, is); };
    const bool haveValues = std::ranges::any_of(selected, [](const SceneObject& one) { return !one.isCutOut(); });
    for (QAction* const action : {_cutOut, _hide, _solo})
        action->setEnabled(any);
    for (QAction* const action : {_carve, _copy, _paste, _reset})
        action->setEnabled(haveValues);
    const SceneObject* const current = currentOf(selected);
    _join->setEnabled(std::ranges::count_if(selected, [&](const SceneObject& one) {
                          return current && one.node == current->node && !one.isCutOut();
                      }) > 1);
    _separate->setEnabled(std::ranges::any_of(
        selected, [](const SceneObject& one) { return !one.isCutOut() && one.definitions.size() > 1; }));
    _carve->setChecked(all([](const SceneObject& one) { return one.values.elevation < 0.0; }));
    _cutOut->setChecked(all([](const SceneObject& one) { return one.isCutOut(); }));
    _hide->setChecked(all([](const SceneObject& one) { return one.isHidden; }));
    _solo->setChecked(any && areSolo(selected, _objects.all()));
}

void ObjectActions::copyValues()
{
    if (const SceneObject* const current = currentOf(_objects.selected()))
        QApplication::clipboard()->setText(objectWords(settingsOf(*current)));
}

void ObjectActions::pasteValues()
{
    if (const auto values = valuesIn(QApplication::clipboard()->text()))
        _objects.change(giveValuesCmd(_objects.selected(), frame(), tr("Paste Values to %1"),
                                      [&](const SceneObject&) { return *values; }));
}

void ObjectActions::resetValues()
{
    _objects.change(giveValuesCmd(_objects.selected(), frame(), tr("Reset Values of %1"),
                                  [](const SceneObject& object) { return settingsOf(asChosen(object)); }));
}

void ObjectActions::resetInTable(ObjectValue value)
{
    _objects.change(changeValueCmd(_objects.selected(), value, frame(),
                                   [value](const SceneObject& object) { return valueOf(asChosen(object), value); }));
}

// A rim has a height, too, which no field shows.
void ObjectActions::resetRim()
{
    _objects.change(giveValuesCmd(_objects.selected(), frame(), tr("Reset Rim of %1"), [](const SceneObject& object) {
        ObjectSettings settings;
        settings.rim = asChosen(object).rim;
        return settings;
    }));
}

void ObjectActions::resetTilt()
{
    _objects.change(
        tiltCmd(_objects.selected(), frame(), [](const SceneObject& object) { return asChosen(object).tilt; }));
}

double ObjectActions::frame() const
{
    return _objects.document().currentFrame();
}

void ObjectActions::fillMenu(QMenu& menu)
{
    menu.addActions({_carve, _cutOut, _hide, _solo});
    menu.addSeparator();
    menu.addActions({_join, _separate});
    menu.addSeparator();
    menu.addActions({_copy, _paste});
    const bool haveValues = _reset->isEnabled();
    QMenu* const presets = menu.addMenu(tr("Presets"));
    presets->setEnabled(haveValues);
    fillPresets(*presets);
    QMenu* const resets = menu.addMenu(tr("Reset"));
    resets->setEnabled(haveValues);
    for (const ObjectValue value : {ObjectValue::BEVEL, ObjectValue::ELEVATION, ObjectValue::SMOOTHNESS})
        resets->addAction(ObjectTexts::name(value), this, [this, value] { resetInTable(value); });
    resets->addAction(ObjectTexts::name(ObjectValue::RIM), this, &ObjectActions::resetRim);
    resets->addAction(ObjectTexts::tiltName(), this, &ObjectActions::resetTilt);
    resets->addSeparator();
    resets->addAction(_reset);
}

void ObjectActions::fillPresets(QMenu& menu)
{
    const auto add = [&](const std::vector<ObjectPreset>& presets) {
        for (const ObjectPreset& preset : presets)
            menu.addAction(QString(preset.name).replace(QLatin1Char('&'), QStringLiteral("&&")), this,
                           [this, preset] { applyPreset(preset); });
    };
    add(builtInPresets());
    menu.addSeparator();
    const std::vector<ObjectPreset> own = ownPresets();
    add(own);
    menu.addAction(tr("Save Values as Preset..."), this, &ObjectActions::saveAsPreset);
    if (own.empty())
        return;
    QMenu* const remove = menu.addMenu(tr("Remove Preset"));
    for (const ObjectPreset& preset : own)
        remove->addAction(QString(preset.name).replace(QLatin1Char('&'), QStringLiteral("&&")), this,
                          [name = preset.name] { removeOwnPreset(name); });
}

void ObjectActions::applyPreset(const ObjectPreset& preset)
{
    // %1 is replaced later by the objects; the preset's name may contain a % itself.
    const QString name = tr("%2 for %1", "a preset for an object").replace(QStringLiteral("%2"), preset.name);
    _objects.change(giveValuesCmd(_objects.selected(), frame(), name, [&](const SceneObject& object) {
        return valuesOf(preset, _breadth ? _breadth(object) : 0.0);
    }));
}

void ObjectActions::saveAsPreset()
{
    const SceneObject* const current = currentOf(_objects.selected());
    if (!current)
        return;
    const ObjectSettings values = settingsOf(*current);
    const QString name =
        QInputDialog::getText(&_window, tr("Save Values as Preset"), tr("The preset's name:")).trimmed();
    if (!name.isEmpty())
        saveOwnPreset(name, values);
}
