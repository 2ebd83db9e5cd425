// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The fields take what is typed when it is complete, so that nothing happens half way through a number.
#include "studio/docks/timeline/TimelineView.h"

#include "QuarvelSceneCore/editing/MO_SceneCommands.h"
#include "studio/docks/timeline/Playback.h"

#include <QAction>
#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolButton>

namespace {

constexpr int kFarFrame = 1000000;

} // namespace

TimelineView::TimelineView(StudioDocument& document, QWidget* parent)
    : QWidget(parent)
    , _document(document)
    , _canvas(new TimelineCanvas(document, this))
    , _playback(new Playback(document, this))
{
    setObjectName(QStringLiteral("Timeline"));
    auto* bar = new QHBoxLayout;
    bar->setContentsMargins(6, 4, 6, 4);
    bar->setSpacing(4);
    _toFirst = addButton(*bar, "ToFirstFrame", tr("Go to the first frame (Home)"), &TimelineView::goToFirst);
    _back = addButton(*bar, "FrameBack", tr("One frame back (Left)"), &TimelineView::goBack);
    _play = addButton(*bar, "Play", tr("Play or stop (Space)"), &TimelineView::togglePlay);
    _forth = addButton(*bar, "FrameForth", tr("One frame forward (Right)"), &TimelineView::goForth);
    _toLast = addButton(*bar, "ToLastFrame", tr("Go to the last frame (End)"), &TimelineView::goToLast);
    _frame = addField(*bar, "CurrentFrame", tr("Frame"), tr("The frame that is shown"));
    bar->addStretch();
    _first = addField(*bar, "FirstFrame", tr("From"), tr("The scene's first frame"));
    _last = addField(*bar, "LastFrame", tr("to"), tr("The scene's last frame"));
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addLayout(bar);
    rows->addWidget(_canvas, 1);
    setFocusProxy(_canvas);

    auto* play = new QAction(tr("Play"), this);
    play->setShortcut(Qt::Key_Space);
    play->setShortcutContext(Qt::WidgetShortcut);
    _canvas->addAction(play);
    connect(play, &QAction::triggered, this, &TimelineView::togglePlay);
    connect(_frame, &QSpinBox::valueChanged, this, &TimelineView::takeFrame);
    connect(_first, &QSpinBox::valueChanged, this, &TimelineView::takeFirst);
    connect(_last, &QSpinBox::valueChanged, this, &TimelineView::takeLast);
    connect(_playback, &Playback::playingChanged, this, &TimelineView::showIcons);
    connect(&_document, &StudioDocument::sceneReplaced, this, &TimelineView::synchronize);
    connect(&_document, &StudioDocument::sceneChanged, this, &TimelineView::synchronize);
    connect(&_document, &StudioDocument::stateChanged, this, &TimelineView::synchronize);
    connect(&_document, &StudioDocument::currentFrameChanged, this, &TimelineView::synchronize);
    synchronize();
    showIcons();
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
    auto* text = new QLabel(label);
    text->setBuddy(field);
    bar.addSpacing(6);
    bar.addWidget(text);
    bar.addWidget(field);
    return field;
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
