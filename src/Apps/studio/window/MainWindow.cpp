// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Makes the parts of the window and connects them.
#include "studio/window/MainWindow.h"

#include "studio/docks/scene/LightPanel.h"
#include "studio/docks/timeline/Playback.h"
#include "studio/docks/timeline/TimelineCanvas.h"
#include "studio/docks/timeline/TimelineView.h"
#include "studio/objects/ObjectHands.h"
#include "studio/preview/Viewer.h"
#include "studio/window/MessageBar.h"
#include "studio/window/PixelReadOut.h"
#include "studio/window/PlainTexts.h"
#include "studio/window/RoomForPicture.h"
#include "studio/window/StartPage.h"
#include "studio/window/StudioDocks.h"
#include "studio/window/TimelinePlace.h"

#include <QAction>
#include <QActionGroup>
#include <QDockWidget>
#include <QEvent>
#include <QFontDatabase>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace {

const QString kGeometryKey = QStringLiteral("window/geometry");
const QString kStateKey = QStringLiteral("window/state");
// What a desktop draws around a window is not known before it is shown, and the status bar must not lie below the
// screen.
constexpr QSize kFirstSize(1440, 900);
constexpr QSize kFrameAround(8, 48);

const QString kByHandKey = QStringLiteral("window/arrangedByHand");
const QString kTimelineNamesKey = QStringLiteral("window/timelineNames");

} // namespace

MainWindow::MainWindow(const QString& recoveryFolder, QWidget* parent)
    : QMainWindow(parent)
    , _objects(_document)
    , _renders(_document)
    , _files(_document)
    , _lastExport(_document)
    , _pageShare(_document)
    , _sources(_document)
    , _autosave(_document, recoveryFolder.isEmpty() ? Autosave::defaultFolder() : recoveryFolder)
{
    setObjectName(QStringLiteral("mainWindow"));
    new PlainTexts(this);
    setAcceptDrops(true);
    setDockNestingEnabled(true);
    makeCentre();
    makeStatusBar();
    makeObjects();
    makeActions();
    makeDocks();
    makeObjectsDock();
    new RoomForPicture(*this, {findChild<QDockWidget*>(QStringLiteral("ObjectsDock")),
                               findChild<QDockWidget*>(QStringLiteral("lightsDock"))});
    makeColourPicker();
    makeMenus();
    makeToolBar();
    refreshIcons();
    makeSources();

    connect(&_document, &StudioDocument::stateChanged, this, &MainWindow::updateActions);
    connect(&_document, &StudioDocument::selectionChanged, this, &MainWindow::updateActions);
    connect(&_document, &StudioDocument::selectionChanged, this, &MainWindow::followSelection);
    connect(&_renders, &RenderService::frameChanged, this, &MainWindow::frameChanged);
    connect(&_renders, &RenderService::stateChanged, this, &MainWindow::renderStateChanged);
    connect(&_renders, &RenderService::progressed, _viewer, &Viewer::setProgress);
    _files.setMayReplace([this] { return confirmLeaving(); });
    connect(&_files, &SceneFiles::opened, this, &MainWindow::opened);
    connect(&_files, &SceneFiles::failed, _messages, &MessageBar::showError);
    connect(&_files, &SceneFiles::busyChanged, this, [this] {
        if (_files.isBusy())
            statusBar()->showMessage(tr("Opening..."));
        else
            statusBar()->clearMessage();
        updateActions();
    });
    connect(&_autosave, &Autosave::failed, _messages, &MessageBar::showError);
    connect(&_lastExport, &LastExport::runningChanged, this, &MainWindow::updateActions);
    connect(&_pageShare, &PageShare::runningChanged, this, &MainWindow::updateActions);

    resize(kFirstSize.boundedTo(screen()->availableSize() - kFrameAround));
    _firstLayout = saveState();
    restoreLayout();
    showStart(true);
    updateActions();
}

MainWindow::~MainWindow()
{
    // A field that loses the focus reports what was typed, and must do so while it is whole.
    hide();
    if (QWidget* const focused = focusWidget())
        focused->clearFocus();
    // The hands use the viewer in their destructor.
    delete std::exchange(_hands, nullptr);
    // The children use the members until they are destroyed: a header that loses a section asks its model again.
    qDeleteAll(findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
}

void MainWindow::makeCentre()
{
    auto* const centre = new QWidget;
    auto* const layout = new QVBoxLayout(centre);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    _messages = new MessageBar;
    _pages = new QStackedWidget;
    _start = new StartPage(_recent);
    _viewer = new Viewer(_lights);
    _pages->addWidget(_start);
    _pages->addWidget(_viewer);
    layout->addWidget(_messages);
    layout->addWidget(_pages, 1);
    setCentralWidget(centre);
    connect(_start, &StartPage::importRequested, this, &MainWindow::askForDrawings);
    connect(_start, &StartPage::openRequested, this, &MainWindow::askForScene);
    connect(_start, &StartPage::exampleRequested, this, &MainWindow::openExample);
    connect(_start, &StartPage::recentRequested, this, &MainWindow::openRecent);
    connect(_start, &StartPage::helpRequested, this, &MainWindow::showHelp);
    connect(_viewer, &Viewer::hovered, this, &MainWindow::showPixel);
    connect(_viewer, &Viewer::zoomChanged, this, &MainWindow::showZoom);
}

void MainWindow::makeDocks()
{
    addStudioDocks(*this, _document);
    // Otherwise a frame that takes longer to render than it is shown would never be seen.
    Playback& playback = findChild<TimelineView*>()->playback();
    playback.setIsBusy([this] { return _renders.isFrameAwaited(); });
    connect(&playback, &Playback::playingChanged, &_renders, &RenderService::setPlaying);
    _timelinePlace = new TimelinePlace(*this, *findChild<QDockWidget*>(QStringLiteral("NodesDock")),
                                       *findChild<QDockWidget*>(QStringLiteral("TimelineDock")));
    auto* const dock = new QDockWidget(tr("Lights"), this);
    dock->setObjectName(QStringLiteral("lightsDock"));
    auto* const scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setAccessibleName(dock->windowTitle());
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidgetResizable(true);
    scroll->setWidget(new LightPanel(_lights));
    dock->setWidget(scroll);
    addDockWidget(Qt::RightDockWidgetArea, dock);
    // The other panels of the right side are needed less often, so they share it as tabs.
    tabifyDockWidget(findChild<QDockWidget*>(QStringLiteral("ElementsDock")), dock);
}

void MainWindow::shareOutRoom()
{
    // Wide enough for the properties' tables, and never so wide that the picture is the smaller part.
    constexpr int kWidth = 568;
    const int width = std::min(kWidth, RoomForPicture::widthOfPanels(this->width()));
    auto* const objects = findChild<QDockWidget*>(QStringLiteral("ObjectsDock"));
    auto* const lights = findChild<QDockWidget*>(QStringLiteral("lightsDock"));
    resizeDocks({objects, lights}, {width, width}, Qt::Horizontal);
    resizeDocks({objects, lights}, {540, 330}, Qt::Vertical);
    auto* const nodes = findChild<QDockWidget*>(QStringLiteral("NodesDock"));
    auto* const timeline = findChild<QDockWidget*>(QStringLiteral("TimelineDock"));
    // On a screen 1440 wide, the timeline's bar is one line.
    resizeDocks({nodes, timeline}, {330, 630}, Qt::Horizontal);
    resizeDocks({nodes}, {this->height() * 3 / 10}, Qt::Vertical);
}

void MainWindow::raiseFirstDocks()
{
    // People use objects and lights first. The order of tabs is known only after the docks were laid out.
    for (const char* const name : {"ObjectsDock", "lightsDock"}) {
        auto* const dock = findChild<QDockWidget*>(QLatin1String(name));
        QTimer::singleShot(0, dock, [dock] { dock->raise(); });
    }
}

void MainWindow::resetLayout()
{
    restoreState(_firstLayout);
    findChild<TimelineCanvas*>()->setNameWidth(TimelineCanvas::kFirstNameWidth);
    shareOutRoom();
    raiseFirstDocks();
    _timelinePlace->setByHand(false);
    _timelinePlace->follow(_document.scene());
}

void MainWindow::makeStatusBar()
{
    _pixelLabel = new QLabel;
    _pixelLabel->setObjectName(QStringLiteral("pixelReadOut"));
    _pixelLabel->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    _pixelLabel->setToolTip(tr("The pixel under the mouse: its place, what the view shows there, and the object"));
    _stateLabel = new QLabel;
    _zoomLabel = new QLabel;
    _zoomLabel->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("6400 %")));
    _zoomLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    statusBar()->addWidget(_pixelLabel, 1);
    makeBusyBars();
    statusBar()->addPermanentWidget(_stateLabel);
    statusBar()->addPermanentWidget(_zoomLabel);
}

void MainWindow::frameChanged()
{
    _viewer->setFrame(_renders.current());
    showZoom();
    showPixel(_hovered);
}

void MainWindow::renderStateChanged()
{
    const bool empty = _document.scene().root().modules().empty();
    if (!_renders.error().isEmpty())
        _viewer->setMessage(tr("This frame cannot be shown:\n%1").arg(_renders.error()));
    else if (empty)
        _viewer->setMessage(tr("The scene is empty.\nDrop drawings here, or add nodes in the node view."));
    else
        _viewer->setMessage(_renders.isRendering() ? tr("Rendering...") : QString());
    _viewer->setProgress(_renders.isRendering() ? 0.0 : -1.0);
    const RenderedFramePtr& frame = _renders.current();
    if (_renders.isRendering())
        _stateLabel->setText(frame && !frame->isFull() ? tr("Quick preview") : tr("Rendering..."));
    else
        _stateLabel->setText(frame ? tr("%1 x %2").arg(frame->fullSize.width()).arg(frame->fullSize.height())
                                   : QString());
}

void MainWindow::showPixel(const std::optional<QPoint>& place)
{
    _hovered = place;
    const RenderedFramePtr& frame = _viewer->frame();
    if (!place || !frame)
        return _pixelLabel->clear();
    _pixelLabel->setText(_rawChannels->isChecked()
                             ? PixelReadOut::rawText(*frame, *place)
                             : PixelReadOut::text(*frame, _viewer->seenKind(), _viewer->shownImage(), _objects.all(),
                                                  *place, _document.currentFrame()));
}

void MainWindow::showZoom()
{
    _zoomLabel->setText(_viewer->frame() ? tr("%1 %").arg(qRound(_viewer->zoom() * 100.0)) : QString());
}

void MainWindow::updateTitle()
{
    const bool started = _pages->currentWidget() == _viewer;
    setWindowTitle(started ? tr("%1[*] - Quarvel Studio").arg(_document.title()) : tr("Quarvel Studio[*]"));
    setWindowModified(_document.isModified());
}

void MainWindow::updateActions()
{
    updateTitle();
    const CO_CommandStack& commands = _document.commands();
    const auto name = [](const QString& verb, const QString& command) {
        return command.isEmpty() ? verb : verb + QLatin1Char(' ') + command;
    };
    _undo->setText(name(tr("&Undo"), commands.undoName()));
    _undo->setEnabled(commands.canUndo());
    _redo->setText(name(tr("&Redo"), commands.redoName()));
    _redo->setEnabled(commands.canRedo());
    const bool selected = !_document.selection().isEmpty();
    _delete->setEnabled(selected);
    _duplicate->setEnabled(selected);
    const bool started = _pages->currentWidget() == _viewer;
    const bool hasModules = !_document.scene().root().modules().empty();
    for (QAction* const action : {_save, _saveAs})
        action->setEnabled(started && !_files.isBusy());
    for (QAction* const action : {_addDrawings, _replaceDrawing, _reload})
        action->setEnabled(started && hasModules);
    _export->setEnabled(started && hasModules);
    _repeatExport->setEnabled(started && hasModules && !_lastExport.isRunning());
    _share->setEnabled(started && hasModules && !_pageShare.isRunning());
    for (QAction* const action : {_fit, _actualSize, _zoomIn, _zoomOut})
        action->setEnabled(started);
    _pictures->setEnabled(started);
    _resetLayout->setEnabled(started);
}

void MainWindow::showStart(bool start)
{
    _pages->setCurrentWidget(start ? static_cast<QWidget*>(_start) : _viewer);
    // Without a scene, the panels would be empty.
    if (start)
        for (QDockWidget* const dock : findChildren<QDockWidget*>())
            if (!dock->isHidden()) {
                dock->hide();
                _hiddenDocks << dock;
            }
    if (!start && !_hiddenDocks.isEmpty()) {
        for (QDockWidget* const dock : std::exchange(_hiddenDocks, {}))
            dock->show();
        // Panels that were hidden have lost the sizes that they had.
        if (const QByteArray layout = QSettings().value(kStateKey).toByteArray(); layout.isEmpty())
            shareOutRoom();
        else
            restoreState(layout);
        raiseFirstDocks();
    }
    if (!start) {
        followDrawingsSize();
        _timelinePlace->follow(_document.scene());
        _viewer->setFocus();
    }
    updateActions();
}

void MainWindow::restoreLayout()
{
    const QSettings settings;
    restoreGeometry(settings.value(kGeometryKey).toByteArray());
    restoreState(settings.value(kStateKey).toByteArray());
    _timelinePlace->setByHand(settings.value(kByHandKey, false).toBool());
    findChild<TimelineCanvas*>()->setNameWidth(
        settings.value(kTimelineNamesKey, TimelineCanvas::kFirstNameWidth).toInt());
}

void MainWindow::storeLayout()
{
    QSettings settings;
    settings.setValue(kGeometryKey, saveGeometry());
    if (!_hiddenDocks.isEmpty())
        return;
    settings.setValue(kStateKey, saveState());
    settings.setValue(kByHandKey, _timelinePlace->isByHand());
    settings.setValue(kTimelineNamesKey, findChild<TimelineCanvas*>()->nameWidth());
}

void MainWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        refreshIcons();
}
