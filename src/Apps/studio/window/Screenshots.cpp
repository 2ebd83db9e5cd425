// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Widgets paint themselves into an image of the density that is wanted; no screen is needed.
#include "studio/window/Screenshots.h"

#include "jobs/scene/LightPresets.h"
#include "jobs/shown/NormalMapNode.h"
#include "studio/docks/scene/LightPanel.h"
#include "studio/document/SceneDialog.h"
#include "studio/export/ExportDialog.h"
#include "studio/export/GlossDialog.h"
#include "studio/preview/Viewer.h"
#include "studio/window/Appearance.h"
#include "studio/window/HelpDialog.h"
#include "studio/window/MainWindow.h"
#include "studio/window/MessageBar.h"
#include "studio/window/Translations.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QLocale>
#include <QTemporaryDir>
#include <QTreeView>

#include <cstdio>

namespace {

constexpr int kPatience = 60000;

// Lets the window work until something is so. @return whether it came to be
template<typename Condition>
bool waitFor(const Condition& condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition() && timer.elapsed() < kPatience)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 50);
    // What was posted last is to be painted too.
    QCoreApplication::processEvents();
    return condition();
}

class Shooting
{
public:
    explicit Shooting(QString folder) : _folder(std::move(folder)) {}

    void take(QWidget& widget, const QString& name)
    {
        QCoreApplication::processEvents();
        for (const int density : {1, 2}) {
            QImage image(widget.size() * density, QImage::Format_RGB32);
            image.setDevicePixelRatio(density);
            widget.render(&image);
            const QString file =
                QStringLiteral("%1/%2-%3%4-%5x.png").arg(_folder, name, _language, _appearance).arg(density);
            _good = image.save(file) && _good;
        }
    }

    void setAppearance(Appearance appearance)
    {
        applyAppearance(appearance);
        _appearance = appearance == Appearance::DARK ? QStringLiteral("dark") : QStringLiteral("light");
    }
    // Applies to windows that are made after this.
    void setLanguage(const QLocale& language)
    {
        QLocale::setDefault(language);
        installTranslations(language);
        _language = language.language() == QLocale::English ? QString() : language.name().left(2) + QLatin1Char('-');
    }
    void fail(const char* what)
    {
        std::fprintf(stderr, "quarvel-studio: %s\n", what);
        _good = false;
    }
    bool isGood() const { return _good; }

private:
    QString _folder;
    QString _appearance;
    QString _language; // with a dash behind it; empty for English
    bool _good = true;
};

void selectNode(MainWindow& window)
{
    MO_Module* node = nullptr;
    window.document().scene().root().forEachModule([&](MO_Module& module) {
        if (NormalMapNode::is(module))
            node = &module;
    });
    if (node)
        window.document().setSelection({node});
}

void takePictures(Shooting& shooting, MainWindow& window)
{
    const std::pair<PictureKind, QString> kinds[] = {{PictureKind::DRAWING, QStringLiteral("drawing")},
                                                     {PictureKind::ELEVATION, QStringLiteral("elevation")},
                                                     {PictureKind::NORMALS, QStringLiteral("normals")},
                                                     {PictureKind::LIT, QStringLiteral("lit")}};
    for (const auto& [kind, name] : kinds) {
        window.viewer().setKind(kind);
        shooting.take(window, name);
    }
}

void raiseDock(const QMainWindow& window, const QString& name)
{
    window.findChild<QDockWidget*>(name)->raise();
}

// The whole panel, which the dock shows a part of, and the window in the light of each preset.
void takeLights(Shooting& shooting, MainWindow& window)
{
    for (const LightPreset& preset : lightPresets()) {
        window.lights().use(preset.label, preset.rig);
        shooting.take(window, QStringLiteral("lights-") + preset.keyword);
    }
    auto* const panel = window.findChild<LightPanel*>();
    panel->resize(panel->width(), panel->sizeHint().height());
    shooting.take(*panel, QStringLiteral("light-panel"));
    window.lights().reset();
}

// Objects that are taken hold of, before and after, and all of it in a small window.
void takeObjects(Shooting& shooting, MainWindow& window)
{
    raiseDock(window, QStringLiteral("ObjectsDock"));
    const std::vector<SceneObject>& all = window.objects().all();
    if (all.size() < 2)
        return shooting.fail("the example has no objects");
    window.objects().select({all[all.size() / 2]});
    window.objects().setHovered(&window.objects().all().back());
    shooting.take(window, QStringLiteral("object"));
    window.objects().setHovered(nullptr);
    ViewOptions options = window.viewer().options();
    options.border = 0.5;
    window.viewer().setOptions(options);
    shooting.take(window, QStringLiteral("split"));
    window.viewer().setOptions({});
    auto* const resetLayout = window.findChild<QAction*>(QStringLiteral("resetLayout"));
    window.resize(1024, 768);
    resetLayout->trigger();
    shooting.take(window, QStringLiteral("small"));
    selectNode(window);
    raiseDock(window, QStringLiteral("PropertiesDock"));
    shooting.take(window, QStringLiteral("small-properties"));
    window.resize(1440, 900);
    resetLayout->trigger();
    window.objects().select({});
}

void takeDialogs(Shooting& shooting, MainWindow& window)
{
    ExportDialog exporting(window.document().scene(),
                           {QStringLiteral("hero"), QStringLiteral("/home/ada/drawings"), QStringLiteral("hero")});
    exporting.adjustSize();
    shooting.take(exporting, QStringLiteral("export"));
    GlossDialog gloss(drawnColours(window.document().scene()), {});
    gloss.show();
    shooting.take(gloss, QStringLiteral("gloss"));
    gloss.close();
    window.findChild<QAction*>(QStringLiteral("showHelp"))->trigger();
    auto* const help = window.findChild<HelpDialog*>();
    shooting.take(*help, QStringLiteral("help"));
    help->close();
    const QTemporaryDir scenes;
    for (const char* const name : {"drawings", "hero.scene", "walk.scene"})
        QDir(scenes.path()).mkdir(QLatin1String(name));
    SceneDialog opening(scenes.path());
    opening.show();
    // The list is read in the background.
    auto* const list = opening.findChild<QTreeView*>(QStringLiteral("treeView"));
    if (!list || !waitFor([list] { return list->model()->rowCount(list->rootIndex()) == 3; }))
        shooting.fail("the dialog for scenes shows no scenes");
    shooting.take(opening, QStringLiteral("open-scene"));
}

void takeAll(Shooting& shooting)
{
    const QTemporaryDir recovery;
    MainWindow window(recovery.path());
    window.resize(1440, 900);
    window.show();
    shooting.take(window, QStringLiteral("start"));
    window.openPaths({MainWindow::examplePath()});
    const auto rendered = [&] {
        const RenderedFramePtr& frame = window.renderService().current();
        return frame && !window.renderService().isRendering();
    };
    if (!waitFor(rendered)) {
        shooting.fail("the example was not rendered");
        return;
    }
    window.messages().clear();
    selectNode(window);
    QCoreApplication::processEvents();
    takePictures(shooting, window);
    raiseDock(window, QStringLiteral("PropertiesDock"));
    shooting.take(window, QStringLiteral("properties"));
    for (const char* const name : {"Palette", "Elements", "ColourDepth"}) {
        raiseDock(window, QLatin1String(name) + QStringLiteral("Dock"));
        shooting.take(window, QString::fromLatin1(name).toLower());
    }
    raiseDock(window, QStringLiteral("TimelineDock"));
    shooting.take(window, QStringLiteral("timeline"));
    raiseDock(window, QStringLiteral("NodesDock"));
    raiseDock(window, QStringLiteral("lightsDock"));
    takeLights(shooting, window);
    takeObjects(shooting, window);
    window.viewer().zoomTo(6.0);
    shooting.take(window, QStringLiteral("zoomed"));
    window.viewer().fit();
    window.messages().showError(QStringLiteral("/home/ada/drawings/broken.svg: line 12: the element <path> is not "
                                               "closed; repair the file or export it again"));
    shooting.take(window, QStringLiteral("error"));
    window.messages().clear();
    takeDialogs(shooting, window);
    // Nothing is asked when the window goes.
    window.document().replaceScene(std::make_unique<MO_Scene>(), {}, false);
}

} // namespace

int makeScreenshots(const QString& folder)
{
    if (!QDir().mkpath(folder)) {
        std::fprintf(stderr, "quarvel-studio: the folder %s cannot be made\n", qPrintable(folder));
        return 1;
    }
    // What a person set up for themselves is neither shown nor changed.
    QCoreApplication::setApplicationName(QStringLiteral("quarvel-studio-screenshots"));
    Shooting shooting(folder);
    for (const QLocale::Language language : {QLocale::English, QLocale::German}) {
        shooting.setLanguage(QLocale(language));
        for (const Appearance appearance : {Appearance::LIGHT, Appearance::DARK}) {
            shooting.setAppearance(appearance);
            takeAll(shooting);
        }
    }
    return shooting.isGood() ? 0 : 1;
}
