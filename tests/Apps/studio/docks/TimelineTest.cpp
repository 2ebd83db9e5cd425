// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The timeline, with mouse and keyboard.
#include "Apps/studio/docks/DocksTesting.h"

#include "QuarvelSceneCore/editing/MO_SceneCommands.h"
#include "studio/docks/timeline/Playback.h"
#include "studio/docks/timeline/ShortNames.h"

#include <QDoubleSpinBox>
#include <QElapsedTimer>
#include <QFont>
#include <QFontMetricsF>
#include <QLineEdit>
#include <QLocale>
#include <QSpinBox>
#include <QToolButton>

namespace {

using Interpolation = AT_Curve::Interpolation;

constexpr int kPatience = 60000; // milliseconds

class TimelineTest : public docks::DocksTest
{
protected:
    TimelineCanvas& canvas() const { return view<TimelineView>().canvas(); }
    QWidget& port() const { return *canvas().viewport(); }
    int rowOf(const QString& label) const
    {
        for (std::size_t i = 0; i < canvas().rows().size(); ++i)
            if (canvas().rows()[i].label == label)
                return static_cast<int>(i);
        ADD_FAILURE() << qPrintable(label);
        return -1;
    }
    QPoint cell(const QString& label, int frame) const { return canvas().cellCenter(rowOf(label), frame); }
    /// Gives the hero's position keys at frames 5 and 15, and takes that for the beginning.
    AT_DoubleAttr& animate()
    {
        AT_DoubleAttr& position = *element("Hero").positionX();
        AT_Curve curve;
        curve.setKey({5.0, 10.0, Interpolation::LINEAR, {}, {}, {}});
        curve.setKey({15.0, 30.0, Interpolation::LINEAR, {}, {}, {}});
        position.setCurve(curve);
        document.setSelection({&module("Hero")});
        docks::settle();
        before = state();
        return position;
    }
    static QList<double> framesOf(const AT_DoubleAttr& attr)
    {
        QList<double> frames;
        for (const AT_Curve::Key& key : attr.curve().keys())
            frames << key.frame;
        return frames;
    }
    void chooseAt(const QString& label, int frame, const QString& text)
    {
        const QPoint place = cell(label, frame);
        QContextMenuEvent wanted(QContextMenuEvent::Mouse, place, port().mapToGlobal(place));
        QApplication::sendEvent(&port(), &wanted);
        auto* menu = canvas().findChild<QMenu*>(QStringLiteral("TimelineMenu"));
        ASSERT_NE(menu, nullptr);
        EXPECT_TRUE(choose(*menu, text)) << qPrintable(text);
        menu->close();
        docks::settle();
    }
};

// The widest text is "Elevation Smoothness Multiplier"; both have the same beginning and the same end.
TEST(ShortNames, NamesThatDifferInTheMiddleStayDifferent)
{
    const QFontMetricsF metrics{QFont()};
    const QString a = QStringLiteral("Elevation Multiplier");
    const QString b = QStringLiteral("Elevation Smoothness Multiplier");
    const double least = metrics.horizontalAdvance(QStringLiteral("Elevation Smm\u2026"));
    for (double width = least; width < metrics.horizontalAdvance(b) + 2.0; width += 1.0) {
        const std::vector<QString> names = shortNames({{a, width}, {b, width}}, metrics);
        ASSERT_NE(names[0], names[1]) << width;
        ASSERT_LE(metrics.horizontalAdvance(names[0]), width);
        ASSERT_LE(metrics.horizontalAdvance(names[1]), width);
    }
}

TEST(ShortNames, WhatFitsIsWholeAndEqualNamesAreShortenedAlike)
{
    const QFontMetricsF metrics{QFont()};
    const QString hero = QStringLiteral("Hero");
    const QString longName = QStringLiteral("A drawing with a long name");
    const double width = metrics.horizontalAdvance(longName) / 2.0;
    const std::vector<QString> names = shortNames({{hero, width}, {longName, width}, {longName, width}}, metrics);
    EXPECT_EQ(names[0], hero);
    EXPECT_EQ(names[1], metrics.elidedText(longName, Qt::ElideMiddle, width));
    EXPECT_EQ(names[2], names[1]);
}

TEST_F(TimelineTest, TheRulerLeadsToAFrameAndADragThroughFrames)
{
    QTest::mouseClick(&port(), Qt::LeftButton, Qt::NoModifier, canvas().cellCenter(-1, 7));
    EXPECT_EQ(document.currentFrame(), 7);
    drag(port(), canvas().cellCenter(-1, 7), canvas().cellCenter(-1, 20));
    EXPECT_EQ(document.currentFrame(), 20);
    expectNoChange();
}

TEST_F(TimelineTest, KeysGoThroughFramesAndStopAtTheEnds)
{
    QTest::keyClick(&canvas(), Qt::Key_End);
    EXPECT_EQ(document.currentFrame(), 24);
    QTest::keyClick(&canvas(), Qt::Key_Right);
    EXPECT_EQ(document.currentFrame(), 24);
    QTest::keyClick(&canvas(), Qt::Key_Left);
    EXPECT_EQ(document.currentFrame(), 23);
    QTest::keyClick(&canvas(), Qt::Key_Home);
    EXPECT_EQ(document.currentFrame(), 1);
    QTest::keyClick(&canvas(), Qt::Key_Left);
    EXPECT_EQ(document.currentFrame(), 1);
}

TEST_F(TimelineTest, RowsAreTheElementsAndTheNumbersOfTheSelectedNode)
{
    document.setSelection({&module("Hero")});
    QStringList labels;
    for (const TimelineRow& row : canvas().rows())
        labels << row.label;
    EXPECT_EQ(labels, (QStringList{"Hero", "Hat", "Position X", "Position Y", "Scale X", "Scale Y", "Rotation"}));
    document.setSelection({});
    EXPECT_EQ(canvas().rows().size(), 3u);
    EXPECT_EQ(canvas().rows().back().attribute, &document.scene().truckFactorAttr());
}

TEST_F(TimelineTest, ADraggedKeyMovesInOneStep)
{
    const AT_DoubleAttr& position = animate();
    drag(port(), cell(QStringLiteral("Position X"), 5), cell(QStringLiteral("Position X"), 9));
    EXPECT_EQ(framesOf(position), (QList<double>{9.0, 15.0}));
    EXPECT_EQ(position.value(9.0), 10.0);
    EXPECT_TRUE(state().contains(QStringLiteral("<key frame=\"9\" type=\"linear\" val=\"10\"/>")));
    expectOneChange(QStringLiteral("Change Position X"));
}

TEST_F(TimelineTest, AKeyDraggedToWhereItWasIsNoChange)
{
    animate();
    drag(port(), cell(QStringLiteral("Position X"), 5), cell(QStringLiteral("Position X"), 5));
    expectNoChange();
}

TEST_F(TimelineTest, ADoubleClickAddsAKeyOfTheValueThere)
{
    const AT_DoubleAttr& position = animate();
    QTest::mouseDClick(&port(), Qt::LeftButton, Qt::NoModifier, cell(QStringLiteral("Position X"), 10));
    EXPECT_EQ(framesOf(position), (QList<double>{5.0, 10.0, 15.0}));
    EXPECT_EQ(position.curve().keyAt(10.0)->value, 20.0);
    expectOneChange(QStringLiteral("Change Position X"));
}

TEST_F(TimelineTest, KAddsAndDeleteRemovesAKeyAtTheCurrentFrame)
{
    const AT_DoubleAttr& position = animate();
    canvas().setFocus();
    canvas().setCurrentRow(rowOf(QStringLiteral("Position X")));
    document.setCurrentFrame(20);
    QTest::keyClick(&canvas(), Qt::Key_K);
    EXPECT_EQ(framesOf(position), (QList<double>{5.0, 15.0, 20.0}));
    QTest::keyClick(&canvas(), Qt::Key_Delete);
    EXPECT_EQ(framesOf(position), (QList<double>{5.0, 15.0}));
    QTest::keyClick(&canvas(), Qt::Key_Delete);
    EXPECT_EQ(document.commands().undoNames().size(), 2);
    document.undo();
    document.undo();
    EXPECT_EQ(state(), before);
}

TEST_F(TimelineTest, TheMenuChangesTheInterpolation)
{
    const AT_DoubleAttr& position = animate();
    chooseAt(QStringLiteral("Position X"), 5, QStringLiteral("Hold until the Next Key"));
    EXPECT_EQ(position.curve().keyAt(5.0)->interpolation, Interpolation::HOLD);
    EXPECT_EQ(position.value(14.0), 10.0);
    expectOneChange(QStringLiteral("Change Position X"));
}

TEST_F(TimelineTest, ASmoothKeyEasesOutAndIn)
{
    const AT_DoubleAttr& position = animate();
    chooseAt(QStringLiteral("Position X"), 5, QStringLiteral("Smooth to the Next Key"));
    EXPECT_EQ(position.curve().keyAt(5.0)->interpolation, Interpolation::BEZIER);
    // Between handles that lie flat, a third of the way each, the value is symmetrical and slow at both ends.
    EXPECT_NEAR(position.value(10.0), 20.0, 1e-9);
    EXPECT_LT(position.value(6.0), 12.0);
    EXPECT_GT(position.value(14.0), 28.0);
    expectOneChange(QStringLiteral("Change Position X"));
}

TEST_F(TimelineTest, ADraggedExposureBeginsElsewhere)
{
    drag(port(), cell(QStringLiteral("Hero"), 12), cell(QStringLiteral("Hero"), 15));
    const auto& exposures = element("Hero").drawingAttr()->exposures().exposures();
    EXPECT_EQ(exposures, (std::map<int, QString>{{1, QStringLiteral("1")}, {12, QStringLiteral("2")}}));
    EXPECT_TRUE(state().contains(QStringLiteral("<exposure drawing=\"2\" frame=\"12\"/>")));
    expectOneChange(QStringLiteral("Change Drawing"));
}

TEST_F(TimelineTest, TheMenuExposesDrawingsAndNothing)
{
    chooseAt(QStringLiteral("Hero"), 4, QStringLiteral("2"));
    EXPECT_EQ(element("Hero").drawingAttr()->drawing(4), QStringLiteral("2"));
    EXPECT_EQ(element("Hero").drawingAttr()->drawing(3), QStringLiteral("1"));
    expectOneChange(QStringLiteral("Change Drawing"));
    document.undo();
    chooseAt(QStringLiteral("Hero"), 9, QStringLiteral("Remove Exposure"));
    EXPECT_EQ(element("Hero").drawingAttr()->drawing(20), QStringLiteral("1"));
    document.undo();
    chooseAt(QStringLiteral("Hero"), 20, QStringLiteral("Show Nothing from Frame 20"));
    EXPECT_EQ(element("Hero").drawingAttr()->drawing(24), QString());
}

TEST_F(TimelineTest, AClickOnARowsNameSelectsTheNode)
{
    QTest::mouseClick(&port(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(20, canvas().cellCenter(rowOf(QStringLiteral("Hat")), 1).y()));
    EXPECT_EQ(document.currentModule(), &module("Hat"));
}

TEST_F(TimelineTest, TheBorderOfTheNamesIsDragged)
{
    const int width = canvas().nameWidth();
    const int gap = canvas().cellCenter(-1, 1).x() - width;
    const auto dragTo = [&](int x) { drag(port(), QPoint(canvas().nameWidth(), 60), QPoint(x, 60)); };
    dragTo(width + 50);
    EXPECT_EQ(canvas().nameWidth(), width + 50);
    EXPECT_EQ(canvas().cellCenter(-1, 1).x() - canvas().nameWidth(), gap) << "the frames move along";
    EXPECT_EQ(document.currentFrame(), 1) << "no frame was meant";
    dragTo(-100);
    EXPECT_GT(canvas().nameWidth(), 0);
    dragTo(port().width() + 100);
    EXPECT_LT(canvas().nameWidth(), port().width()) << "the border can be taken again";
}

TEST_F(TimelineTest, TheRowsOfSelectedElementsAreMarked)
{
    const auto groundOf = [this](const char* name) {
        const int middle = canvas().cellCenter(rowOf(QLatin1String(name)), 1).y();
        // Right of the name.
        return port().grab().toImage().pixelColor(canvas().nameWidth() - 6, middle);
    };
    document.setSelection({&module("Display")});
    docks::settle();
    EXPECT_EQ(groundOf("Hat"), groundOf("Hero"));
    document.setSelection({&module("Hat"), &module("Display")});
    docks::settle();
    EXPECT_NE(groundOf("Hat"), groundOf("Hero"));
}

TEST_F(TimelineTest, TheFieldsChangeTheFramesOfTheScene)
{
    auto* last = view<TimelineView>().findChild<QSpinBox*>(QStringLiteral("LastFrame"));
    ASSERT_NE(last, nullptr);
    last->setFocus();
    last->selectAll();
    QTest::keyClicks(last, QStringLiteral("48"));
    EXPECT_EQ(document.scene().lastFrame(), 24);
    QTest::keyClick(last, Qt::Key_Return);
    EXPECT_EQ(document.scene().lastFrame(), 48);
    EXPECT_TRUE(state().contains(QStringLiteral("lastFrame=\"48\"")));
    expectOneChange(QStringLiteral("Change Frames"));
}

TEST_F(TimelineTest, TheCurrentFrameStaysInASceneThatGetsShorter)
{
    document.setCurrentFrame(24);
    document.execute(MO_frameRangeCmd(document.scene(), 1, 10));
    docks::settle();
    EXPECT_EQ(document.currentFrame(), 10);
}

TEST(PlaybackTest, TimeDecidesWhichFrameIsShown)
{
    EXPECT_EQ(Playback::frameAfter(0, 24.0, 5, {1, 24}), 5);
    EXPECT_EQ(Playback::frameAfter(41, 24.0, 5, {1, 24}), 5);
    EXPECT_EQ(Playback::frameAfter(42, 24.0, 5, {1, 24}), 6);
    // Half a second is twelve frames, whether they could all be shown or not.
    EXPECT_EQ(Playback::frameAfter(500, 24.0, 5, {1, 24}), 17);
    EXPECT_EQ(Playback::frameAfter(500, 12.5, 5, {1, 24}), 11);
    // From the last frame on to the first one.
    EXPECT_EQ(Playback::frameAfter(500, 24.0, 20, {1, 24}), 8);
    EXPECT_EQ(Playback::frameAfter(3600000, 24.0, 1, {1, 24}), 1);
}

TEST_F(TimelineTest, TheFrameRateIsTheScenesAndUndone)
{
    auto* const rate = view<TimelineView>().findChild<QDoubleSpinBox*>(QStringLiteral("FrameRate"));
    ASSERT_NE(rate, nullptr);
    EXPECT_EQ(rate->value(), 24.0);
    rate->setFocus();
    rate->selectAll();
    QTest::keyClicks(rate, QLocale().toString(12.5));
    QTest::keyClick(rate, Qt::Key_Return);
    docks::settle();
    EXPECT_EQ(document.scene().frameRate(), 12.5);
    EXPECT_TRUE(state().contains(QStringLiteral("frameRate=\"12.5\"")));
    expectOneChange(QStringLiteral("Change Frame Rate"));
    document.undo();
    docks::settle();
    EXPECT_EQ(rate->value(), 24.0);
}

TEST_F(TimelineTest, TheSpaceBarPlaysWhereverNoTextIsTyped)
{
    Playback& playback = view<TimelineView>().playback();
    auto* const field = view<TimelineView>().findChild<QSpinBox*>(QStringLiteral("FirstFrame"));
    auto* const button = view<TimelineView>().findChild<QToolButton*>(QStringLiteral("ToFirstFrame"));
    ASSERT_TRUE(field && button);
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window, kPatience));
    const auto press = [&](QWidget& focused, Qt::FocusReason reason) {
        focused.setFocus(reason);
        docks::settle();
        // Keys come to the window, as from the system, so that shortcuts hear them.
        QTest::keyClick(window.windowHandle(), Qt::Key_Space);
        docks::settle();
        const bool was = playback.isPlaying();
        playback.stop();
        return was;
    };
    for (QWidget* const focused : {static_cast<QWidget*>(&canvas()), static_cast<QWidget*>(&nodes())})
        EXPECT_TRUE(press(*focused, Qt::MouseFocusReason)) << focused->metaObject()->className();
    // A button that was clicked keeps the focus, and nobody means it any more.
    window.setAttribute(Qt::WA_KeyboardFocusChange, false);
    EXPECT_TRUE(press(*button, Qt::MouseFocusReason));
    // Who came there by the keyboard presses it.
    document.setCurrentFrame(5);
    window.setAttribute(Qt::WA_KeyboardFocusChange, true);
    EXPECT_FALSE(press(*button, Qt::TabFocusReason));
    EXPECT_EQ(document.currentFrame(), 1);
    // A number has no space; a name may have one.
    EXPECT_TRUE(press(*field, Qt::MouseFocusReason));
    EXPECT_EQ(field->text(), QStringLiteral("1"));
    QLineEdit name(&window);
    name.show();
    EXPECT_FALSE(press(name, Qt::MouseFocusReason));
    EXPECT_EQ(name.text(), QStringLiteral(" "));
}

TEST_F(TimelineTest, APartOfTheFramesIsPlayedAgainAndAgain)
{
    Playback& playback = view<TimelineView>().playback();
    EXPECT_EQ(playback.range(), (Playback::Range{1, 24}));
    canvas().setFocus();
    docks::settle();
    document.setCurrentFrame(10);
    QTest::keyClick(&canvas(), Qt::Key_I);
    EXPECT_EQ(playback.range(), (Playback::Range{10, 24}));
    document.setCurrentFrame(12);
    QTest::keyClick(&canvas(), Qt::Key_O);
    EXPECT_EQ(playback.range(), (Playback::Range{10, 12}));
    expectNoChange();
    QList<int> shown;
    QObject::connect(&document, &StudioDocument::currentFrameChanged, &window, [&](int frame) { shown << frame; });
    playback.start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown.size() >= 6; }, kPatience));
    playback.stop();
    EXPECT_EQ(shown.first(), 10);
    for (const int frame : std::as_const(shown))
        EXPECT_TRUE(frame >= 10 && frame <= 12) << frame;
    // What the scene does not have any more cannot be played.
    document.execute(MO_frameRangeCmd(document.scene(), 1, 11));
    EXPECT_EQ(playback.range(), (Playback::Range{10, 11}));
    document.execute(MO_frameRangeCmd(document.scene(), 1, 5));
    EXPECT_EQ(playback.range(), (Playback::Range{1, 5}));
    QTest::keyClick(&canvas(), Qt::Key_X);
    EXPECT_FALSE(playback.loop());
}

TEST_F(TimelineTest, PlayRunsThroughTheFramesAndStopKeepsTheOneReached)
{
    auto* play = view<TimelineView>().findChild<QToolButton*>(QStringLiteral("Play"));
    ASSERT_NE(play, nullptr);
    QTest::mouseClick(play, Qt::LeftButton);
    ASSERT_TRUE(view<TimelineView>().playback().isPlaying());
    EXPECT_TRUE(QTest::qWaitFor([&] { return document.currentFrame() > 3; }, kPatience));
    QTest::mouseClick(play, Qt::LeftButton);
    const int reached = document.currentFrame();
    QTest::qWait(120);
    EXPECT_EQ(document.currentFrame(), reached);
    expectNoChange();
}

TEST_F(TimelineTest, PlayWaitsForAFrameThatIsOnItsWay)
{
    bool isBusy = true;
    int asked = 0;
    view<TimelineView>().playback().setIsBusy([&] {
        ++asked;
        return isBusy;
    });
    // Begins before the clock that decides, so that it shows no less.
    QElapsedTimer sinceStart;
    sinceStart.start();
    view<TimelineView>().playback().start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return asked >= 10; }, kPatience));
    EXPECT_TRUE(document.currentFrame() == 1 || sinceStart.hasExpired(Playback::kLongestWait.count()));
    isBusy = false;
    EXPECT_TRUE(QTest::qWaitFor([&] { return document.currentFrame() > 3; }, kPatience));
}

} // namespace
