// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MainWindow: the application's window: menus, the viewer in the middle, docks around it. It owns the document and all
// that works on it.
#pragma once

#include "studio/document/Autosave.h"
#include "studio/document/DrawingSources.h"
#include "studio/document/RecentFiles.h"
#include "studio/document/SceneFiles.h"
#include "studio/document/StudioDocument.h"
#include "studio/export/LastExport.h"
#include "studio/export/PageShare.h"
#include "studio/objects/DocumentObjects.h"
#include "studio/preview/LightModel.h"
#include "studio/preview/PictureKind.h"
#include "studio/preview/RenderService.h"
#include "studio/preview/ViewOptions.h"

#include <QMainWindow>

#include <functional>
#include <initializer_list>

class MessageBar;
class ColourPicker;
class HelpDialog;
class ObjectActions;
class ObjectHands;
class QActionGroup;
class QDockWidget;
class QLabel;
class QStackedWidget;
class StartPage;
class TimelinePlace;
class Viewer;

class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// @param recoveryFolder where unsaved scenes are kept; empty: the usual place
    explicit MainWindow(const QString& recoveryFolder = {}, QWidget* parent = nullptr);
    ~MainWindow() override;

    StudioDocument& document() { return _document; }
    RenderService& renderService() { return _renders; }
    LightModel& lights() { return _lights; }
    Viewer& viewer() { return *_viewer; }
    MessageBar& messages() { return *_messages; }
    SceneFiles& files() { return _files; }
    DrawingSources& sources() { return _sources; }
    Autosave& autosave() { return _autosave; }
    DocumentObjects& objects() { return _objects; }
    ObjectHands& hands() { return *_hands; }

    /// Opens a scene, or imports drawings, as they are dropped on the window. Asks first about unsaved changes.
    void openPaths(const QStringList& paths);
    /// Offers what a crash left, if there is anything. @return whether something was recovered
    bool offerRecovery();
    /// Saves where the document was saved before, or asks where. @return whether it is saved
    bool save();
    bool saveAs();
    /// Saves to a scene's folder. @return whether it is saved; if not, the window says why
    bool saveTo(const QString& folder);
    /// The example drawing, beside the program; empty when it is not installed.
    static QString examplePath();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct PlainAction;

    // MainWindow.cpp
    void makeCentre();
    void makeDocks();
    void makeStatusBar();
    void frameChanged();
    void renderStateChanged();
    void showPixel(const std::optional<QPoint>& place);
    void showZoom();
    void updateTitle();
    void updateActions();
    void showStart(bool start);
    void shareOutRoom();
    void raiseFirstDocks();
    void resetLayout();
    void restoreLayout();
    void storeLayout();

    // MainWindowMenus.cpp
    void makeActions();
    void makePlainActions(std::initializer_list<PlainAction> plain);
    void makeSceneActions();
    void makeDrawingActions();
    void makeExportActions();
    void makeEditActions();
    void makePictureActions();
    void makeZoomActions();
    void makeSizeActions();
    void takePreviewSize();
    void followDrawingsSize();
    void makeAppearanceActions();
    void makeMenus();
    void fillFileMenu(QMenu& menu);
    void fillEditMenu(QMenu& menu);
    void fillViewMenu(QMenu& menu);
    void makeToolBar();
    QAction* makeAction(const QString& icon, const QString& text, const QKeySequence& keys, const QString& toolTip);
    void makePictureAction(PictureKind kind, const QString& icon, const QString& text, const QString& toolTip, int key);
    void fillRecentMenu();
    void makeChoice(QActionGroup& group, const QString& text, const QString& toolTip, bool isChosen,
                    const std::function<void()>& chosen);
    void refreshIcons();

    // MainWindowObjects.cpp
    void makeObjects();
    void makeObjectsDock();
    void makeColourPicker();
    void followSelection();
    void selectWhatMatters();

    // MainWindowView.cpp
    void makeViewOptions();
    void fillViewOptions(QMenu& menu);
    void askForBackdropColour();
    void askForBackdropPicture();

    // MainWindowFiles.cpp
    bool confirmLeaving();
    bool confirmReplacingOthers();
    void newScene();
    void askForScene();
    void askForDrawings();
    QStringList chooseDrawings(const QString& title);
    void addDrawings();
    void replaceDrawing();
    void makeSources();
    void openExample();
    void openRecent(const QString& path);
    void opened(const OpenRequest& request, const QString& remarks);
    void exportFrames();
    void repeatExport();
    void sharePage();
    void makeBusyBars();
    QString drawingFolder() const;

    // MainWindowEdit.cpp
    void deleteSelected();
    void duplicateSelected();
    void showHelp();
    void showAbout();

    StudioDocument _document;
    DocumentObjects _objects;
    LightModel _lights{_document};
    RecentFiles _recent;
    RenderService _renders;
    SceneFiles _files;
    LastExport _lastExport;
    PageShare _pageShare;
    DrawingSources _sources;
    Autosave _autosave;

    MessageBar* _messages = nullptr;
    QStackedWidget* _pages = nullptr;
    StartPage* _start = nullptr;
    Viewer* _viewer = nullptr;
    ObjectHands* _hands = nullptr;
    ObjectActions* _objectActions = nullptr;
    ColourPicker* _colourPicker = nullptr;
    HelpDialog* _help = nullptr; ///< once it was asked for
    TimelinePlace* _timelinePlace = nullptr;
    QLabel* _pixelLabel = nullptr;
    QLabel* _stateLabel = nullptr;
    QLabel* _zoomLabel = nullptr;
    QList<std::pair<QAction*, QString>> _icons;
    QByteArray _firstLayout; ///< how the docks stand before anybody moved them
    std::optional<QPoint> _hovered;
    QList<QDockWidget*> _hiddenDocks; // by the start page

    QAction* _new = nullptr;
    QAction* _open = nullptr;
    QAction* _import = nullptr;
    QAction* _example = nullptr;
    QAction* _addDrawings = nullptr;
    QAction* _replaceDrawing = nullptr;
    QAction* _reload = nullptr;
    QAction* _save = nullptr;
    QAction* _saveAs = nullptr;
    QAction* _export = nullptr;
    QAction* _repeatExport = nullptr;
    QAction* _share = nullptr;
    QAction* _quit = nullptr;
    QAction* _undo = nullptr;
    QAction* _redo = nullptr;
    QAction* _delete = nullptr;
    QAction* _duplicate = nullptr;
    QAction* _fit = nullptr;
    QAction* _actualSize = nullptr;
    QAction* _zoomIn = nullptr;
    QAction* _zoomOut = nullptr;
    QAction* _followSelection = nullptr;
    QAction* _split = nullptr;
    QAction* _rawChannels = nullptr;
    QAction* _resetLayout = nullptr;
    QAction* _showHelp = nullptr;
    QActionGroup* _channels = nullptr;
    QActionGroup* _pictures = nullptr;
    QActionGroup* _sizes = nullptr;
    QActionGroup* _appearances = nullptr;
    QMenu* _recentMenu = nullptr;
};
