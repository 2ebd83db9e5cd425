// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The bar only runs to and fro until somebody knows how much there is to read.
#include "studio/window/OpeningBar.h"

#include "studio/document/SceneFiles.h"

#include <QHBoxLayout>
#include <QProgressBar>
#include <QToolButton>

namespace {

constexpr int kSteps = 1000;

} // namespace

OpeningBar::OpeningBar(SceneFiles& files, QWidget* parent)
    : QWidget(parent), _files(files), _progress(new QProgressBar), _cancel(new QToolButton)
{
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(_progress);
    layout->addWidget(_cancel);
    _progress->setObjectName(QStringLiteral("openingProgress"));
    _progress->setAccessibleName(tr("Opening"));
    _progress->setTextVisible(false);
    _progress->setFixedWidth(160);
    _progress->setMaximumHeight(14);
    _cancel->setObjectName(QStringLiteral("cancelOpening"));
    _cancel->setText(tr("Cancel"));
    _cancel->setToolTip(tr("Gives up opening; what is open stays"));
    connect(_cancel, &QToolButton::clicked, &_files, &SceneFiles::cancel);
    connect(&_files, &SceneFiles::busyChanged, this, &OpeningBar::busyChanged);
    connect(&_files, &SceneFiles::progressed, this, &OpeningBar::showProgress);
    _patience.setSingleShot(true);
    _patience.setInterval(kPatience);
    connect(&_patience, &QTimer::timeout, this, &QWidget::show);
    hide();
}

void OpeningBar::busyChanged()
{
    showProgress(0.0);
    if (_files.isBusy())
        return _patience.start();
    _patience.stop();
    hide();
}

void OpeningBar::showProgress(double done)
{
    _progress->setRange(0, done > 0.0 ? kSteps : 0);
    _progress->setValue(static_cast<int>(done * kSteps));
}
