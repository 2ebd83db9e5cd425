// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Changes values every few milliseconds, as a moving mouse does, through the commands that the window uses. Counted are
// the pictures and lights that the viewer paints for the first time.
#include "studio/window/PictureRates.h"

#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/editing/MO_SceneCommands.h"
#include "jobs/ResultStream.h"
#include "jobs/shown/NormalMapNode.h"
#include "studio/docks/timeline/Playback.h"
#include "studio/docks/timeline/TimelineView.h"
#include "studio/objects/DocumentObjects.h"
#include "studio/preview/Viewer.h"
#include "studio/window/MainWindow.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <cmath>
#include <cstdio>
#include <ctime>
#include <set>

namespace {

constexpr int kPatience = 120000;
// The example is square; so many pixels have 1920 x 1080.
constexpr int kLongestSide = 1440;
constexpr qint64 kDragged = 5000; // milliseconds
constexpr int kMouseEvery = 8;
constexpr int kManyLayers = 320;
constexpr int kSingleChanges = 8;

// Does what there is to do, then rests, so that no processor is taken from the threads that render.
// @return how long there was something to do, in milliseconds
double turnOnce()
{
    QElapsedTimer timer;
    timer.start();
    QCoreApplication::processEvents(QEventLoop::AllEvents);
    const double took = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    QThread::usleep(500);
    return took;
}

// Counts what the viewer paints for the first time.
class PaintedPictures : public QObject
{
public:
    explicit PaintedPictures(MainWindow& window) : _window(window)
    {
        window.viewer().installEventFilter(this);
        connect(&window.lights(), &LightModel::changed, this, [this] { _isNew = true; });
        connect(&window.renderService(), &RenderService::frameChanged, this, [this] {
            _isNew = true;
            if (const RenderedFramePtr& shown = _window.renderService().current()) {
                ++_renders;
                _sides += shown->size.width();
            }
        });
    }

    int count() const { return _count; }
    /// The mean width of the pictures that were rendered since the last call; 0 if there were none.
    int takeMeanWidth()
    {
        const int renders = std::exchange(_renders, 0);
        const qint64 sides = std::exchange(_sides, 0);
        return renders > 0 ? static_cast<int>(sides / renders) : 0;
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && std::exchange(_isNew, false))
            ++_count;
        return QObject::eventFilter(watched, event);
    }

private:
    MainWindow& _window;
    bool _isNew = false;
    int _count = 0;
    int _renders = 0;
    qint64 _sides = 0;
};

class Rates
{
public:
    /// @param out where the figures are printed to
    Rates(MainWindow& window, std::FILE* out) : _window(window), _pictures(window), _out(out) {}

    bool waitForPicture()
    {
        QElapsedTimer timer;
        timer.start();
        const RenderService& renders = _window.renderService();
        const auto isReady = [&] {
            return !_window.files().isBusy() && !renders.isRendering() && renders.current() &&
                   renders.current()->isFull();
        };
        while (!isReady() && timer.elapsed() < kPatience)
            turnOnce();
        return isReady();
    }

    // Calls move(share) with 0 to 1 and back, as often as a mouse reports, and prints the rate.
    template<typename Move>
    void drag(const char* what, double goal, const Move& move)
    {
        QElapsedTimer all;
        QElapsedTimer since;
        all.start();
        since.start();
        double longest = 0.0;
        const int before = _pictures.count();
        const std::clock_t clockBefore = std::clock();
        _pictures.takeMeanWidth();
        while (all.elapsed() < kDragged) {
            double moving = 0.0;
            if (since.elapsed() >= kMouseEvery) {
                since.start();
                move(0.5 - 0.5 * std::cos(static_cast<double>(all.elapsed()) / 1000.0));
                moving = static_cast<double>(since.nsecsElapsed()) / 1e6;
            }
            longest = std::max(longest, moving + turnOnce());
        }
        const int pictures = _pictures.count() - before;
        const double processorTime = 1000.0 * static_cast<double>(std::clock() - clockBefore) / CLOCKS_PER_SEC;
        print(what, pictures * 1000.0 / static_cast<double>(all.elapsed()), goal);
        std::fprintf(_out, "%-34s%8.1f ms\n", "  processor time of a picture", processorTime / std::max(pictures, 1));
        if (const int width = _pictures.takeMeanWidth(); width > 0)
            std::fprintf(_out, "%-34s%8d of %d pixels\n", "  mean width of a picture", width, kLongestSide);
        std::fprintf(_out, "%-34s%8.1f ms\n", "  longest turn of the event loop", longest);
        _window.document().commands().endMerging();
    }

    // Plays until every frame was seen, and prints the rate of two times more.
    void play(const char* what)
    {
        Playback& playback = _window.findChild<TimelineView*>()->playback();
        const MO_Scene& scene = _window.document().scene();
        const int frames = scene.lastFrame() - scene.firstFrame() + 1;
        const auto loop = static_cast<qint64>(frames * 1000.0 / scene.frameRate());
        _window.document().setCurrentFrame(scene.firstFrame());
        std::set<int> seen;
        const auto note = [&] {
            if (const RenderedFramePtr& shown = _window.renderService().current())
                seen.insert(shown->frame);
        };
        const auto noting = QObject::connect(&_window.renderService(), &RenderService::frameChanged, &_window, note);
        playback.start();
        // Until all frames were seen once, however long that takes.
        QElapsedTimer timer;
        timer.start();
        while (seen.size() < static_cast<std::size_t>(frames) && timer.elapsed() < kPatience)
            wait(1);
        const int before = _pictures.count();
        wait(2 * loop);
        const double seconds = 2.0 * static_cast<double>(loop) / 1000.0;
        playback.stop();
        QObject::disconnect(noting);
        print(what, (_pictures.count() - before) / seconds, scene.frameRate());
    }

    // Changes something several times, each time when all is quiet, and prints how long the next picture took.
    template<typename Change>
    void change(const char* what, double goal, const Change& change)
    {
        double longest = 0.0;
        double sum = 0.0;
        for (int i = 0; i < kSingleChanges && waitForPicture(); ++i) {
            const int before = _pictures.count();
            QElapsedTimer timer;
            timer.start();
            change(i);
            while (_pictures.count() == before && timer.elapsed() < kPatience)
                turnOnce();
            const double took = static_cast<double>(timer.nsecsElapsed()) / 1e6;
            longest = std::max(longest, took);
            sum += took;
        }
        std::fprintf(_out, "%-34s%8.0f ms, longest %.0f ms, goal %g ms\n", what, sum / kSingleChanges, longest, goal);
        _window.document().commands().endMerging();
    }

private:
    void print(const char* what, double rate, double goal) const
    {
        std::fprintf(_out, "%-34s%8.1f pictures a second, goal %g\n", what, rate, goal);
    }

    static void wait(qint64 milliseconds)
    {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < milliseconds)
            turnOnce();
    }

    MainWindow& _window;
    PaintedPictures _pictures;
    std::FILE* _out;
};

MO_Module* nodeOf(const MO_Scene& scene)
{
    MO_Module* node = nullptr;
    scene.root().forEachModule([&](MO_Module& module) {
        if (!node && NormalMapNode::is(module))
            node = &module;
    });
    return node;
}

void dragBevel(Rates& rates, StudioDocument& document, MO_Module& node)
{
    std::vector<NormalMapObject> objects = NormalMapNode(node).objects();
    if (objects.empty())
        return;
    rates.drag("bevel of one object, dragged", 12.0, [&](double share) {
        objects.front().bevel = 5.0 + 60.0 * share;
        document.execute(NormalMapNode(node).objectsCmd(objects));
    });
}

void dragLight(Rates& rates, LightModel& lights)
{
    rates.drag("light, dragged", 25.0, [&](double share) {
        StudioLight light = lights.lights().front();
        light.place = {2.0 * share - 1.0, 0.5};
        lights.setLight(0, light);
    });
}

void playKeyedBevel(Rates& rates, StudioDocument& document, MO_Module& node)
{
    AT_DoubleAttr* const bevels = NormalMapNode(node).bevelMultiplier();
    if (!bevels)
        return;
    AT_Curve curve;
    curve.setKey({.frame = 1.0, .value = 0.5, .in = {}, .out = {}, .unknown = {}});
    curve.setKey({.frame = 24.0, .value = 2.0, .in = {}, .out = {}, .unknown = {}});
    document.execute(MO_frameRangeCmd(document.scene(), 1, 24));
    bevels->setCurve(curve);
    rates.play("24 frames played, from loop 2 on");
}

// Discs in rows, each in a layer of its own.
QByteArray drawingOfManyLayers()
{
    constexpr int kInRow = 20;
    QByteArray text = R"(<svg xmlns="http://www.w3.org/2000/svg" width="1920" height="1080"
  xmlns:inkscape="http://www.inkscape.org/namespaces/inkscape">)";
    for (int i = 0; i < kManyLayers; ++i)
        text += QStringLiteral("<g inkscape:groupmode=\"layer\" inkscape:label=\"L%1\">"
                               "<circle cx=\"%2\" cy=\"%3\" r=\"60\" fill=\"hsl(%4,60%,50%)\"/></g>")
                    .arg(i)
                    .arg(60 + i % kInRow * 94)
                    .arg(60 + i / kInRow * 64)
                    .arg(i % 12 * 30)
                    .toUtf8();
    return text + "</svg>";
}

// How long a drawing of many layers takes to show a change of a node's value, and one of a drawing's.
bool changeManyLayers(Rates& rates, MainWindow& window, const QString& folder)
{
    QFile file(folder + QStringLiteral("/layers.svg"));
    if (!file.open(QIODevice::WriteOnly) || file.write(drawingOfManyLayers()) < 0)
        return false;
    file.close();
    window.document().commands().setClean();
    window.openPaths({file.fileName()});
    MO_Module* const node = rates.waitForPicture() ? nodeOf(window.document().scene()) : nullptr;
    if (!node)
        return false;
    std::vector<NormalMapObject> objects = NormalMapNode(*node).objects();
    if (objects.size() < kManyLayers)
        return false;
    rates.change("bevel of one of 320 layers", 500.0, [&](int i) {
        objects[static_cast<std::size_t>(i) * 40].bevel += 10.0;
        window.document().execute(NormalMapNode(*node).objectsCmd(objects));
    });
    const std::vector<SceneObject>& all = window.objects().all();
    rates.change("one of 320 layers hidden", 500.0,
                 [&](int i) { window.objects().change(hideCmd({all[static_cast<std::size_t>(i) * 40]}, true)); });
    return true;
}

} // namespace

int printPictureRates()
{
    const QTemporaryDir folder;
    MainWindow window(folder.path());
    window.resize(1600, 1000);
    window.renderService().setLongestSide(kLongestSide);
    window.show();
    window.openPaths({MainWindow::examplePath()});
    const ResultStream figures;
    Rates rates(window, figures.file());
    MO_Module* const node = rates.waitForPicture() ? nodeOf(window.document().scene()) : nullptr;
    if (!node) {
        std::fprintf(stderr, "the example was not rendered\n");
        return 1;
    }
    dragBevel(rates, window.document(), *node);
    if (rates.waitForPicture())
        dragLight(rates, window.lights());
    playKeyedBevel(rates, window.document(), *node);
    if (!changeManyLayers(rates, window, folder.path())) {
        std::fprintf(stderr, "the drawing of %d layers was not rendered\n", kManyLayers);
        return 1;
    }
    return 0;
}
