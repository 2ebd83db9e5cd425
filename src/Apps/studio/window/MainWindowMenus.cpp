// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Everything that can be done, once as an action; menus and tool bar show the same ones.
#include "studio/window/MainWindow.h"

#include "studio/objects/ObjectActions.h"
#include "studio/preview/Viewer.h"
#include "studio/window/Appearance.h"
#include "studio/window/Icons.h"
#include "studio/window/StartPage.h"

#include <QAction>
#include <QActionGroup>
#include <QDockWidget>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QToolBar>
#include <QToolButton>

namespace {

const QString kSizeKey = QStringLiteral("previewSize");

} // namespace

QAction* MainWindow::makeAction(const QString& icon, const QString& text, const QKeySequence& keys,
                                const QString& toolTip)
{
    auto* const action = new QAction(text, this);
    action->setShortcut(keys);
    const QString shown = keys.toString(QKeySequence::NativeText);
    action->setToolTip(shown.isEmpty() ? toolTip : tr("%1 (%2)").arg(toolTip, shown));
    action->setStatusTip(toolTip);
    if (!icon.isEmpty())
        _icons.append({action, icon});
    return action;
}

void MainWindow::makeActions()
{
    makeFileActions();
    makeEditActions();
    makeViewActions();
}

void MainWindow::makeFileActions()
{
    _new = makeAction(QStringLiteral("new"), tr("&New Scene"), QKeySequence::New, tr("Begins an empty scene"));
    _open = makeAction(QStringLiteral("open"), tr("&Open Scene..."), QKeySequence::Open,
                       tr("Opens a scene that was saved before"));
    _import = makeAction(QStringLiteral("import"), tr("&Import Drawings..."), QKeySequence(tr("Ctrl+I")),
                         tr("Makes a scene of SVG drawings, bitmaps or a Lottie animation"));
    _example = makeAction(QStringLiteral("example"), tr("Open E&xample"), {}, tr("Opens the example drawing"));
    _addDrawings = makeAction({}, tr("Add Dra&wings..."), QKeySequence(tr("Ctrl+Shift+I")),
                              tr("Puts the drawings of other files on top of those of the scene"));
    _replaceDrawing =
        makeAction({}, tr("Rep&lace Drawing..."), {},
                   tr("Replaces the selected drawing by another file; the settings of its objects are kept"));
    _reload = makeAction({}, tr("Reload &Drawings"), QKeySequence(tr("F5")),
                         tr("Reads the drawings of the scene again; files that change are read by themselves"));
    _save = makeAction(QStringLiteral("save"), tr("&Save"), QKeySequence::Save, tr("Saves the scene"));
    _saveAs = makeAction({}, tr("Save &As..."), QKeySequence(tr("Ctrl+Shift+S")), tr("Saves the scene elsewhere"));
    _export = makeAction(QStringLiteral("export"), tr("&Export Frames..."), QKeySequence(tr("Ctrl+E")),
                         tr("Renders frames into picture files"));
    _repeatExport = makeAction({}, tr("Re&peat Last Export"), QKeySequence(tr("Ctrl+Shift+E")),
                               tr("Exports as before, into the same files"));
    _share = makeAction({}, tr("S&hare..."), {},
                        tr("Writes one page for browsers that plays the drawing in a light which follows the pointer"));
    _share->setObjectName(QStringLiteral("sharePage"));
    _quit = makeAction({}, tr("&Quit"), QKeySequence(tr("Ctrl+Q")), tr("Closes the application"));
    _quit->setMenuRole(QAction::QuitRole);
    connect(_new, &QAction::triggered, this, &MainWindow::newScene);
    connect(_open, &QAction::triggered, this, &MainWindow::askForScene);
    connect(_import, &QAction::triggered, this, &MainWindow::askForDrawings);
    connect(_addDrawings, &QAction::triggered, this, &MainWindow::addDrawings);
    connect(_replaceDrawing, &QAction::triggered, this, &MainWindow::replaceDrawing);
    connect(_reload, &QAction::triggered, &_sources, &DrawingSources::reloadAll);
    connect(_example, &QAction::triggered, this, &MainWindow::openExample);
    connect(_save, &QAction::triggered, this, &MainWindow::save);
    connect(_saveAs, &QAction::triggered, this, &MainWindow::saveAs);
    connect(_export, &QAction::triggered, this, &MainWindow::exportFrames);
    connect(_repeatExport, &QAction::triggered, this, &MainWindow::repeatExport);
    connect(_share, &QAction::triggered, this, &MainWindow::sharePage);
    connect(_quit, &QAction::triggered, this, &MainWindow::close);
}

void MainWindow::makeEditActions()
{
    _undo = makeAction(QStringLiteral("undo"), tr("&Undo"), QKeySequence::Undo, tr("Takes the last change back"));
    _redo =
        makeAction(QStringLiteral("redo"), tr("&Redo"), QKeySequence::Redo, tr("Repeats the change that was undone"));
    _delete = makeAction({}, tr("&Delete"), QKeySequence::Delete, tr("Deletes the selected modules"));
    _duplicate = makeAction({}, tr("Dup&licate"), QKeySequence(tr("Ctrl+D")), tr("Copies the selected modules"));
    // The views have keys of their own for these, which must not be ambiguous.
    for (QAction* const action : {_delete, _duplicate}) {
        action->setShortcutContext(Qt::WidgetShortcut);
        _viewer->addAction(action);
    }
    connect(_undo, &QAction::triggered, &_document, &StudioDocument::undo);
    connect(_redo, &QAction::triggered, &_document, &StudioDocument::redo);
    connect(_delete, &QAction::triggered, this, &MainWindow::deleteSelected);
    connect(_duplicate, &QAction::triggered, this, &MainWindow::duplicateSelected);
}

void MainWindow::makePictureAction(PictureKind kind, const QString& icon, const QString& text, const QString& toolTip,
                                   int key)
{
    QAction* const action = makeAction(icon, text, QKeySequence(QStringLiteral("Alt+%1").arg(key)), toolTip);
    action->setObjectName(icon + QStringLiteral("Picture"));
    action->setCheckable(true);
    action->setChecked(kind == _viewer->kind());
    _pictures->addAction(action);
    connect(action, &QAction::triggered, _viewer, [this, kind] { _viewer->setKind(kind); });
    connect(_viewer, &Viewer::kindChanged, action,
            [action, kind](PictureKind now) { action->setChecked(now == kind); });
}

void MainWindow::makeViewActions()
{
    _pictures = new QActionGroup(this);
    makePictureAction(PictureKind::DRAWING, QStringLiteral("drawing"), tr("&Drawing"), tr("Shows the drawing"), 1);
    makePictureAction(PictureKind::ELEVATION, QStringLiteral("elevation"), tr("&Elevation"),
                      tr("Shows how high the surface is: white is highest"), 2);
    makePictureAction(PictureKind::NORMALS, QStringLiteral("normals"), tr("&Normals"), tr("Shows the normal map"), 3);
    makePictureAction(PictureKind::LIT, QStringLiteral("lit"), tr("&Lit"),
                      tr("Shows the drawing in the light; drag the lights by their handles"), 4);
    _fit = makeAction(QStringLiteral("fit"), tr("&Fit"), QKeySequence(tr("Ctrl+0")), tr("Shows the whole picture"));
    _actualSize = makeAction({}, tr("&100 %"), QKeySequence(tr("Ctrl+1")), tr("Shows a pixel as a pixel"));
    _zoomIn = makeAction(QStringLiteral("zoom-in"), tr("Zoom &In"), QKeySequence::ZoomIn, tr("Shows more detail"));
    _zoomOut = makeAction(QStringLiteral("zoom-out"), tr("Zoom &Out"), QKeySequence::ZoomOut, tr("Shows more at once"));
    connect(_fit, &QAction::triggered, _viewer, &Viewer::fit);
    connect(_actualSize, &QAction::triggered, _viewer, [this] { _viewer->zoomTo(1.0); });
    connect(_zoomIn, &QAction::triggered, _viewer, &Viewer::zoomIn);
    connect(_zoomOut, &QAction::triggered, _viewer, &Viewer::zoomOut);

    _followSelection = makeAction({}, tr("Show &Selected Node"), {},
                                  tr("Shows the picture of the node that is selected, not the scene's output"));
    _followSelection->setCheckable(true);
    connect(_followSelection, &QAction::toggled, this, [this] { Q_EMIT _document.selectionChanged(); });
    makeViewOptions();
    _resetLayout = makeAction({}, tr("Rese&t Layout"), {}, tr("Puts all panels back where they were at first"));
    _resetLayout->setObjectName(QStringLiteral("resetLayout"));
    connect(_resetLayout, &QAction::triggered, this, &MainWindow::resetLayout);

    _sizes = new QActionGroup(this);
    const int stored = QSettings().value(kSizeKey, _renders.longestSide()).toInt();
    for (const int side : {640, 1280, 1920, 2560, 3840}) {
        QAction* const action = makeAction({}, tr("%1 pixels").arg(side), {}, tr("The preview's longer side"));
        action->setCheckable(true);
        action->setChecked(side == stored);
        _sizes->addAction(action);
        connect(action, &QAction::triggered, this, [this, side] {
            QSettings().setValue(kSizeKey, side);
            _renders.setLongestSide(side);
        });
    }
    _renders.setLongestSide(stored);

    _appearances = new QActionGroup(this);
    const std::pair<Appearance, QString> choices[] = {{Appearance::SYSTEM, tr("As the &Desktop")},
                                                      {Appearance::LIGHT, tr("&Light")},
                                                      {Appearance::DARK, tr("D&ark")}};
    for (const auto& [appearance, text] : choices) {
        QAction* const action = makeAction({}, text, {}, tr("The colours of the window"));
        action->setCheckable(true);
        action->setChecked(appearance == storedAppearance());
        _appearances->addAction(action);
        connect(action, &QAction::triggered, this, [appearance = appearance] {
            storeAppearance(appearance);
            applyAppearance(appearance);
        });
    }
}

void MainWindow::makeMenus()
{
    QMenu* const file = menuBar()->addMenu(tr("&File"));
    file->addActions({_new, _open, _import, _example});
    _recentMenu = file->addMenu(tr("&Recent"));
    connect(&_recent, &RecentFiles::changed, this, &MainWindow::fillRecentMenu);
    fillRecentMenu();
    file->addSeparator();
    file->addActions({_addDrawings, _replaceDrawing, _reload});
    file->addSeparator();
    file->addActions({_save, _saveAs, _export, _repeatExport, _share});
    file->addSeparator();
    file->addAction(_quit);

    QMenu* const edit = menuBar()->addMenu(tr("&Edit"));
    edit->addActions({_undo, _redo});
    edit->addSeparator();
    edit->addActions({_duplicate, _delete});
    QMenu* const object = edit->addMenu(tr("&Object"));
    connect(object, &QMenu::aboutToShow, this, [this, object] {
        object->clear();
        _objectActions->fillMenu(*object);
    });

    QMenu* const view = menuBar()->addMenu(tr("&View"));
    view->addActions(_pictures->actions());
    view->addSeparator();
    view->addActions({_fit, _actualSize, _zoomIn, _zoomOut});
    view->addSeparator();
    fillViewOptions(*view);
    view->addSeparator();
    view->addAction(_followSelection);
    view->addMenu(tr("Preview Si&ze"))->addActions(_sizes->actions());
    view->addSeparator();
    _docksMenu = view->addMenu(tr("&Panels"));
    connect(_docksMenu, &QMenu::aboutToShow, this, &MainWindow::fillViewMenu);
    fillViewMenu();
    view->addAction(_resetLayout);
    view->addMenu(tr("&Appearance"))->addActions(_appearances->actions());

    QMenu* const help = menuBar()->addMenu(tr("&Help"));
    _showHelp =
        makeAction({}, tr("&Help"), QKeySequence(QKeySequence::HelpContents), tr("The first steps, and all keys"));
    _showHelp->setObjectName(QStringLiteral("showHelp"));
    connect(_showHelp, &QAction::triggered, this, &MainWindow::showHelp);
    connect(_start, &StartPage::helpRequested, this, &MainWindow::showHelp);
    help->addAction(_showHelp);
    help->addSeparator();
    connect(help->addAction(tr("&About Quarvel Studio")), &QAction::triggered, this, &MainWindow::showAbout);
}

void MainWindow::makeToolBar()
{
    QToolBar* const bar = addToolBar(tr("Tools"));
    bar->setObjectName(QStringLiteral("toolBar"));
    bar->setMovable(false);
    bar->setIconSize(QSize(20, 20));
    bar->addActions({_open, _import, _save, _export});
    bar->addSeparator();
    bar->addActions({_undo, _redo});
    bar->addSeparator();
    bar->addActions(_pictures->actions());
    bar->addAction(_split);
    bar->addSeparator();
    bar->addActions({_fit, _zoomIn, _zoomOut});
    for (QAction* const action : _pictures->actions())
        if (auto* const button = qobject_cast<QToolButton*>(bar->widgetForAction(action)))
            button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
}

void MainWindow::fillRecentMenu()
{
    _recentMenu->clear();
    for (const QString& path : _recent.paths()) {
        QString name = QFileInfo(path).fileName();
        QAction* const action = _recentMenu->addAction(name.replace(QLatin1Char('&'), QStringLiteral("&&")));
        action->setToolTip(path);
        action->setStatusTip(path);
        connect(action, &QAction::triggered, this, [this, path] { openRecent(path); });
    }
    _recentMenu->setEnabled(!_recent.paths().isEmpty());
    _recentMenu->addSeparator();
    connect(_recentMenu->addAction(tr("&Clear")), &QAction::triggered, &_recent, &RecentFiles::clear);
}

void MainWindow::fillViewMenu()
{
    _docksMenu->clear();
    for (QDockWidget* const dock : findChildren<QDockWidget*>())
        _docksMenu->addAction(dock->toggleViewAction());
}

void MainWindow::refreshIcons()
{
    for (const auto& [action, icon] : _icons)
        action->setIcon(studioIcon(icon, palette()));
    _objectActions->refreshIcons();
}
