// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// HelpDialog: the first steps in words, what the mouse does in the picture, and all keys of the window.
#pragma once

#include <QDialog>

class QMainWindow;
class QTreeWidget;

/// The help of a window. It can stay open while people work in the window.
class HelpDialog : public QDialog
{
    Q_OBJECT

public:
    explicit HelpDialog(QMainWindow& window);

    /// The keys as they are now: undo, for one, is called after what it takes back.
    void refresh();

    /// The first steps as a list, in HTML.
    static QString firstSteps();

private:
    QWidget* stepsPage();
    QWidget* keysPage();
    void filter(const QString& words);

    QMainWindow& _window;
    QTreeWidget* _keys;
};
