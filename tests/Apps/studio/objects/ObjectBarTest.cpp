// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Rim and tilt are values as bevel, elevation and smoothness are: the bar shows and takes them, they are copied, kept
// in presets and reset. And the bar hides no handle.
#include "Apps/studio/objects/ObjectsTesting.h"

#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "studio/objects/ObjectPresets.h"
#include "studio/objects/ValueField.h"

#include <QClipboard>
#include <QInputDialog>

namespace {

class ObjectBarTest : public studio_testing::ObjectsTest
{
protected:
    void enter(ObjectValue value, const QString& text)
    {
        ValueField& field = bar().field(value);
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, text);
        QTest::keyClick(&field, Qt::Key_Return);
        QCoreApplication::processEvents();
    }
    /// Gives the head a rim and a tilt.
    void shapeHead()
    {
        click(kHead);
        shapeSelected();
    }
    void shapeSelected()
    {
        enter(ObjectValue::RIM, QStringLiteral("4"));
        enter(ObjectValue::TILT_RIGHT, QStringLiteral("12"));
        enter(ObjectValue::TILT_UP, QStringLiteral("-5"));
    }
    void key(Qt::Key key)
    {
        viewer().setFocus();
        QTest::keyClick(&viewer(), key, Qt::ControlModifier);
        QCoreApplication::processEvents();
    }
    void choose(const QString& text)
    {
        QAction* const action = entry(menuOfBar(), text);
        ASSERT_NE(action, nullptr) << qPrintable(text);
        action->trigger();
        QCoreApplication::processEvents();
    }
    /// Those that the bar covers.
    int coveredHandles()
    {
        const ObjectHandles own = window->hands().handles();
        std::vector<QPointF> places = viewer().lightHandles();
        for (const ObjectHandle handle : kObjectHandles)
            places.push_back(own.place(handle));
        return static_cast<int>(std::ranges::count_if(
            places, [&](const QPointF& place) { return QRectF(bar().geometry()).contains(place); }));
    }
    void placeLight(const QPointF& place)
    {
        StudioLight light = window->lights().lights().front();
        light.place = place;
        window->lights().setLight(0, light);
        QCoreApplication::processEvents();
    }

    static constexpr ObjectTilt kTilt{12.0, -5.0};
    static constexpr ObjectRim kRim{4.0, 1.0};
};

TEST_F(ObjectBarTest, RimAndTiltAreTypedAndAreStepsThatSaySo)
{
    openParts();
    shapeHead();
    EXPECT_EQ(object("Head").rim, kRim);
    EXPECT_EQ(object("Head").tilt, kTilt);
    EXPECT_EQ(object("Body").rim, (ObjectRim{0.0, 1.0}));
    EXPECT_EQ(document().commands().undoNames(),
              QStringList({QStringLiteral("Rim of Head 0 \u2192 4"), QStringLiteral("Tilt right of Head 0 \u2192 12"),
                           QStringLiteral("Tilt up of Head 0 \u2192 -5")}));
    document().commands().undo();
    QCoreApplication::processEvents();
    EXPECT_EQ(bar().field(ObjectValue::TILT_UP).value(), 0.0);
    EXPECT_EQ(bar().field(ObjectValue::TILT_RIGHT).value(), 12.0);
    EXPECT_EQ(bar().field(ObjectValue::RIM).value(), 4.0);
}

TEST_F(ObjectBarTest, ARimChangesThePicture)
{
    openParts();
    // The middle of the head's rim on its right, 3 of its 80 pixels inside.
    const auto seen = [this] { return window->renderService().current()->normals.pixelColor(237, 100); };
    click(kHead);
    const QColor before = seen();
    enter(ObjectValue::RIM, QStringLiteral("8"));
    ASSERT_TRUE(waitForPicture());
    EXPECT_GT(seen().red(), before.red()) << "a second bevel makes the border steeper";
}

TEST_F(ObjectBarTest, CopiedValuesHaveRimAndTiltInTheWordsOfTheCommandLine)
{
    openParts();
    shapeHead();
    key(Qt::Key_C);
    EXPECT_EQ(QApplication::clipboard()->text(),
              QStringLiteral("bevel=24:elevation=1:smoothness=1:tilt=12,-5:rim=4,1"));
    click(kBody);
    const auto steps = document().commands().undoNames().size();
    key(Qt::Key_V);
    EXPECT_EQ(object("Body").rim, kRim);
    EXPECT_EQ(object("Body").tilt, kTilt);
    EXPECT_EQ(document().commands().undoNames().size(), steps + 1);
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Paste Values to Body"));
}

TEST_F(ObjectBarTest, ACutOutThatIsSelectedLastLeavesTheValuesOfTheOtherObjects)
{
    openParts();
    click(kHead);
    enter(ObjectValue::BEVEL, QStringLiteral("31"));
    click(kBody);
    toggle("bar-cut-out");
    ASSERT_TRUE(object("Body").isCutOut());
    window->objects().select({object("Head"), object("Body")});
    QCoreApplication::processEvents();
    const ValueField& bevel = bar().field(ObjectValue::BEVEL);
    EXPECT_TRUE(bevel.isEnabled());
    EXPECT_EQ(bevel.value(), 31.0);
    EXPECT_FALSE(window->hands().handles().isEmpty());
    key(Qt::Key_C);
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith(QStringLiteral("bevel=31:")))
        << qPrintable(QApplication::clipboard()->text());
    window->objects().select({object("Body")});
    QCoreApplication::processEvents();
    EXPECT_FALSE(bevel.isEnabled());
    EXPECT_TRUE(window->hands().handles().isEmpty());
}

TEST_F(ObjectBarTest, WordsThatArePastedLeaveAllOtherValuesAlone)
{
    openParts();
    shapeHead();
    AT_Curve curve;
    curve.setKey({3.0, 12.0, AT_Curve::Interpolation::LINEAR, {}, {}, {}});
    definition("Head").tiltX()->setCurve(curve);
    QApplication::clipboard()->setText(QStringLiteral("rim=3,0.5:bevel=9"));
    key(Qt::Key_V);
    EXPECT_EQ(object("Head").rim, (ObjectRim{3.0, 0.5}));
    EXPECT_EQ(valuesOf("Head").bevel, 9.0);
    EXPECT_EQ(valuesOf("Head").elevation, 1.0);
    EXPECT_EQ(object("Head").tilt, kTilt);
    // A paste with the tilt that the object has anyway adds no key.
    QApplication::clipboard()->setText(QStringLiteral("tilt=12,-5:bevel=7"));
    key(Qt::Key_V);
    EXPECT_EQ(valuesOf("Head").bevel, 7.0);
    EXPECT_EQ(definition("Head").tiltX()->curve().keys().size(), 1U);
    QApplication::clipboard()->setText(QStringLiteral("bevel=3:what=4"));
    key(Qt::Key_V);
    EXPECT_EQ(valuesOf("Head").bevel, 7.0) << "a text with an unknown word is no copy of values";
}

TEST_F(ObjectBarTest, OwnPresetsKeepRimAndTilt)
{
    openParts();
    shapeHead();
    QTimer::singleShot(0, window.get(), [] {
        auto* const dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        dialog->setTextValue(QStringLiteral("Button"));
        dialog->accept();
    });
    choose(QStringLiteral("Save Values as Preset..."));
    renew();
    openParts();
    click(kBody);
    choose(QStringLiteral("Button"));
    EXPECT_EQ(object("Body").rim, kRim);
    EXPECT_EQ(object("Body").tilt, kTilt);
}

TEST_F(ObjectBarTest, PresetsOfEarlierVersionsLeaveRimAndTiltAlone)
{
    {
        QSettings settings;
        settings.beginWriteArray(QStringLiteral("objectPresets"));
        settings.setArrayIndex(0);
        settings.setValue(QStringLiteral("name"), QStringLiteral("Old"));
        settings.setValue(QStringLiteral("bevel"), 3.0);
        settings.setValue(QStringLiteral("elevation"), 0.5);
        settings.setValue(QStringLiteral("smoothness"), QStringLiteral("nan"));
        settings.endArray();
    }
    openParts();
    shapeHead();
    choose(QStringLiteral("Old"));
    EXPECT_EQ(valuesOf("Head").bevel, 3.0);
    EXPECT_EQ(valuesOf("Head").elevation, 0.5);
    EXPECT_EQ(valuesOf("Head").smoothness, 1.0);
    EXPECT_EQ(object("Head").rim, kRim);
    EXPECT_EQ(object("Head").tilt, kTilt);
}

TEST_F(ObjectBarTest, ThePresetsOfTheProgramHaveNoRimAndTurnNothing)
{
    openParts();
    shapeHead();
    choose(QStringLiteral("Paper"));
    EXPECT_EQ(object("Head").rim, (ObjectRim{0.0, 1.0}));
    EXPECT_EQ(object("Head").tilt, kTilt);
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Paper for Head"));
}

TEST_F(ObjectBarTest, RimAndTiltAreResetAloneAndWithTheOthers)
{
    openParts();
    shapeHead();
    definition("Head").rimHeight()->setLocalValue(2.5);
    choose(QStringLiteral("Rim"));
    EXPECT_EQ(object("Head").rim, (ObjectRim{0.0, 1.0})) << "its height, too";
    EXPECT_EQ(object("Head").tilt, kTilt);
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Reset Rim of Head"));
    choose(QStringLiteral("Tilt"));
    EXPECT_EQ(object("Head").tilt, ObjectTilt());
    shapeSelected();
    ASSERT_EQ(object("Head").rim, kRim);
    choose(QStringLiteral("Reset Values"));
    EXPECT_EQ(object("Head").rim, (ObjectRim{0.0, 1.0}));
    EXPECT_EQ(object("Head").tilt, ObjectTilt());
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Reset Values of Head"));
}

TEST_F(ObjectBarTest, ResetReturnsToTheRimAndTheTiltThatTheDrawingSays)
{
    QByteArray said = studio_testing::kParts;
    said.replace("\"Head\"", "\"Head tilt=12,-5 rim=4\"");
    drop({write(QStringLiteral("said.svg"), said)});
    ASSERT_TRUE(waitForPicture()) << qPrintable(window->messages().text());
    window->objects().select({object("Head")});
    QCoreApplication::processEvents();
    ASSERT_EQ(object("Head").rim, kRim);
    enter(ObjectValue::RIM, QStringLiteral("9"));
    enter(ObjectValue::TILT_RIGHT, QStringLiteral("40"));
    ASSERT_EQ(object("Head").tilt, (ObjectTilt{40.0, -5.0}));
    choose(QStringLiteral("Rim"));
    EXPECT_EQ(object("Head").rim, kRim);
    choose(QStringLiteral("Tilt"));
    EXPECT_EQ(object("Head").tilt, kTilt);
    enter(ObjectValue::RIM, QStringLiteral("0"));
    enter(ObjectValue::TILT_UP, QStringLiteral("60"));
    choose(QStringLiteral("Reset Values"));
    EXPECT_EQ(object("Head").rim, kRim);
    EXPECT_EQ(object("Head").tilt, kTilt);
}

TEST_F(ObjectBarTest, TheBarCoversNoLightAndNoHandle)
{
    openParts();
    // Below the head's lower edge, where the bar would be: the picture is 200 high, and a light's unit is 100 pixels.
    placeLight(QPointF(0.0, -0.7));
    click(kHead);
    ASSERT_TRUE(bar().isVisible());
    EXPECT_EQ(coveredHandles(), 0);
    // Small objects have their handles around them.
    window->viewer().zoomTo(viewer().zoom() / 6.0);
    QCoreApplication::processEvents();
    EXPECT_EQ(coveredHandles(), 0);
}

TEST_F(ObjectBarTest, TheBarCoversHardlyAnythingWhereTheViewHasRoomBesideTheDrawing)
{
    openParts();
    placeLight(QPointF(-1.9, -0.9));
    // The picture is 400 x 200, with a border of 20 x 10 pixels around the body.
    window->viewer().zoomTo(1.0);
    QCoreApplication::processEvents();
    const QRectF body = viewer().transform().toView(QRectF(40.0, 20.0, 320.0, 160.0));
    for (const QPointF& place : {kHead, kBody}) {
        click(place);
        ASSERT_TRUE(bar().isVisible());
        ASSERT_GT(body.top(), bar().height() + 10.0) << "there must be room above the drawing";
        const QRectF covered = QRectF(bar().geometry()) & body;
        EXPECT_LT(covered.width() * covered.height(), 0.05 * bar().width() * bar().height());
    }
}

TEST_F(ObjectBarTest, TheBarStaysUnderTheMouseThatPressesItsButtons)
{
    openParts();
    placeLight(QPointF(-1.9, -0.9));
    click(kHead);
    ASSERT_TRUE(bar().isVisible());
    const QRect before = bar().geometry();
    toggle("bar-solo");
    ASSERT_TRUE(waitForPicture());
    EXPECT_EQ(bar().geometry(), before) << "without the body, other places cover less";
    toggle("bar-solo");
    ASSERT_TRUE(waitForPicture());
    EXPECT_EQ(bar().geometry(), before);
}

TEST_F(ObjectBarTest, TheBarStaysNearAnObjectThatHasRoomBesideIt)
{
    openParts();
    placeLight(QPointF(-1.9, -0.9));
    window->viewer().zoomTo(0.5);
    QCoreApplication::processEvents();
    click(kHead);
    ASSERT_TRUE(bar().isVisible());
    const QRectF body = viewer().transform().toView(QRectF(40.0, 20.0, 320.0, 160.0));
    EXPECT_FALSE(QRectF(bar().geometry()).intersects(body));
    EXPECT_TRUE(QRectF(bar().geometry()).adjusted(-60.0, -60.0, 60.0, 60.0).intersects(body))
        << "no corner of the view";
}

TEST_F(ObjectBarTest, TheBarMakesWayForALightThatIsDraggedUnderIt)
{
    openParts();
    click(kHead);
    ASSERT_TRUE(bar().isVisible());
    const QPoint from = viewer().lightHandles().front().toPoint();
    const QPoint to = bar().geometry().center();
    QTest::mousePress(&viewer(), Qt::LeftButton, Qt::NoModifier, from);
    studio_testing::moveMouse(viewer(), to, Qt::LeftButton);
    QTest::mouseRelease(&viewer(), Qt::LeftButton, Qt::NoModifier, to);
    QCoreApplication::processEvents();
    EXPECT_EQ(viewer().lightHandles().front().toPoint(), to);
    EXPECT_EQ(coveredHandles(), 0);
}

} // namespace
