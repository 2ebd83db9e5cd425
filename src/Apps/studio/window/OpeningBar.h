// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// OpeningBar: how far the opening of a file is, with a button that gives it up. For the status bar; hidden when nothing
// is being opened, and for what is there in a moment.
#pragma once

#include <QTimer>
#include <QWidget>

class QProgressBar;
class QToolButton;
class SceneFiles;

class OpeningBar : public QWidget
{
    Q_OBJECT

public:
    /// How long something is opened before anybody is told.
    static constexpr int kPatience = 300;

    explicit OpeningBar(SceneFiles& files, QWidget* parent = nullptr);

private:
    void busyChanged();
    void showProgress(double done);

    SceneFiles& _files;
    QProgressBar* _progress;
    QToolButton* _cancel;
    QTimer _patience;
};
