// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RoomForPicture: a window that becomes narrower takes the width from the panels on its right too, not from the picture
// alone.
#pragma once

#include <QList>
#include <QObject>

class QDockWidget;
class QMainWindow;

class RoomForPicture : public QObject
{
    Q_OBJECT

public:
    /// @param docks panels of the right side, one for each row; ignored where people put them elsewhere
    RoomForPicture(QMainWindow& window, QList<QDockWidget*> docks);

    /// How wide the panels are at most in a window of a width, unless people make them wider.
    static int widthOfPanels(int windowWidth) { return windowWidth * 42 / 100; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeRoom();

    QMainWindow& _window;
    QList<QDockWidget*> _docks;
};
