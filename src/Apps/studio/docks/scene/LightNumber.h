// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LightNumber: a number of a light: a slider for the hand, a field for the exact value, and a button for the key at the
// frame.
#pragma once

#include "QuarvelSceneCore/attributes/AT_DoubleAttrMeta.h"

#include <QWidget>

class QDoubleSpinBox;
class QSlider;
class QToolButton;

/// The button of a value that may be animated: filled where there is a key at the frame.
class LightKeyButton : public QWidget
{
    Q_OBJECT

public:
    /// @param what is keyed, for the tool tip and for people who hear the window
    explicit LightKeyButton(const QString& what, QWidget* parent = nullptr);

    void setKeyed(bool isKeyed);

Q_SIGNALS:
    void clicked();

protected:
    void changeEvent(QEvent* event) override;

private:
    void paintIcon();

    QToolButton* _button;
    bool _isKeyed = false;
};

/// The row of one number.
class LightNumber : public QWidget
{
    Q_OBJECT

public:
    /// @param what    the number's name
    /// @param toolTip what it means
    /// @param limits  of the field; the slider has a range of its own in them
    LightNumber(const QString& what, const QString& toolTip, const AT_DoubleAttrMetaContainer& limits,
                QWidget* parent = nullptr);

    /// Shows a value; nobody is told.
    void show(double value, bool isKeyed);

    QSlider& slider() const { return *_slider; }
    QDoubleSpinBox& box() const { return *_box; }

Q_SIGNALS:
    /// A person changed the value.
    void changed(double value);
    /// The value is not dragged or typed any more.
    void finished();
    void keyClicked();

private:
    QSlider* _slider;
    QDoubleSpinBox* _box;
    LightKeyButton* _key;
    bool _showing = false;
};
