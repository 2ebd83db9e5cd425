// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The node view, with mouse and keyboard.
#pragma once

#include "Apps/studio/docks/DocksTesting.h"

#include <QMouseEvent>

class NodeViewTest : public docks::DocksTest
{
protected:
    QPointF middleInGraph(const char* name) const { return nodes().item(module(name))->box().center(); }
    void moveMouse(const QPoint& to)
    {
        QMouseEvent event(QEvent::MouseMove, to, nodes().viewport()->mapToGlobal(to), Qt::NoButton, Qt::NoButton,
                          Qt::NoModifier);
        QApplication::sendEvent(nodes().viewport(), &event);
    }
    void moveBy(const MO_Module& module, const QPoint& way)
    {
        const QPoint from = middleOf(module);
        QTest::mousePress(nodes().viewport(), Qt::LeftButton, Qt::NoModifier, from);
        moveMouse(from + way / 2);
        moveMouse(from + way);
        QTest::mouseRelease(nodes().viewport(), Qt::LeftButton, Qt::NoModifier, from + way);
        docks::settle();
    }
    QPoint port(const MO_Module& module, bool isInput, unsigned index) const
    {
        return nodes().portPosition(module, isInput, index);
    }
    void click(const MO_Module& module, Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        QTest::mouseClick(nodes().viewport(), Qt::LeftButton, keys, middleOf(module));
    }
};
