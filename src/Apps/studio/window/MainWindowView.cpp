// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The options of the view: before and after, single channels, the background, raw numbers.
#include "studio/window/MainWindow.h"

#include "studio/preview/Viewer.h"
#include "studio/window/MessageBar.h"

#include <QAction>
#include <QActionGroup>
#include <QColorDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QImageReader>
#include <QMenu>
#include <QSettings>

namespace {

const QString kBackdropColour = QStringLiteral("backdrop/colour");
const QString kBackdropPicture = QStringLiteral("backdrop/picture");

} // namespace

void MainWindow::makeViewOptions()
{
    _split = makeAction(QStringLiteral("split"), tr("&Before and After"), QKeySequence(tr("Ctrl+B")),
                        tr("Splits the view: on the left of a border that can be dragged, the flat drawing; hold B to "
                           "see the flat drawing alone"));
    _split->setObjectName(QStringLiteral("splitView"));
    _split->setCheckable(true);
    connect(_split, &QAction::toggled, this, [this](bool on) {
        ViewOptions options = _viewer->options();
        options.border = on ? std::optional(0.5) : std::nullopt;
        _viewer->setOptions(options);
    });

    _channels = new QActionGroup(this);
    const std::pair<PictureChannel, QString> channels[] = {{PictureChannel::ALL, tr("&All")},
                                                           {PictureChannel::RED, tr("&Red")},
                                                           {PictureChannel::GREEN, tr("&Green")},
                                                           {PictureChannel::BLUE, tr("&Blue")},
                                                           {PictureChannel::ALPHA, tr("&Opacity")}};
    for (const auto& [channel, text] : channels)
        makeChoice(*_channels, text, tr("Shows one channel of the picture as grey, or all of them"),
                   channel == PictureChannel::ALL, [this, channel = channel] {
                       ViewOptions options = _viewer->options();
                       options.channel = channel;
                       _viewer->setOptions(options);
                   });
    _rawChannels = makeAction({}, tr("Ra&w Channels in the Status Bar"), {},
                              tr("Tells what the node delivers for the pixel under the mouse, channel by channel"));
    _rawChannels->setCheckable(true);
    connect(_rawChannels, &QAction::toggled, this, [this] { showPixel(_hovered); });

    const QSettings settings;
    ViewOptions options;
    options.backdrop.colour = QColor(settings.value(kBackdropColour).toString());
    const QString picture = settings.value(kBackdropPicture).toString();
    if (!picture.isEmpty())
        options.backdrop.picture = QImage(picture);
    _viewer->setOptions(options);
}

void MainWindow::fillViewOptions(QMenu& menu)
{
    menu.addAction(_split);
    menu.addMenu(tr("&Channel"))->addActions(_channels->actions());
    QMenu* const backdrop = menu.addMenu(tr("Bac&kground"));
    connect(backdrop->addAction(tr("&Checkerboard")), &QAction::triggered, this, [this] {
        ViewOptions options = _viewer->options();
        options.backdrop = {};
        QSettings().remove(kBackdropColour);
        QSettings().remove(kBackdropPicture);
        _viewer->setOptions(options);
    });
    connect(backdrop->addAction(tr("C&olour...")), &QAction::triggered, this, &MainWindow::askForBackdropColour);
    connect(backdrop->addAction(tr("&Picture...")), &QAction::triggered, this, &MainWindow::askForBackdropPicture);
    menu.addAction(_rawChannels);
}

void MainWindow::askForBackdropColour()
{
    const ViewBackdrop& now = _viewer->options().backdrop;
    const QColor colour = QColorDialog::getColor(now.colour.isValid() ? now.colour : QColor(0x40, 0x60, 0x90), this,
                                                 tr("Colour behind the Picture"));
    if (!colour.isValid())
        return;
    ViewOptions options = _viewer->options();
    options.backdrop = {.colour = colour, .picture = {}};
    QSettings settings;
    settings.setValue(kBackdropColour, colour.name());
    settings.remove(kBackdropPicture);
    _viewer->setOptions(options);
}

void MainWindow::askForBackdropPicture()
{
    QSettings settings;
    const QString before = settings.value(kBackdropPicture).toString();
    const QString path = QFileDialog::getOpenFileName(this, tr("Picture behind the Picture"),
                                                      before.isEmpty() ? QString() : QFileInfo(before).absolutePath(),
                                                      tr("Pictures (*.png *.jpg *.jpeg *.bmp *.webp)"));
    if (path.isEmpty())
        return;
    QImageReader reader(path);
    const QImage picture = reader.read();
    if (picture.isNull()) {
        _messages->showError(tr("%1 cannot be shown behind the picture: %2").arg(path, reader.errorString()));
        return;
    }
    ViewOptions options = _viewer->options();
    options.backdrop = {.colour = {}, .picture = picture};
    settings.setValue(kBackdropPicture, path);
    settings.remove(kBackdropColour);
    _viewer->setOptions(options);
}
