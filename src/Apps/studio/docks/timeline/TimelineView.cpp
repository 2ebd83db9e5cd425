// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The fields take what is typed when it is complete, so that nothing happens half way through a number.
#include "studio/docks/timeline/TimelineView.h"

#include "QuarvelSceneCore/editing/MO_SceneCommands.h"
#include "studio/docks/timeline/Playback.h"
#include "studio/docks/timeline/WrappingRow.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QDoubleSpinBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolButton>

namespace {

constexpr int kFarFrame = 1000000;
constexpr int kFieldFrame = 30; // what a field needs beside its digits

} // namespace

TimelineView::TimelineView(StudioDocument& document, QWidget* parent)
    : QWidget(parent)
    , _document(document)
    , _canvas(new TimelineCanvas(document, this))
    , _playback(new Playback(document, this))
{
    setObjectName(QStringLiteral("Timeline"));
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addLayout(makeBar());
    rows->addWidget(_canvas, 1);
    setFocusProxy(_canvas);
    // The canvas is older than the bar above it.
    setTabOrder(_rate, _canvas);

    addPlayAction();
    connect(_frame, &QSpinBox::valueChanged, this, &TimelineView::takeFrame);
    connect(_first, &QSpinBox::valueChanged, this, &TimelineView::takeFirst);
    connect(_last, &QSpinBox::valueChanged, this, &TimelineView::takeLast);
    connect(_rate, &QDoubleSpinBox::valueChanged, this, &TimelineView::takeRate);
    connect(_playback, &Playback::playingChanged, this, &TimelineView::showIcons);
    connect(_playback, &Playback::loopChanged, this, [this] { _canvas->showLoop(_playback->loop()); });
    connect(&_document, &StudioDocument::sceneReplaced, this, &TimelineView::synchronize);
    connect(&_document, &StudioDocument::sceneChanged, this, &TimelineView::synchronize);
    connect(&_document, &StudioDocument::edited, this, &TimelineView::synchronize);
    connect(&_document, &StudioDocument::currentFrameChanged, this, &TimelineView::synchronize);
    synchronize();
    showIcons();
}

QLayout* TimelineView::makeBar()
{
    auto* const bar = new WrappingRow(8);
    bar->setContentsMargins(6, 4, 6, 4);
    const auto addPart = [bar]() -> QHBoxLayout& {
        auto* const part = new QWidget;
        auto* const row = new QHBoxLayout(part);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(4);
        bar->addWidget(part);
        return *row;
    };
    QHBoxLayout& transport = addPart();
    _toFirst = addButton(transport, "ToFirstFrame", tr("Go to the first frame (Home)"), &TimelineView::goToFirst);
    _back = addButton(transport, "FrameBack", tr("One frame back (Left)"), &TimelineView::goBack);
    _play = addButton(transport, "Play", tr("Play or stop (Space)"), &TimelineView::togglePlay);
    _play->setMenu(makeLoopMenu());
    _play->setPopupMode(QToolButton::MenuButtonPopup);
    _forth = addButton(transport, "FrameForth", tr("One frame forward (Right)"), &TimelineView::goForth);
    _toLast = addButton(transport, "ToLastFrame", tr("Go to the last frame (End)"), &TimelineView::goToLast);
    _frame = addField(addPart(), "CurrentFrame", tr("Frame"), tr("The frame that is shown"));
    QHBoxLayout& range = addPart();
    _first = addField(range, "FirstFrame", tr("From"), tr("The scene's first frame"));
    _last = addField(range, "LastFrame", tr("to"), tr("The scene's last frame"));
    addRateField(addPart());
    return bar;
}

QToolButton* TimelineView::addButton(QHBoxLayout& bar, const char* name, const QString& tip,
                                     void (TimelineView::*slot)())
{
    auto* button = new QToolButton;
    button->setObjectName(QLatin1String(name));
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    connect(button, &QToolButton::clicked, this, slot);
    bar.addWidget(button);
    return button;
}

QSpinBox* TimelineView::addField(QHBoxLayout& bar, const char* name, const QString& label, const QString& tip)
{
    auto* field = new QSpinBox;
    field->setObjectName(QLatin1String(name));
    field->setToolTip(tip);
    field->setKeyboardTracking(false);
    field->setRange(-kFarFrame, kFarFrame);
    // Room for the numbers of real scenes; larger ones scroll in the field.
    field->setMaximumWidth(field->fontMetrics().horizontalAdvance(QStringLiteral("00000")) + kFieldFrame);
    auto* text = new QLabel(label);
    text->setBuddy(field);
    bar.addWidget(text);
    bar.addWidget(field);
    return field;
}

void TimelineView::addRateField(QHBoxLayout& bar)
{
    _rate = new QDoubleSpinBox;
    _rate->setObjectName(QStringLiteral("FrameRate"));
    _rate->setToolTip(tr("How many frames a second the scene is played with"));
    _rate->setAccessibleName(tr("Frames a second"));
    _rate->setKeyboardTracking(false);
    _rate->setRange(MO_Scene::kSlowest, MO_Scene::kFastest);
    _rate->setDecimals(3);
    _rate->setStepType(QAbstractSpinBox::DefaultStepType);
    _rate->setSuffix(tr(" fps"));
    bar.addWidget(_rate);
}

QMenu* TimelineView::makeLoopMenu()
{
    auto* const menu = new QMenu(this);
    const auto add = [&](const QString& text, const char* name, const QKeySequence& key, auto slot) {
        QAction* const action = menu->addAction(text);
        action->setObjectName(QLatin1String(name));
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetShortcut);
        _canvas->addAction(action);
        connect(action, &QAction::triggered, this, slot);
    };
    add(tr("Loop &From This Frame"), "loopFromHere", Qt::Key_I, [this] { loopFromHere(); });
    add(tr("Loop &Up to This Frame"), "loopUpToHere", Qt::Key_O, [this] { loopUpToHere(); });
    add(tr("Loop &All Frames"), "loopAll", Qt::Key_X, [this] { _playback->setLoop({}); });
    return menu;
}

void TimelineView::addPlayAction()
{
    _playAction = new QAction(tr("Play"), this);
    _playAction->setObjectName(QStringLiteral("playAction"));
    _playAction->setShortcut(Qt::Key_Space);
    connect(_playAction, &QAction::triggered, this, &TimelineView::togglePlay);
    _canvas->addAction(_playAction);
    qApp->installEventFilter(this);
}

// Where text is typed, the field takes the space before it becomes a shortcut. A field for numbers would take it as
// well, but no number has a space. Who goes from button to button by the keyboard presses them with it.
bool TimelineView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space) {
        if (qobject_cast<QAbstractSpinBox*>(watched)) {
            event->ignore();
            return true;
        }
        const auto* const button = qobject_cast<QAbstractButton*>(watched);
        if (button && button->window()->testAttribute(Qt::WA_KeyboardFocusChange))
            event->accept();
    }
    return QWidget::eventFilter(watched, event);
}

void TimelineView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        showIcons();
}

void TimelineView::showIcons()
{
    _toFirst->setIcon(transportIcon(TransportSign::FIRST, palette()));
    _back->setIcon(transportIcon(TransportSign::BACK, palette()));
    _play->setIcon(transportIcon(_playback->isPlaying() ? TransportSign::STOP : TransportSign::PLAY, palette()));
    _forth->setIcon(transportIcon(TransportSign::FORTH, palette()));
    _toLast->setIcon(transportIcon(TransportSign::LAST, palette()));
}

void TimelineView::synchronize()
{
    const MO_Scene& scene = _document.scene();
    const QSignalBlocker quietFrame(_frame);
    const QSignalBlocker quietFirst(_first);
    const QSignalBlocker quietLast(_last);
    _frame->setRange(scene.firstFrame(), scene.lastFrame());
    _frame->setValue(_document.currentFrame());
    _first->setRange(std::min(-kFarFrame, scene.firstFrame()), scene.lastFrame());
    _first->setValue(scene.firstFrame());
    _last->setRange(scene.firstFrame(), std::max(kFarFrame, scene.lastFrame()));
    _last->setValue(scene.lastFrame());
    const QSignalBlocker quietRate(_rate);
    _rate->setValue(scene.frameRate());
    _play->setEnabled(scene.firstFrame() < scene.lastFrame());
}

void TimelineView::goToFirst()
{
    _document.setCurrentFrame(_document.scene().firstFrame());
}

void TimelineView::goBack()
{
    if (_document.currentFrame() > _document.scene().firstFrame())
        _document.setCurrentFrame(_document.currentFrame() - 1);
}

void TimelineView::togglePlay()
{
    if (_playback->isPlaying())
        _playback->stop();
    else
        _playback->start();
}

void TimelineView::loopFromHere()
{
    const int frame = _document.currentFrame();
    const int last = _playback->range().second;
    _playback->setLoop(Playback::Range{frame, last > frame ? last : _document.scene().lastFrame()});
}

void TimelineView::loopUpToHere()
{
    const int frame = _document.currentFrame();
    const int first = _playback->range().first;
    _playback->setLoop(Playback::Range{first < frame ? first : _document.scene().firstFrame(), frame});
}

void TimelineView::goForth()
{
    if (_document.currentFrame() < _document.scene().lastFrame())
        _document.setCurrentFrame(_document.currentFrame() + 1);
}

void TimelineView::goToLast()
{
    _document.setCurrentFrame(_document.scene().lastFrame());
}

void TimelineView::takeFrame(int frame)
{
    _document.setCurrentFrame(frame);
}

void TimelineView::takeFirst(int first)
{
    MO_Scene& scene = _document.scene();
    _document.execute(MO_frameRangeCmd(scene, first, scene.lastFrame()));
}

void TimelineView::takeLast(int last)
{
    MO_Scene& scene = _document.scene();
    _document.execute(MO_frameRangeCmd(scene, scene.firstFrame(), last));
}

void TimelineView::takeRate(double rate)
{
    _document.execute(MO_frameRateCmd(_document.scene(), rate));
}
