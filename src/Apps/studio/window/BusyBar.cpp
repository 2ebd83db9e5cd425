// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// While the progress is unknown, the bar shows only that something is going on.
#include "studio/window/BusyBar.h"

#include <QHBoxLayout>
#include <QProgressBar>
#include <QToolButton>

namespace {

constexpr int kSteps = 1000;

} // namespace

BusyBar::BusyBar(const QString& name, const QString& what, const QString& cancel, QWidget* parent)
    : QWidget(parent), _progress(new QProgressBar), _cancel(new QToolButton)
{
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(_progress);
    layout->addWidget(_cancel);
    _progress->setAccessibleName(what);
    _progress->setTextVisible(false);
    _progress->setFixedWidth(160);
    _progress->setMaximumHeight(14);
    _cancel->setObjectName(name);
    _cancel->setText(tr("Cancel"));
    _cancel->setToolTip(cancel);
    connect(_cancel, &QToolButton::clicked, this, &BusyBar::cancelled);
    _patience.setSingleShot(true);
    _patience.setInterval(kPatience);
    connect(&_patience, &QTimer::timeout, this, &QWidget::show);
    // Otherwise the status bar would pull the progress and its button apart.
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    hide();
}

void BusyBar::setBusy(bool busy)
{
    showProgress(0.0);
    if (busy)
        return _patience.start();
    _patience.stop();
    hide();
}

void BusyBar::showProgress(double done)
{
    _progress->setRange(0, done > 0.0 ? kSteps : 0);
    _progress->setValue(static_cast<int>(done * kSteps));
}
