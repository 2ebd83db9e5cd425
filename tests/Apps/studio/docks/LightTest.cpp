// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Moving light: the picture answers with what the lighting computes, and nothing is rendered for it. The lights belong
// to the scene: they are undone, saved and keyed.
#include "Apps/studio/window/WindowTesting.h"

#include "QuarvelSceneCore/editing/MO_LightCommands.h"
#include "QuarvelSceneCore/editing/MO_SceneCommands.h"
#include "studio/docks/scene/LightNumber.h"
#include "studio/docks/scene/LightPanel.h"
#include "studio/docks/timeline/TimelineRows.h"
#include "studio/preview/FrameImages.h"

#include <QAction>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDockWidget>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QToolButton>
#include <QWheelEvent>
#include <QtTest/qtestspontaneevent.h>

#include <cmath>

namespace {

class LightTest : public studio_testing::WindowTest
{
protected:
    static QByteArray bytesOf(const QImage& image)
    {
        EXPECT_EQ(image.format(), QImage::Format_ARGB32_Premultiplied);
        return {reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()};
    }
    // What the exact lighting gives, premultiplied as the screen wants it.
    QByteArray computed(const NM_LightingSettings& settings)
    {
        const RenderedFramePtr& frame = window->renderService().current();
        const auto exact = NM_litPicture(frame->surface, settings);
        EXPECT_TRUE(exact);
        return bytesOf(imageOf(*exact));
    }
    // Screens may be a step off in each channel, and another one where it is multiplied by coverage.
    static void expectSame(const QByteArray& shown, const QByteArray& exact)
    {
        ASSERT_EQ(shown.size(), exact.size());
        for (qsizetype i = 0; i < shown.size(); ++i)
            ASSERT_NEAR(static_cast<uchar>(shown[i]), static_cast<uchar>(exact[i]), 2) << "byte " << i;
    }
    const StudioLight& light(int index = 0) { return window->lights().lights().at(static_cast<std::size_t>(index)); }
    void dragLight(const QPointF& to)
    {
        const QPoint from = viewer().handle(light(window->lights().current())).toPoint();
        QTest::mousePress(&viewer(), Qt::LeftButton, Qt::NoModifier, from);
        studio_testing::moveMouse(viewer(), (from + to.toPoint()) / 2, Qt::LeftButton);
        studio_testing::moveMouse(viewer(), to.toPoint(), Qt::LeftButton);
        QTest::mouseRelease(&viewer(), Qt::LeftButton, Qt::NoModifier, to.toPoint());
    }
};

// With hundreds of objects, tables that were filled again for every step would let the light fall behind the hand.
TEST_F(LightTest, DraggingTheLightLeavesTheObjectsAlone)
{
    openDisc();
    int told = 0;
    QObject::connect(&window->objects(), &DocumentObjects::changed, [&told] { ++told; });
    dragLight(viewer().transform().toView(QPointF(300, 100)));
    EXPECT_NEAR(light().place.x(), 1.0, 0.02);
    EXPECT_EQ(told, 0);
    document().undo();
    EXPECT_EQ(told, 0);
    window->objects().change(hideCmd({window->objects().all().front()}, true));
    EXPECT_GT(told, 0);
    EXPECT_TRUE(window->objects().all().front().isHidden);
}

TEST_F(LightTest, DraggingTheLightShowsWhatTheLightingComputesAndRendersNothing)
{
    openDisc();
    const int renders = window->renderService().renderCount();
    const QByteArray before = bytesOf(viewer().shownImage());
    // To the right of the centre by half the picture's height, which is the unit of a light's place.
    const QPointF target = viewer().transform().toView(QPointF(200 + 100, 100));
    dragLight(target);
    EXPECT_NEAR(light().place.x(), 1.0, 0.02);
    EXPECT_NEAR(light().place.y(), 0.0, 0.02);

    NM_LightingSettings expected;
    const double distance = std::hypot(light().place.x(), light().place.y());
    constexpr double kDegrees = 57.29577951308232;
    expected.lights = {{.azimuth = std::atan2(light().place.y(), light().place.x()) * kDegrees,
                        .height = std::atan2(std::sqrt(0.5), distance) * kDegrees,
                        .colour = {1.0F, 1.0F, 1.0F}}};
    const QByteArray after = bytesOf(viewer().shownImage());
    EXPECT_NE(after, before);
    expectSame(after, computed(expected));
    QTest::qWait(400);
    EXPECT_EQ(window->renderService().renderCount(), renders);
    EXPECT_FALSE(window->renderService().isRendering());
    EXPECT_EQ(document().commands().undoNames(), QStringList{QStringLiteral("Place of Light 1")});
    document().undo();
    EXPECT_EQ(light(), StudioLight{});
    EXPECT_EQ(bytesOf(viewer().shownImage()), before);
}

TEST_F(LightTest, TwoDragsAreTwoSteps)
{
    openDisc();
    dragLight(viewer().transform().toView(QPointF(300, 100)));
    dragLight(viewer().transform().toView(QPointF(100, 50)));
    EXPECT_EQ(document().commands().undoNames().size(), 2);
}

TEST_F(LightTest, ALightFromTheRightBrightensTheRightSide)
{
    openDisc();
    dragLight(viewer().transform().toView(QPointF(320, 100)));
    const QImage lit = viewer().shownImage();
    EXPECT_GT(lit.pixelColor(200 + 72, 100).red(), lit.pixelColor(200 - 72, 100).red());
}

TEST_F(LightTest, PressingBesideTheLightLeavesItWhereItIs)
{
    openDisc();
    const QPointF before = light().place;
    const QPointF place = viewer().transform().toView(QPointF(200, 150));
    QTest::mouseClick(&viewer(), Qt::LeftButton, Qt::NoModifier, place.toPoint());
    EXPECT_EQ(light().place, before);
}

TEST_F(LightTest, TheWheelWithShiftRaisesTheLight)
{
    openDisc();
    const double before = light().height;
    QWheelEvent up(QPointF(100, 100), viewer().mapToGlobal(QPointF(100, 100)), QPoint(), QPoint(0, 120), Qt::NoButton,
                   Qt::ShiftModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&viewer(), &up);
    EXPECT_GT(light().height, before);
}

TEST_F(LightTest, TheArrowKeysWithAltMoveTheLight)
{
    openDisc();
    const QPointF before = light().place;
    QTest::keyClick(&viewer(), Qt::Key_Right, Qt::AltModifier);
    EXPECT_GT(light().place.x(), before.x());
    EXPECT_EQ(light().place.y(), before.y());
    QTest::keyClick(&viewer(), Qt::Key_Up, Qt::AltModifier);
    EXPECT_GT(light().place.y(), before.y());
}

TEST_F(LightTest, KeysAndADragAreTwoSteps)
{
    openDisc();
    QTest::keyClick(&viewer(), Qt::Key_Right, Qt::AltModifier);
    QTest::keyClick(&viewer(), Qt::Key_Right, Qt::AltModifier);
    const StudioLight nudged = light();
    EXPECT_EQ(document().commands().undoNames().size(), 1);
    dragLight(viewer().transform().toView(QPointF(300, 100)));
    EXPECT_EQ(document().commands().undoNames().size(), 2);
    document().undo();
    EXPECT_EQ(light(), nudged);
}

TEST_F(LightTest, LightsAreAddedUpAndTakenAway)
{
    openDisc();
    // A copy, since the image is computed into the same memory.
    const QByteArray one = bytesOf(viewer().shownImage());
    QTest::mouseClick(window->findChild<QToolButton*>(QStringLiteral("addLight")), Qt::LeftButton);
    ASSERT_EQ(window->lights().count(), 2);
    EXPECT_EQ(window->lights().current(), 1);
    const QByteArray two = bytesOf(viewer().shownImage());
    EXPECT_NE(two, one);
    for (qsizetype i = 0; i < one.size(); ++i)
        ASSERT_GE(static_cast<uchar>(two[i]), static_cast<uchar>(one[i]));
    QTest::mouseClick(window->findChild<QToolButton*>(QStringLiteral("removeLight")), Qt::LeftButton);
    EXPECT_EQ(window->lights().count(), 1);
    EXPECT_EQ(bytesOf(viewer().shownImage()), one);
}

TEST_F(LightTest, SeveralColouredLightsWithHighlightsAreAsExact)
{
    openDisc();
    window->lights().setLight(0,
                              {.place = {-0.8, 0.1}, .height = 0.3, .colour = QColor(255, 120, 20), .intensity = 1.5});
    window->lights().add({.place = {0.7, -0.6}, .height = 0.9, .colour = QColor(40, 80, 255), .intensity = 0.8});
    window->lights().setCommon({.ambientRed = 20.0, .highlight = 0.6});
    expectSame(bytesOf(viewer().shownImage()), computed(window->lights().lighting()));
}

TEST_F(LightTest, OneLightAlwaysStays)
{
    window->lights().remove(0);
    EXPECT_EQ(window->lights().count(), 1);
}

TEST_F(LightTest, APointLightIsAsExact)
{
    openDisc();
    window->lights().setLight(
        0, {.place = {0.3, 0.2}, .height = 0.3, .kind = MO_LightKind::POINT, .reach = 0.5, .name = {}});
    expectSame(bytesOf(viewer().shownImage()), computed(window->lights().lighting()));
    ASSERT_TRUE(window->lights().lighting().lights.front().place);
}

TEST_F(LightTest, EachSceneHasItsOwnLightsAndKeepsThem)
{
    openDisc();
    QAction* const torch = window->findChild<QAction*>(QStringLiteral("lightPreset-torch"));
    ASSERT_NE(torch, nullptr);
    torch->trigger();
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Lights: Torch"));
    EXPECT_EQ(light().kind, MO_LightKind::POINT);
    const StudioLight saved = light();
    ASSERT_TRUE(document().isModified());
    const QString scene = folder.filePath(QStringLiteral("torch.scene"));
    ASSERT_TRUE(document().save(scene).ok());

    document().replaceScene(std::make_unique<MO_Scene>(), {}, false);
    EXPECT_EQ(light(), StudioLight{});
    openScene(scene);
    EXPECT_EQ(light(), saved);
    EXPECT_FALSE(document().isModified());
}

TEST_F(LightTest, DuplicatesNamesKindsAndSwitchesAreStepsInTheHistory)
{
    openDisc();
    const auto click = [&](const char* name) {
        auto* const button = window->findChild<QAbstractButton*>(QLatin1String(name));
        ASSERT_NE(button, nullptr) << name;
        QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(8, button->height() / 2));
    };
    auto* const name = window->findChild<QLineEdit*>(QStringLiteral("lightName"));
    QTest::keyClicks(name, QStringLiteral("Key"));
    QTest::keyClick(name, Qt::Key_Return);
    EXPECT_EQ(light().name, QStringLiteral("Key"));
    click("duplicateLight");
    ASSERT_EQ(window->lights().count(), 2);
    EXPECT_EQ(window->lights().current(), 1);
    click("lightSolo");
    EXPECT_TRUE(light(1).solo);
    EXPECT_EQ(window->lights().lighting().lights.size(), 1);
    click("lightOn");
    EXPECT_FALSE(light(1).on);
    EXPECT_EQ(window->lights().lighting().lights.size(), 1);
    auto* const kind = window->findChild<QComboBox*>(QStringLiteral("lightKind"));
    QTest::keyClick(kind, Qt::Key_Down);
    EXPECT_EQ(light(1).kind, MO_LightKind::POINT);
    EXPECT_EQ(document().commands().undoNames(),
              (QStringList{QStringLiteral("Name of Light 1"), QStringLiteral("Duplicate Key"),
                           QStringLiteral("Solo of Key"), QStringLiteral("On of Key"), QStringLiteral("Kind of Key")}));
    while (document().commands().canUndo())
        document().undo();
    EXPECT_EQ(window->lights().count(), 1);
    EXPECT_EQ(light(), StudioLight{});
}

TEST_F(LightTest, ASliderThatIsDraggedIsOneStep)
{
    openDisc();
    auto* const row = window->findChild<LightNumber*>(QStringLiteral("lightIntensity"));
    ASSERT_NE(row, nullptr);
    row->slider().setSliderDown(true);
    for (const int value : {120, 150, 200})
        row->slider().setValue(value);
    row->slider().setSliderDown(false);
    EXPECT_EQ(light().intensity, 2.0);
    EXPECT_EQ(document().commands().undoNames(), QStringList{QStringLiteral("Intensity of Light 1")});
    row->box().setFocus();
    row->box().setValue(0.5);
    EXPECT_EQ(document().commands().undoNames().size(), 2);
    EXPECT_EQ(row->slider().value(), 50);
}

TEST_F(LightTest, AFieldShowsAndStepsWhatIsBeyondItsSlider)
{
    openDisc();
    StudioLight far = light();
    far.kind = MO_LightKind::POINT;
    far.place = {5.0, -3.0};
    far.reach = 9.0;
    window->lights().setLight(0, far);
    QCoreApplication::processEvents();
    const auto box = [this](const char* name) -> QDoubleSpinBox& {
        return window->findChild<LightNumber*>(QLatin1String(name))->box();
    };
    EXPECT_EQ(box("lightX").value(), 5.0);
    EXPECT_EQ(box("lightY").value(), -3.0);
    EXPECT_EQ(box("lightReach").value(), 9.0);
    box("lightX").stepUp();
    EXPECT_NEAR(light().place.x(), 5.05, 1e-9);
    box("lightReach").setValue(16.0);
    EXPECT_EQ(light().reach, 16.0);
}

TEST_F(LightTest, AKeyLetsAValueChangeOverTimeAndTheTimelineShowsIt)
{
    openDisc();
    ASSERT_TRUE(document().execute(MO_frameRangeCmd(document().scene(), 1, 11)));
    ASSERT_FALSE(document().selection().isEmpty());
    const auto lightRows = [&] {
        int count = 0;
        for (const TimelineRow& row : timelineRows(document()))
            count += row.label == QStringLiteral("Light 1: Intensity") ? 1 : 0;
        return count;
    };
    EXPECT_EQ(lightRows(), 0);
    auto* const row = window->findChild<LightNumber*>(QStringLiteral("lightIntensity"));
    auto* const key = row->findChild<QToolButton*>();
    ASSERT_NE(key, nullptr);
    QTest::mouseClick(key, Qt::LeftButton);
    EXPECT_EQ(lightRows(), 1);
    document().setSelection({});
    EXPECT_EQ(lightRows(), 1);
    EXPECT_TRUE(window->lights().hasKey(MO_Light::INTENSITY));
    const QByteArray first = bytesOf(viewer().shownImage());
    document().setCurrentFrame(11);
    EXPECT_FALSE(window->lights().hasKey(MO_Light::INTENSITY));
    row->box().setValue(2.0);
    EXPECT_TRUE(window->lights().hasKey(MO_Light::INTENSITY));
    document().setCurrentFrame(6);
    EXPECT_EQ(light().intensity, 1.5);
    ASSERT_TRUE(waitForPicture());
    EXPECT_NE(bytesOf(viewer().shownImage()), first);
    document().setCurrentFrame(1);
    ASSERT_TRUE(waitForPicture());
    EXPECT_EQ(bytesOf(viewer().shownImage()), first);
    QTest::mouseClick(key, Qt::LeftButton);
    document().setCurrentFrame(11);
    QTest::mouseClick(key, Qt::LeftButton);
    EXPECT_EQ(lightRows(), 0);
}

TEST_F(LightTest, AColourThatIsChosenDuringTheAnimationSetsNothingElse)
{
    openDisc();
    ASSERT_TRUE(document().execute(MO_frameRangeCmd(document().scene(), 1, 11)));
    window->lights().toggleLightKey({MO_Light::INTENSITY});
    document().setCurrentFrame(11);
    StudioLight bright = light();
    bright.intensity = 2.0;
    window->lights().setLight(0, bright);
    document().setCurrentFrame(1);
    QTimer chooser;
    QObject::connect(&chooser, &QTimer::timeout, &chooser, [&] {
        auto* const dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        chooser.stop();
        document().setCurrentFrame(6);
        dialog->setCurrentColor(QColor(200, 40, 40));
        dialog->accept();
    });
    chooser.start(10);
    QTest::mouseClick(window->findChild<QPushButton*>(QStringLiteral("lightColour")), Qt::LeftButton);
    EXPECT_EQ(light().colour, QColor(200, 40, 40));
    EXPECT_EQ(light().intensity, 1.5);
    EXPECT_FALSE(window->lights().hasKey(MO_Light::INTENSITY));
}

TEST_F(LightTest, AColourThatIsTriedAndCancelledLeavesNoTrace)
{
    openDisc();
    const StudioLight before = light();
    QTimer chooser;
    QObject::connect(&chooser, &QTimer::timeout, &chooser, [&] {
        auto* const dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        chooser.stop();
        dialog->setCurrentColor(QColor(200, 40, 40));
        EXPECT_EQ(light().colour, QColor(200, 40, 40));
        dialog->reject();
    });
    chooser.start(10);
    QTest::mouseClick(window->findChild<QPushButton*>(QStringLiteral("lightColour")), Qt::LeftButton);
    EXPECT_EQ(light(), before);
    EXPECT_FALSE(document().commands().canUndo());
    EXPECT_FALSE(document().holdsWork());
}

TEST_F(LightTest, AllSlidersOfThePanelBeginAndEndAtOnePlace)
{
    openDisc();
    auto* const panel = window->findChild<LightPanel*>();
    const QList<QSlider*> sliders = panel->findChildren<QSlider*>();
    ASSERT_EQ(sliders.size(), 7) << "place, height, reach, intensity, ambient light, gloss";
    for (const QSlider* const slider : sliders) {
        EXPECT_EQ(slider->mapTo(panel, QPoint()).x(), sliders.first()->mapTo(panel, QPoint()).x());
        EXPECT_EQ(slider->width(), sliders.first()->width()) << slider->accessibleName().toStdString();
    }
}

TEST_F(LightTest, TheWheelOverThePanelScrollsAndChangesNothing)
{
    openDisc();
    auto* const dock = window->findChild<QDockWidget*>(QStringLiteral("lightsDock"));
    dock->setFloating(true);
    dock->resize(360, 200);
    dock->show();
    QCoreApplication::processEvents();
    QScrollBar* const bar = dock->findChild<QScrollArea*>()->verticalScrollBar();
    ASSERT_GT(bar->maximum(), 0);
    auto* const panel = window->findChild<LightPanel*>();
    QList<QWidget*> fields;
    for (QWidget* const field : panel->findChildren<QWidget*>())
        if (!qobject_cast<QScrollBar*>(field) &&
            (qobject_cast<QAbstractSlider*>(field) || qobject_cast<QAbstractSpinBox*>(field) ||
             qobject_cast<QComboBox*>(field)))
            fields << field;
    EXPECT_GT(fields.size(), 12);
    for (QWidget* const field : std::as_const(fields)) {
        bar->setValue(0);
        field->setFocus();
        bar->setValue(0);
        QWheelEvent down(QPointF(2, 2), field->mapToGlobal(QPointF(2, 2)), QPoint(), QPoint(0, -120), Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
        // Only what the system sends goes on to what lies below.
        QSpontaneKeyEvent::setSpontaneous(&down);
        qApp->notify(field, &down);
        EXPECT_GT(bar->value(), 0) << field->metaObject()->className();
    }
    EXPECT_FALSE(document().commands().canUndo());
    EXPECT_EQ(light(), StudioLight{});
}

TEST_F(LightTest, ATurningLightChangesThePictureAndNothingElse)
{
    openDisc();
    const QByteArray still = bytesOf(viewer().shownImage());
    auto* const turn = window->findChild<QToolButton*>(QStringLiteral("turnLight"));
    QTest::mouseClick(turn, Qt::LeftButton);
    EXPECT_TRUE(studio_testing::waitUntil([&] { return light().place.x() > 0.2; }));
    EXPECT_NE(bytesOf(viewer().shownImage()), still);
    EXPECT_FALSE(document().commands().canUndo());
    QTest::mouseClick(turn, Qt::LeftButton);
    EXPECT_EQ(light(), StudioLight{});
    EXPECT_EQ(bytesOf(viewer().shownImage()), still);

    // Who changes the light while it turns changes what was meant, and not where it just was.
    QTest::mouseClick(turn, Qt::LeftButton);
    EXPECT_TRUE(studio_testing::waitUntil([&] { return light().place.x() > 0.2; }));
    window->findChild<LightNumber*>(QStringLiteral("lightIntensity"))->box().setValue(2.0);
    EXPECT_FALSE(window->lights().isTurning());
    EXPECT_EQ(light().place, StudioLight{}.place);
    EXPECT_EQ(light().intensity, 2.0);
}

TEST_F(LightTest, AnotherSceneIsOpenedWhileTheSecondLightIsCurrent)
{
    openDisc();
    ASSERT_TRUE(window->lights().add());
    window->lights().setCurrent(1);
    document().replaceScene(std::make_unique<MO_Scene>(), {}, false);
    EXPECT_EQ(window->lights().current(), 0);
    EXPECT_EQ(window->lights().lights().size(), 1U);
}

} // namespace
