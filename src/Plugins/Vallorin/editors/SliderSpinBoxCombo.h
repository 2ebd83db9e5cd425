// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SliderSpinBoxCombo: a level as a slider and a spin box side by side. People see percent, programs a level from 0 to
// 255; percent are coarser, so a level that is shown and reported back may come back smaller.
//
// The level is reported when the slider is released and when the spin box changes, never while the slider is dragged.
// After a drag, the spin box of the same control never reports again.
#pragma once

#include <QFrame>

class QSlider;
class QSpinBox;

/// The control. GUI thread only.
class SliderSpinBoxCombo : public QFrame
{
    Q_OBJECT

public:
    /// Receives new levels.
    class Callback
    {
    public:
        virtual ~Callback() = default;
        /// @param id    the number of the control
        /// @param value the new level, from 0 to 255
        virtual void valueChanged(int id, int value) = 0;
    };

    /// @param callback may be null; otherwise it must outlive the control
    /// @param id       passed back to the callback
    /// @param value    the initial level; a level outside 0 to 255 is shown as 0 or 100 percent
    SliderSpinBoxCombo(Callback* callback, int id, int value);
    ~SliderSpinBoxCombo() override;

public Q_SLOTS: // NOLINT(readability-redundant-access-specifiers): the functions above are not slots
    /// The slider is dragged: the spin box shows the percentage, and reports nothing from then on.
    void onSliderMoved(int value);
    /// The slider was released: its level is reported.
    void onSliderReleased();
    /// The spin box changed: the slider follows and its level is reported.
    void onSpinBoxChanged(int value);

private:
    void report();

    Callback* callback;
    QSlider* slider;
    QSpinBox* spinBox;
    int id;
};
