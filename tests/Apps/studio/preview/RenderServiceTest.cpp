// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Rendering in the background while the scene is edited.
#include "Apps/studio/window/WindowTesting.h"

#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/editing/MO_ModuleCommands.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "studio/preview/SceneSnapshot.h"

#include <QDir>
#include <QElapsedTimer>

#include <cmath>
#include <random>

namespace {

class RenderServiceTest : public studio_testing::WindowTest
{
protected:
    MO_ElementModule& element()
    {
        MO_ElementModule* found = nullptr;
        document().scene().root().forEachModule([&](MO_Module& module) {
            if (auto* const one = dynamic_cast<MO_ElementModule*>(&module))
                found = one;
        });
        EXPECT_NE(found, nullptr);
        return *found;
    }
    void moveDisc(double units) { element().positionX()->setLocalValue(_home + units); }
    void openDiscAtHome()
    {
        openDisc();
        _home = element().positionX()->localValue();
    }
    // The x of the disc's centre, in pixels of the full picture.
    static double middleOf(const RenderedFrame& frame)
    {
        const QImage& drawing = frame.drawing;
        double sum = 0.0;
        double weights = 0.0;
        for (int y = 0; y < drawing.height(); ++y)
            for (int x = 0; x < drawing.width(); ++x) {
                const double alpha = qAlpha(drawing.pixel(x, y));
                sum += alpha * (x + 0.5);
                weights += alpha;
            }
        return sum / weights * frame.fullSize.width() / drawing.width();
    }

    double _home = 0.0;
};

TEST_F(RenderServiceTest, AQuickPictureComesFirstAndTheFullOneWhenTheSceneRests)
{
    openDiscAtHome();
    QList<QSize> sizes;
    QObject::connect(&window->renderService(), &RenderService::frameChanged, window.get(), [&] {
        const QSize size = window->renderService().current()->size;
        if (sizes.isEmpty() || sizes.last() != size)
            sizes << size;
    });
    window->renderService().setLongestSide(480);
    ASSERT_TRUE(waitForPicture());
    // The size of quick pictures depends on the machine's speed.
    ASSERT_FALSE(sizes.isEmpty());
    EXPECT_LE(sizes.size(), 2);
    EXPECT_EQ(sizes.last(), QSize(480, 240));
    EXPECT_EQ(480 % sizes.first().width(), 0);
    EXPECT_EQ(sizes.first().width(), 2 * sizes.first().height());
}

// 720 units are the picture's width, 400 pixels.
TEST_F(RenderServiceTest, WhatIsShownBelongsToWhatTheSceneWasAndNeverGoesBack)
{
    openDiscAtHome();
    const int turns = std::max(1, qEnvironmentVariableIntValue("VALLORIN_STUDIO_RENDERS"));
    const int count = turns > 1 ? turns : 60;
    std::mt19937 random(7);
    std::vector<double> states{0.0};
    std::size_t newest = 0; // of the states that were seen
    int seen = 0;
    QObject::connect(&window->renderService(), &RenderService::frameChanged, window.get(), [&] {
        const RenderedFramePtr& frame = window->renderService().current();
        ASSERT_NE(frame, nullptr);
        const double middle = middleOf(*frame);
        const double pixel = static_cast<double>(frame->fullSize.width()) / frame->size.width();
        while (newest < states.size() && std::abs(middle - (200.0 + states[newest] * 400.0 / 720.0)) > 0.5 * pixel)
            ++newest;
        ASSERT_LT(newest, states.size()) << "the middle is at " << middle;
        ++seen;
    });
    for (int i = 0; i < count; ++i) {
        states.push_back(static_cast<double>(random() % 200) - 100.0);
        moveDisc(states.back());
        // Changes within one turn of the event loop are signalled together in the next turn.
        QCoreApplication::processEvents();
        QTest::qWait(static_cast<int>(random() % 60));
        if (random() % 5 == 0)
            window->renderService().cancel();
    }
    window->renderService().refresh();
    ASSERT_TRUE(waitForPicture());
    EXPECT_GT(seen, 0);

    SceneSnapshot snapshot(document().scene(), {});
    const auto alone = snapshot.render(1, {400, 200}, {400, 200}, {});
    ASSERT_TRUE(alone.ok());
    const RenderedFrame& shown = *window->renderService().current();
    EXPECT_EQ(shown.drawing, (*alone)->drawing);
    EXPECT_EQ(shown.normals, (*alone)->normals);
    EXPECT_EQ(shown.elevation, (*alone)->elevation);
}

TEST_F(RenderServiceTest, PicturesKeepComingWhileTheSceneChangesWithoutAPause)
{
    openDiscAtHome();
    window->renderService().setLongestSide(1920);
    const int before = window->renderService().shownCount();
    QElapsedTimer timer;
    timer.start();
    double units = 0.0;
    while (window->renderService().shownCount() < before + 10 && timer.elapsed() < studio_testing::kPatience) {
        units = units > 50.0 ? 0.0 : units + 0.25;
        moveDisc(units);
        QCoreApplication::processEvents();
    }
    EXPECT_GE(window->renderService().shownCount(), before + 10);
    EXPECT_TRUE(window->renderService().isRendering());
    window->renderService().setLongestSide(kSide);
    ASSERT_TRUE(waitForPicture());
    EXPECT_NEAR(middleOf(*window->renderService().current()), 200.0 + units * 400.0 / 720.0, 0.5);
}

TEST_F(RenderServiceTest, FramesThatWereSeenQuicklyAreThereAtOnceTheNextTime)
{
    openDiscAtHome();
    AT_Curve curve;
    curve.setKey({1.0, _home, AT_Curve::Interpolation::LINEAR, {}, {}, {}});
    curve.setKey({6.0, _home + 50.0, AT_Curve::Interpolation::LINEAR, {}, {}, {}});
    element().positionX()->setCurve(curve);
    document().scene().setFrameRange(1, 6);
    QCoreApplication::processEvents();
    RenderService& renders = window->renderService();
    renders.setPlaying(true);
    for (int frame = 1; frame <= 6; ++frame) {
        document().setCurrentFrame(frame);
        ASSERT_TRUE(studio_testing::waitUntil([&] { return !renders.isFrameAwaited(); }));
    }
    for (int frame = 1; frame <= 6; ++frame) {
        document().setCurrentFrame(frame);
        ASSERT_TRUE(renders.current());
        EXPECT_EQ(renders.current()->frame, frame);
        EXPECT_NEAR(middleOf(*renders.current()), 200.0 + 10.0 * (frame - 1) * 400.0 / 720.0, 2.0);
    }
    moveDisc(0.0);
    renders.setPlaying(false);
    document().scene().setFrameRange(1, 5);
    QCoreApplication::processEvents();
    ASSERT_TRUE(waitForPicture());
    EXPECT_TRUE(renders.current()->isFull());
}

TEST_F(RenderServiceTest, FramesThatWereRenderedAreKeptUntilTheSceneChanges)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("walk")));
    write(QStringLiteral("walk/walk_1.svg"), studio_testing::kDisc);
    write(QStringLiteral("walk/walk_2.svg"), QByteArray(studio_testing::kDisc).replace("100", "101"));
    drop({folder.filePath(QStringLiteral("walk"))});
    ASSERT_TRUE(waitForPicture());
    const RenderedFramePtr first = window->renderService().current();
    document().setCurrentFrame(2);
    ASSERT_TRUE(waitForPicture());
    EXPECT_EQ(window->renderService().current()->frame, 2);
    const int renders = window->renderService().renderCount();
    document().setCurrentFrame(1);
    EXPECT_EQ(window->renderService().current(), first);
    QTest::qWait(300);
    EXPECT_EQ(window->renderService().renderCount(), renders);
    moveDisc(10.0);
    QCoreApplication::processEvents();
    ASSERT_TRUE(waitForPicture());
    EXPECT_GT(window->renderService().renderCount(), renders);
}

TEST_F(RenderServiceTest, ADrawingIsPaintedAnewOnlyWhenItChanges)
{
    openDiscAtHome();
    MO_Scene& scene = document().scene();
    auto& bevels = dynamic_cast<AT_DoubleAttr&>(*scene.findAttr(QStringLiteral("Normal-Map.BlurScale")));
    DrawingCache drawings;
    const auto rendered = [&](int frame) {
        SceneSnapshot cached(scene, {});
        SceneSnapshot alone(scene, {});
        const auto made = cached.render(frame, {400, 200}, {200, 100}, {}, &drawings);
        const auto expected = alone.render(frame, {400, 200}, {200, 100}, {});
        EXPECT_TRUE(made.ok() && expected.ok());
        EXPECT_EQ((*made)->drawing, (*expected)->drawing);
        EXPECT_EQ((*made)->normals, (*expected)->normals);
        EXPECT_EQ((*made)->surface.row(50).red[100], (*expected)->surface.row(50).red[100]);
        return *made;
    };
    const auto first = rendered(1);
    ASSERT_TRUE(bevels.setLocalValue(3.0));
    const auto rounder = rendered(1);
    EXPECT_NE(rounder->normals, first->normals);
    EXPECT_EQ(rounder->drawing.cacheKey(), first->drawing.cacheKey());
    // Another frame with the same drawing.
    EXPECT_EQ(rendered(2)->drawing.cacheKey(), first->drawing.cacheKey());
    moveDisc(20.0);
    const auto moved = rendered(1);
    EXPECT_NE(moved->drawing, first->drawing);
    // A change of an attribute that reads the node's value is visible.
    element().positionX()->setSurrogate(UT_makeShared<AT_AttrLink>(QStringLiteral("Normal-Map.BlurScale")));
    scene.resolveLinks();
    const auto linked = rendered(1);
    ASSERT_TRUE(bevels.setLocalValue(9.0));
    EXPECT_NE(rendered(1)->drawing, linked->drawing);
    element().positionX()->setSurrogate(nullptr);
    EXPECT_EQ(rendered(1)->drawing, moved->drawing);
    // So is another drawing with the same name.
    const auto old = element().drawings().begin();
    element().setDrawing(QString(old->first), UT_makeShared<CELVEC_Kvd>(old->second->palette()));
    rendered(1);
}

TEST_F(RenderServiceTest, AnEmptySceneHasNoPictureAndNoError)
{
    openDisc();
    document().replaceScene(std::make_unique<MO_Scene>(), {}, false);
    QCoreApplication::processEvents();
    EXPECT_TRUE(studio_testing::waitUntil([this] { return !window->renderService().isRendering(); }));
    EXPECT_EQ(window->renderService().current(), nullptr);
    EXPECT_TRUE(window->renderService().error().isEmpty());
}

TEST_F(RenderServiceTest, TheWindowMayGoInTheMiddleOfARender)
{
    openDiscAtHome();
    for (int i = 0; i < 5; ++i) {
        moveDisc(5.0 * i);
        QCoreApplication::processEvents();
        QTest::qWait(7 * i);
        renew();
        openDiscAtHome();
    }
}

TEST_F(RenderServiceTest, DeletingTheNodeShowsTheDrawingsColoursAndUndoTheVolumeAgain)
{
    openDisc();
    MO_Module* node = nullptr;
    document().scene().root().forEachModule([&](MO_Module& module) {
        if (module.keyword() == QLatin1String("Vallorin"))
            node = &module;
    });
    ASSERT_NE(node, nullptr);
    const QImage normals = window->renderService().current()->normals;
    ASSERT_TRUE(document().execute(MO_removeModulesCmd({node})));
    QCoreApplication::processEvents();
    ASSERT_TRUE(waitForPicture());
    EXPECT_EQ(window->renderService().current()->kind, RenderedKind::COLOURS);
    document().undo();
    QCoreApplication::processEvents();
    ASSERT_TRUE(waitForPicture());
    EXPECT_EQ(window->renderService().current()->kind, RenderedKind::NORMALS);
    EXPECT_EQ(window->renderService().current()->normals, normals);
}

} // namespace
