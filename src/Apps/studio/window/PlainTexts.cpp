// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "studio/window/PlainTexts.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QMessageBox>

namespace {

template<typename Widget>
void makePlain(Widget& widget)
{
    if (widget.textFormat() == Qt::AutoText)
        widget.setTextFormat(Qt::PlainText);
}

} // namespace

PlainTexts::PlainTexts(QObject* parent) : QObject(parent)
{
    qApp->installEventFilter(this);
}

// Widgets are polished before they are shown for the first time. The class of tool tips is known by its name alone.
bool PlainTexts::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Polish)
        return false;
    if (auto* const box = qobject_cast<QMessageBox*>(watched))
        makePlain(*box);
    else if (watched->inherits("QTipLabel"))
        makePlain(static_cast<QLabel&>(*watched));
    return false;
}
