// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Everything that can be done, once as an action; menus and tool bar show the same ones.
#include "studio/window/MainWindow.h"

#include "QuarvelBaseCore/UT_FileName.h"
#include "QuarvelDrawingIO/DIO_BitmapReader.h"
#include "QuarvelDrawingIO/DIO_LayeredReader.h"
#include "jobs/import/SceneElements.h"
#include "studio/export/ExportPlan.h"
#include "studio/objects/ObjectActions.h"
#include "studio/preview/Viewer.h"
#include "studio/window/Appearance.h"
#include "studio/window/Icons.h"

#include <QAction>
#include <QActionGroup>
#include <QDockWidget>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

namespace {

const QString kSizeKey = QStringLiteral("previewSize");
// In place of a number of pixels: the drawing's own size, and that for small sprites alone.
constexpr int kOwnSize = 0;
constexpr int kAsSuits = -1;
constexpr int kUsualSide = 1920;
// The pixels of a sprite up to this size are seen in the window, and meant to be.
constexpr int kSpriteSide = 128;

int chosenSize()
{
    return QSettings().value(kSizeKey, kAsSuits).toInt();
}

int ownSide(const MO_Scene& scene)
{
    const int width = ownWidth(scene);
    return std::max(width, scene.heightInPixels(width));
}

bool isBitmap(const QString& file)
{
    const QString suffix = UT_fileSuffix(file);
    return DIO_bitmapSuffixes().contains(suffix) ||
           std::ranges::any_of(DIO_layeredKinds(),
                               [&](const DIO_LayeredKind& kind) { return kind.suffixes.contains(suffix); });
}

// Whether all drawings were read from small bitmaps.
bool isSprite(const MO_Scene& scene)
{
    const std::vector<QStringList> origins = originsOf(scene);
    return !origins.empty() && ownSide(scene) <= kSpriteSide &&
           std::ranges::all_of(origins, [](const QStringList& files) { return std::ranges::all_of(files, isBitmap); });
}

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

// What is not a setting and not about a picture: each is made, put into its member and connected in the same way.
struct MainWindow::PlainAction
{
    QAction*& action;
    const char* icon; ///< null: none
    QString text;
    QKeySequence keys;
    QString toolTip;
    std::function<void()> triggered;
};

void MainWindow::makePlainActions(std::initializer_list<PlainAction> plain)
{
    for (const PlainAction& each : plain) {
        each.action = makeAction(QString::fromLatin1(each.icon), each.text, each.keys, each.toolTip);
        connect(each.action, &QAction::triggered, this, each.triggered);
    }
}

void MainWindow::makeActions()
{
    makeSceneActions();
    makeDrawingActions();
    makeExportActions();
    makeEditActions();
    makePictureActions();
    makeZoomActions();
    makeViewOptions();
    makeSizeActions();
    makeAppearanceActions();
    makePlainActions({{_resetLayout,
                       nullptr,
                       tr("Rese&t Layout"),
                       {},
                       tr("Puts all panels back where they were at first"),
                       [this] { resetLayout(); }},
                      {_showHelp, nullptr, tr("&Help"), QKeySequence::HelpContents, tr("The first steps, and all keys"),
                       [this] { showHelp(); }}});
    _resetLayout->setObjectName(QStringLiteral("resetLayout"));
    _showHelp->setObjectName(QStringLiteral("showHelp"));
}

void MainWindow::makeSceneActions()
{
    makePlainActions(
        {{_new, "new", tr("&New Scene"), QKeySequence::New, tr("Begins an empty scene"), [this] { newScene(); }},
         {_open, "open", tr("&Open Scene..."), QKeySequence::Open, tr("Opens a scene that was saved before"),
          [this] { askForScene(); }},
         {_save, "save", tr("&Save"), QKeySequence::Save, tr("Saves the scene"), [this] { save(); }},
         {_saveAs, nullptr, tr("Save &As..."), tr("Ctrl+Shift+S"), tr("Saves the scene elsewhere"),
          [this] { saveAs(); }},
         {_quit, nullptr, tr("&Quit"), tr("Ctrl+Q"), tr("Closes the application"), [this] { close(); }}});
    _quit->setMenuRole(QAction::QuitRole);
}

void MainWindow::makeDrawingActions()
{
    makePlainActions(
        {{_import, "import", tr("&Import Drawings..."), tr("Ctrl+I"),
          tr("Makes a scene of SVG drawings, bitmaps or a Lottie animation"), [this] { askForDrawings(); }},
         {_example, "example", tr("Open E&xample"), {}, tr("Opens the example drawing"), [this] { openExample(); }},
         {_addDrawings, nullptr, tr("Add Dra&wings..."), tr("Ctrl+Shift+I"),
          tr("Puts the drawings of other files on top of those of the scene"), [this] { addDrawings(); }},
         {_replaceDrawing,
          nullptr,
          tr("Rep&lace Drawing..."),
          {},
          tr("Replaces the selected drawing by another file; the settings of its objects are kept"),
          [this] { replaceDrawing(); }},
         {_reload, nullptr, tr("Reload &Drawings"), tr("F5"),
          tr("Reads the drawings of the scene again; files that change are read by themselves"),
          [this] { _sources.reloadAll(); }}});
}

void MainWindow::makeExportActions()
{
    makePlainActions({{_export, "export", tr("&Export Frames..."), tr("Ctrl+E"),
                       tr("Renders frames into picture files"), [this] { exportFrames(); }},
                      {_repeatExport, nullptr, tr("Re&peat Last Export"), tr("Ctrl+Shift+E"),
                       tr("Exports as before, into the same files"), [this] { repeatExport(); }},
                      {_share,
                       nullptr,
                       tr("S&hare..."),
                       {},
                       tr("Writes one page for browsers that plays the drawing in a light which follows the pointer"),
                       [this] { sharePage(); }}});
    _share->setObjectName(QStringLiteral("sharePage"));
}

void MainWindow::makeEditActions()
{
    makePlainActions({{_undo, "undo", tr("&Undo"), QKeySequence::Undo, tr("Takes the last change back"),
                       [this] { _document.undo(); }},
                      {_redo, "redo", tr("&Redo"), QKeySequence::Redo, tr("Repeats the change that was undone"),
                       [this] { _document.redo(); }},
                      {_delete, nullptr, tr("&Delete"), QKeySequence::Delete, tr("Deletes the selected nodes"),
                       [this] { deleteSelected(); }},
                      {_duplicate, nullptr, tr("Dup&licate"), tr("Ctrl+D"), tr("Copies the selected nodes"),
                       [this] { duplicateSelected(); }}});
    // The views have keys of their own for these, which must not be ambiguous.
    for (QAction* const action : {_delete, _duplicate}) {
        action->setShortcutContext(Qt::WidgetShortcut);
        _viewer->addAction(action);
    }
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

void MainWindow::makePictureActions()
{
    _pictures = new QActionGroup(this);
    makePictureAction(PictureKind::DRAWING, QStringLiteral("drawing"), tr("&Drawing"), tr("Shows the drawing"), 1);
    makePictureAction(PictureKind::ELEVATION, QStringLiteral("elevation"), tr("&Elevation"),
                      tr("Shows how high the surface is: white is highest"), 2);
    makePictureAction(PictureKind::NORMALS, QStringLiteral("normals"), tr("&Normals"), tr("Shows the normal map"), 3);
    makePictureAction(PictureKind::LIT, QStringLiteral("lit"), tr("&Lit"),
                      tr("Shows the drawing in the light; drag the lights by their handles"), 4);
    _followSelection = makeAction({}, tr("Show &Selected Node"), {},
                                  tr("Shows the picture of the node that is selected, not the scene's output"));
    _followSelection->setCheckable(true);
    connect(_followSelection, &QAction::toggled, this, &MainWindow::followSelection);
}

void MainWindow::makeZoomActions()
{
    makePlainActions(
        {{_fit, "fit", tr("&Fit"), tr("Ctrl+0"), tr("Shows the whole picture"), [this] { _viewer->fit(); }},
         {_actualSize, nullptr, tr("&100 %"), tr("Ctrl+1"), tr("Shows a pixel as a pixel"),
          [this] { _viewer->zoomTo(1.0); }},
         {_zoomIn, "zoom-in", tr("Zoom &In"), QKeySequence::ZoomIn, tr("Shows more detail"),
          [this] { _viewer->zoomIn(); }},
         {_zoomOut, "zoom-out", tr("Zoom &Out"), QKeySequence::ZoomOut, tr("Shows more at once"),
          [this] { _viewer->zoomOut(); }}});
}

void MainWindow::makeChoice(QActionGroup& group, const QString& text, const QString& toolTip, bool isChosen,
                            const std::function<void()>& chosen)
{
    QAction* const action = makeAction({}, text, {}, toolTip);
    action->setCheckable(true);
    action->setChecked(isChosen);
    group.addAction(action);
    connect(action, &QAction::triggered, this, chosen);
}

void MainWindow::makeSizeActions()
{
    _sizes = new QActionGroup(this);
    const int chosen = chosenSize();
    const auto add = [&](const QString& text, const QString& toolTip, int size) {
        makeChoice(*_sizes, text, toolTip, size == chosen, [this, size] {
            QSettings().setValue(kSizeKey, size);
            takePreviewSize();
        });
    };
    add(tr("As &Suits the Drawing"), tr("Small sprites pixel by pixel, all others smooth"), kAsSuits);
    add(tr("&The Drawing's Own"), tr("Shows sprites pixel by pixel, as they are exported"), kOwnSize);
    for (const int side : {640, 1280, kUsualSide, 2560, 3840})
        add(tr("%1 pixels").arg(side), tr("The preview's longer side"), side);
    takePreviewSize();
}

void MainWindow::takePreviewSize()
{
    const int chosen = chosenSize();
    _renders.setLongestSide(chosen > 0 ? chosen : kUsualSide);
    followDrawingsSize();
}

void MainWindow::followDrawingsSize()
{
    const int chosen = chosenSize();
    const MO_Scene& scene = _document.scene();
    if (chosen == kOwnSize || (chosen == kAsSuits && isSprite(scene)))
        _renders.setLongestSide(ownSide(scene));
    else if (chosen == kAsSuits && _renders.longestSide() <= kSpriteSide)
        _renders.setLongestSide(kUsualSide); // the last drawing was a sprite
}

void MainWindow::makeAppearanceActions()
{
    _appearances = new QActionGroup(this);
    const std::pair<Appearance, QString> choices[] = {{Appearance::SYSTEM, tr("As the &Desktop")},
                                                      {Appearance::LIGHT, tr("&Light")},
                                                      {Appearance::DARK, tr("D&ark")}};
    for (const auto& [appearance, text] : choices)
        makeChoice(*_appearances, text, tr("The colours of the window"), appearance == storedAppearance(),
                   [appearance = appearance] {
                       storeAppearance(appearance);
                       applyAppearance(appearance);
                   });
}

void MainWindow::makeMenus()
{
    fillFileMenu(*menuBar()->addMenu(tr("&File")));
    fillEditMenu(*menuBar()->addMenu(tr("&Edit")));
    fillViewMenu(*menuBar()->addMenu(tr("&View")));
    QMenu* const help = menuBar()->addMenu(tr("&Help"));
    help->addAction(_showHelp);
    help->addSeparator();
    connect(help->addAction(tr("&About Quarvel Studio")), &QAction::triggered, this, &MainWindow::showAbout);
}

void MainWindow::fillFileMenu(QMenu& menu)
{
    menu.addActions({_new, _open, _import, _example});
    _recentMenu = menu.addMenu(tr("&Recent"));
    connect(&_recent, &RecentFiles::changed, this, &MainWindow::fillRecentMenu);
    fillRecentMenu();
    menu.addSeparator();
    menu.addActions({_addDrawings, _replaceDrawing, _reload});
    menu.addSeparator();
    menu.addActions({_save, _saveAs, _export, _repeatExport, _share});
    menu.addSeparator();
    menu.addAction(_quit);
}

void MainWindow::fillEditMenu(QMenu& menu)
{
    menu.addActions({_undo, _redo});
    menu.addSeparator();
    menu.addActions({_duplicate, _delete});
    QMenu* const object = menu.addMenu(tr("&Object"));
    connect(object, &QMenu::aboutToShow, this, [this, object] {
        object->clear();
        _objectActions->fillMenu(*object);
    });
}

void MainWindow::fillViewMenu(QMenu& menu)
{
    menu.addActions(_pictures->actions());
    menu.addSeparator();
    menu.addActions({_fit, _actualSize, _zoomIn, _zoomOut});
    menu.addSeparator();
    fillViewOptions(menu);
    menu.addSeparator();
    menu.addAction(_followSelection);
    menu.addMenu(tr("Preview Si&ze"))->addActions(_sizes->actions());
    menu.addSeparator();
    QMenu* const panels = menu.addMenu(tr("&Panels"));
    const auto fillPanels = [this, panels] {
        panels->clear();
        for (QDockWidget* const dock : findChildren<QDockWidget*>())
            panels->addAction(dock->toggleViewAction());
    };
    connect(panels, &QMenu::aboutToShow, this, fillPanels);
    fillPanels();
    menu.addAction(_resetLayout);
    menu.addMenu(tr("&Appearance"))->addActions(_appearances->actions());
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

void MainWindow::refreshIcons()
{
    for (const auto& [action, icon] : _icons)
        action->setIcon(studioIcon(icon, palette()));
    _objectActions->refreshIcons();
}
