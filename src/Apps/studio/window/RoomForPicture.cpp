// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A window gives all of a change of its width to what lies in its centre.
#include "studio/window/RoomForPicture.h"

#include <QDockWidget>
#include <QMainWindow>
#include <QResizeEvent>
#include <QTimer>

#include <utility>

RoomForPicture::RoomForPicture(QMainWindow& window, QList<QDockWidget*> docks)
    : QObject(&window), _window(window), _docks(std::move(docks))
{
    window.installEventFilter(this);
}

bool RoomForPicture::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize) {
        const auto& resized = static_cast<const QResizeEvent&>(*event);
        // The window lays its panels out later.
        if (resized.size().width() < resized.oldSize().width())
            QTimer::singleShot(0, this, &RoomForPicture::makeRoom);
    }
    return QObject::eventFilter(watched, event);
}

void RoomForPicture::makeRoom()
{
    const int most = widthOfPanels(_window.width());
    for (QDockWidget* const dock : std::as_const(_docks))
        if (!dock->isHidden() && !dock->isFloating() && _window.dockWidgetArea(dock) == Qt::RightDockWidgetArea &&
            dock->width() > most)
            _window.resizeDocks({dock}, {most}, Qt::Horizontal);
}
