// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// BusyBar: how far something in the background is, with a button that stops it. For the status bar; hidden when nothing
// is going on, and for what is over in a moment.
#pragma once

#include <QTimer>
#include <QWidget>

class QProgressBar;
class QToolButton;

class BusyBar : public QWidget
{
    Q_OBJECT

public:
    /// How long something goes on before anybody is told.
    static constexpr int kPatience = 300;

    /// @param name   of the button among the window's objects
    /// @param what   goes on, for screen readers
    /// @param cancel what the button does
    BusyBar(const QString& name, const QString& what, const QString& cancel, QWidget* parent = nullptr);

    /// Something begins or has ended.
    void setBusy(bool busy);
    /// How much of it is done, 0 to 1; 0 where nobody knows.
    void showProgress(double done);

Q_SIGNALS:
    void cancelled();

private:
    QProgressBar* _progress;
    QToolButton* _cancel;
    QTimer _patience;
};
