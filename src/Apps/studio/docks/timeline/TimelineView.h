// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// TimelineView: the timeline with its bar: going from frame to frame, playing, and the frames that the scene consists
// of.
#pragma once

#include "studio/docks/timeline/TimelineCanvas.h"
#include "studio/docks/timeline/TransportIcons.h"

#include <QWidget>

class Playback;
class QAction;
class QDoubleSpinBox;
class QHBoxLayout;
class QMenu;
class QSpinBox;
class QToolButton;

/// The contents of the dock "Timeline".
class TimelineView : public QWidget
{
    Q_OBJECT

public:
    explicit TimelineView(StudioDocument& document, QWidget* parent = nullptr);

    TimelineCanvas& canvas() const { return *_canvas; }
    Playback& playback() const { return *_playback; }
    /// Plays or stops, with the space bar. To be added to the window whose keys it hears.
    QAction& playAction() const { return *_playAction; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QLayout* makeBar();
    QToolButton* addButton(QHBoxLayout& bar, const char* name, const QString& tip, void (TimelineView::*slot)());
    QSpinBox* addField(QHBoxLayout& bar, const char* name, const QString& label, const QString& tip);
    void addRateField(QHBoxLayout& bar);
    QMenu* makeLoopMenu();
    void addPlayAction();
    void synchronize();
    void showIcons();
    void loopFromHere();
    void loopUpToHere();
    void goToFirst();
    void goBack();
    void togglePlay();
    void goForth();
    void goToLast();
    void takeFrame(int frame);
    void takeFirst(int first);
    void takeLast(int last);
    void takeRate(double rate);

    StudioDocument& _document;
    TimelineCanvas* _canvas;
    Playback* _playback;
    QAction* _playAction = nullptr;
    QToolButton* _toFirst = nullptr;
    QToolButton* _back = nullptr;
    QToolButton* _play = nullptr;
    QToolButton* _forth = nullptr;
    QToolButton* _toLast = nullptr;
    QSpinBox* _frame = nullptr;
    QSpinBox* _first = nullptr;
    QSpinBox* _last = nullptr;
    QDoubleSpinBox* _rate = nullptr;
};
