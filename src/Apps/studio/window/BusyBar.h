// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// BusyBar: shows the progress of background work in the status bar, with a button that cancels it. It is hidden while
// nothing is going on, and for work that takes only a moment.
#pragma once

#include <QTimer>
#include <QWidget>

class QProgressBar;
class QToolButton;

class BusyBar : public QWidget
{
    Q_OBJECT

public:
    /// The time after which the bar appears.
    static constexpr int kPatience = 300;

    /// @param name   of the button among the window's objects
    /// @param what   goes on, for screen readers
    /// @param cancel what the button does
    BusyBar(const QString& name, const QString& what, const QString& cancel, QWidget* parent = nullptr);

    /// The work begins or has ended.
    void setBusy(bool busy);
    /// Shows the share that is done, 0 to 1; 0 means unknown.
    void showProgress(double done);

Q_SIGNALS:
    void cancelled();

private:
    QProgressBar* _progress;
    QToolButton* _cancel;
    QTimer _patience;
};
