// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The viewer with mouse and keyboard, and the values that it shows for a pixel.
#include "Apps/studio/window/WindowTesting.h"
#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"

#include <QAction>
#include <QLabel>
#include <QWheelEvent>

namespace {

class ViewerTest : public studio_testing::WindowTest
{
protected:
    void turnWheel(const QPointF& place, int steps)
    {
        QWheelEvent event(place, viewer().mapToGlobal(place), QPoint(), QPoint(0, 120 * steps), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&viewer(), &event);
    }
    QString readOut() const { return window->findChild<QLabel*>(QStringLiteral("pixelReadOut"))->text().simplified(); }
    void hover(const QPointF& picture)
    {
        studio_testing::moveMouse(viewer(), viewer().transform().toView(picture).toPoint());
        QCoreApplication::processEvents();
    }
};

TEST_F(ViewerTest, TheWheelZoomsAboutTheCursor)
{
    openDisc();
    const QPointF cursor(300, 200);
    const QPointF before = viewer().transform().toPicture(cursor);
    const double zoom = viewer().zoom();
    turnWheel(cursor, 3);
    EXPECT_GT(viewer().zoom(), 1.5 * zoom);
    EXPECT_NEAR(viewer().transform().toPicture(cursor).x(), before.x(), 1e-6);
    EXPECT_NEAR(viewer().transform().toPicture(cursor).y(), before.y(), 1e-6);
    turnWheel(cursor, -3);
    EXPECT_NEAR(viewer().zoom(), zoom, 1e-9);
}

TEST_F(ViewerTest, ZoomHasEnds)
{
    openDisc();
    for (int i = 0; i < 60; ++i)
        turnWheel(QPointF(10, 10), 5);
    EXPECT_EQ(viewer().zoom(), ViewTransform::kLargest);
    for (int i = 0; i < 60; ++i)
        turnWheel(QPointF(10, 10), -5);
    EXPECT_EQ(viewer().zoom(), ViewTransform::kSmallest);
}

TEST_F(ViewerTest, TheMiddleButtonPans)
{
    openDisc();
    viewer().zoomTo(2.0);
    const QPointF before = viewer().transform().toView(QPointF(200, 100));
    QTest::mousePress(&viewer(), Qt::MiddleButton, Qt::NoModifier, QPoint(200, 200));
    studio_testing::moveMouse(viewer(), QPoint(250, 170));
    QTest::mouseRelease(&viewer(), Qt::MiddleButton, Qt::NoModifier, QPoint(250, 170));
    const QPointF after = viewer().transform().toView(QPointF(200, 100));
    EXPECT_EQ(after - before, QPointF(50, -30));
}

TEST_F(ViewerTest, FitShowsTheWholePictureAlsoWhenTheWindowGrows)
{
    openDisc();
    viewer().fit();
    window->resize(1500, 950);
    QCoreApplication::processEvents();
    const QRectF shown = viewer().transform().toView(QRectF(0, 0, 400, 200));
    EXPECT_TRUE(QRectF(viewer().rect()).contains(shown));
    EXPECT_GT(shown.width(), viewer().width() - 64.0);
}

TEST_F(ViewerTest, FingersThatRestOnATouchpadLeaveThePictureFitted)
{
    openDisc();
    viewer().fit();
    turnWheel(QPointF(100, 100), 0);
    const double before = viewer().zoom();
    window->resize(1500, 950);
    QCoreApplication::processEvents();
    EXPECT_GT(viewer().zoom(), before);
}

TEST_F(ViewerTest, AtOneHundredPerCentAPixelIsAPixel)
{
    openDisc();
    viewer().zoomTo(1.0);
    const QRectF shown = viewer().transform().toView(QRectF(0, 0, 400, 200));
    EXPECT_NEAR(shown.width() * viewer().devicePixelRatioF(), 400.0, 1e-9);
}

TEST_F(ViewerTest, TheReadOutTellsWhatTheViewShows)
{
    openDisc();
    viewer().zoomTo(1.5);
    viewer().setKind(PictureKind::DRAWING);
    hover(QPointF(200.5, 100.5));
    EXPECT_TRUE(readOut().startsWith(QStringLiteral("200, 100 #d02020 red 208 green 32 blue 32")))
        << qPrintable(readOut());
    hover(QPointF(2.5, 3.5));
    EXPECT_EQ(readOut(), QStringLiteral("2, 3 nothing"));
    viewer().setKind(PictureKind::NORMALS);
    hover(QPointF(200.5, 100.5));
    EXPECT_TRUE(readOut().contains(QStringLiteral("normal"))) << qPrintable(readOut());
    EXPECT_TRUE(readOut().contains(QStringLiteral("tilt"))) << qPrintable(readOut());
    hover(QPointF(2.5, 3.5));
    EXPECT_EQ(readOut(), QStringLiteral("2, 3 normal 0.000 0.000 1.000 tilt 0.0\u00b0"));
    viewer().setKind(PictureKind::LIT);
    hover(QPointF(200.5, 100.5));
    EXPECT_TRUE(readOut().contains(viewer().shownImage().pixelColor(200, 100).name())) << qPrintable(readOut());
    hover(QPointF(-20.0, -20.0));
    EXPECT_EQ(readOut(), QString());
}

TEST_F(ViewerTest, TheReadOutTellsTheElevationInUnitsAndTheObject)
{
    openDisc();
    viewer().zoomTo(1.5);
    viewer().setKind(PictureKind::ELEVATION);
    const std::vector<SceneObject>& objects = window->objects().all();
    ASSERT_EQ(objects.size(), 1U);
    const double whole = objects.front().values.elevation * 37.5;
    const double share = pixelOf(*window->renderService().current(), QPoint(200, 100))->elevation;
    hover(QPointF(200.5, 100.5));
    EXPECT_EQ(readOut(),
              QStringLiteral("200, 100 elevation %1 of %2 units %3")
                  .arg(QString::number(share * whole, 'f', 1), QString::number(whole, 'f', 1), objects.front().name));
}

TEST_F(ViewerTest, TheReadOutsUnitsFollowTheTruckFactor)
{
    openDisc();
    viewer().setKind(PictureKind::ELEVATION);
    const SceneObject object = window->objects().all().front();
    dynamic_cast<AT_BoolAttr&>(*object.node->findAttr(QStringLiteral("UseTruckFactor"))).setLocalValue(true);
    document().scene().truckFactorAttr().setLocalValue(1.4);
    ASSERT_TRUE(waitForPicture());
    hover(QPointF(200.5, 100.5));
    const QString whole = QString::number(object.values.elevation * 37.5 * 1.4, 'f', 1);
    EXPECT_TRUE(readOut().contains(QStringLiteral("of %1 units").arg(whole))) << qPrintable(readOut());
}

TEST_F(ViewerTest, TheReadOutTellsTheRawChannelsWhereTheyAreAskedFor)
{
    openDisc();
    viewer().zoomTo(1.5);
    const auto centre = pixelOf(*window->renderService().current(), QPoint(200, 100));
    ASSERT_TRUE(centre.has_value());
    EXPECT_NEAR(centre->channels[3], 1.0, 1e-3);
    EXPECT_NEAR(centre->normal[2], 1.0, 0.05);
    EXPECT_NEAR(centre->elevation, 1.0, 0.05);
    for (QAction* const action : window->findChildren<QAction*>())
        if (action->text().remove(QLatin1Char('&')) == QStringLiteral("Raw Channels in the Status Bar"))
            action->trigger();
    hover(QPointF(200.5, 100.5));
    EXPECT_TRUE(readOut().startsWith(QStringLiteral("200, 100 R "))) << qPrintable(readOut());
    EXPECT_TRUE(readOut().contains(QStringLiteral("A 1.000 normal"))) << qPrintable(readOut());
    EXPECT_TRUE(readOut().contains(QStringLiteral("elevation"))) << qPrintable(readOut());
    hover(QPointF(2.5, 3.5));
    EXPECT_EQ(readOut(), QStringLiteral("2, 3 R 0.000 G 0.000 B 0.000 A 0.000 normal 0.000 0.000 1.000 elevation "
                                        "0.000"));
}

TEST_F(ViewerTest, WhileBIsHeldTheDrawingIsSeen)
{
    openDisc();
    viewer().setFocus();
    const QImage lit = viewer().shownImage();
    QTest::keyPress(&viewer(), Qt::Key_B);
    EXPECT_EQ(viewer().shownImage().pixelColor(200, 100), QColor(0xd0, 0x20, 0x20));
    QTest::keyRelease(&viewer(), Qt::Key_B);
    EXPECT_EQ(viewer().shownImage(), lit);
    EXPECT_EQ(viewer().kind(), PictureKind::LIT);
}

TEST_F(ViewerTest, TheBorderBetweenBeforeAndAfterIsDragged)
{
    openDisc();
    viewer().setKind(PictureKind::NORMALS);
    const auto seen = [&](const QPointF& picture) {
        return viewer().grab().toImage().pixelColor(viewer().transform().toView(picture).toPoint());
    };
    const QPointF left(150.5, 100.5);
    const QPointF right(250.5, 100.5);
    const QColor normal = seen(left);
    QTest::keyClick(window.get(), Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(seen(left), QColor(0xd0, 0x20, 0x20));
    EXPECT_NE(seen(right), QColor(0xd0, 0x20, 0x20));
    ASSERT_TRUE(viewer().borderPlace().has_value());
    const QPoint border(static_cast<int>(*viewer().borderPlace()), 60);
    const int way = static_cast<int>(-120 * viewer().transform().scale());
    QTest::mousePress(&viewer(), Qt::LeftButton, Qt::NoModifier, border);
    studio_testing::moveMouse(viewer(), border + QPoint(way, 0));
    QTest::mouseRelease(&viewer(), Qt::LeftButton, Qt::NoModifier, border + QPoint(way, 0));
    EXPECT_EQ(seen(left), normal);
    QTest::keyClick(window.get(), Qt::Key_B, Qt::ControlModifier);
    EXPECT_FALSE(viewer().borderPlace().has_value());
}

TEST_F(ViewerTest, ASingleChannelIsGreyWithoutItsCoverage)
{
    openDisc();
    viewer().setKind(PictureKind::DRAWING);
    ViewOptions options = viewer().options();
    options.channel = PictureChannel::RED;
    viewer().setOptions(options);
    EXPECT_EQ(viewer().shownImage().pixelColor(200, 100), QColor(0xd0, 0xd0, 0xd0));
    options.channel = PictureChannel::ALPHA;
    viewer().setOptions(options);
    EXPECT_EQ(viewer().shownImage().pixelColor(200, 100), QColor(255, 255, 255));
    EXPECT_EQ(viewer().shownImage().pixelColor(2, 2), QColor(0, 0, 0));
}

TEST_F(ViewerTest, AColourOrAPictureLiesBehindTheLitPictureAndBehindNoNormals)
{
    openDisc();
    const auto corner = [&] {
        return viewer().grab().toImage().pixelColor(viewer().transform().toView(QPointF(6.5, 6.5)).toPoint());
    };
    ViewOptions options = viewer().options();
    options.backdrop.colour = QColor(10, 200, 30);
    viewer().setOptions(options);
    EXPECT_EQ(corner(), QColor(10, 200, 30));
    options.backdrop = {};
    options.backdrop.picture = QImage(8, 8, QImage::Format_RGB32);
    options.backdrop.picture.fill(QColor(200, 10, 30));
    viewer().setOptions(options);
    EXPECT_EQ(corner(), QColor(200, 10, 30));
    viewer().setKind(PictureKind::NORMALS);
    EXPECT_NE(corner(), QColor(200, 10, 30));
}

TEST_F(ViewerTest, TheLeftButtonWithCtrlPans)
{
    openDisc();
    viewer().zoomTo(2.0);
    const QPointF before = viewer().transform().toView(QPointF(200, 100));
    QTest::mousePress(&viewer(), Qt::LeftButton, Qt::ControlModifier, QPoint(200, 200));
    studio_testing::moveMouse(viewer(), QPoint(250, 170));
    QTest::mouseRelease(&viewer(), Qt::LeftButton, Qt::ControlModifier, QPoint(250, 170));
    EXPECT_EQ(viewer().transform().toView(QPointF(200, 100)) - before, QPointF(50, -30));
}

TEST_F(ViewerTest, TheSlopeOnTheLeftLooksLeftAndTheUpperOneUp)
{
    openDisc();
    const RenderedFrame& frame = *window->renderService().current();
    EXPECT_LT(pixelOf(frame, QPoint(200 - 72, 100))->normal[0], -0.1);
    EXPECT_GT(pixelOf(frame, QPoint(200 + 72, 100))->normal[0], 0.1);
    EXPECT_GT(pixelOf(frame, QPoint(200, 100 - 72))->normal[1], 0.1);
    EXPECT_LT(pixelOf(frame, QPoint(200, 100 + 72))->normal[1], -0.1);
}

TEST_F(ViewerTest, TheFourPicturesAreReachedByKey)
{
    openDisc();
    viewer().setFocus();
    const std::pair<Qt::Key, PictureKind> keys[] = {{Qt::Key_1, PictureKind::DRAWING},
                                                    {Qt::Key_2, PictureKind::ELEVATION},
                                                    {Qt::Key_3, PictureKind::NORMALS},
                                                    {Qt::Key_4, PictureKind::LIT}};
    for (const auto& [key, kind] : keys) {
        QTest::keyClick(window.get(), key, Qt::AltModifier);
        EXPECT_EQ(viewer().kind(), kind);
        EXPECT_FALSE(viewer().shownImage().isNull());
    }
}

TEST_F(ViewerTest, ThePicturesShowWhatTheirNamesSay)
{
    openDisc();
    viewer().setKind(PictureKind::DRAWING);
    EXPECT_EQ(viewer().shownImage().pixelColor(200, 100), QColor(0xd0, 0x20, 0x20));
    viewer().setKind(PictureKind::ELEVATION);
    const QColor top = viewer().shownImage().pixelColor(200, 100);
    EXPECT_EQ(top.red(), top.blue());
    EXPECT_GT(top.red(), 240);
    viewer().setKind(PictureKind::NORMALS);
    // Left of the middle the surface faces left, so red is low.
    EXPECT_LT(viewer().shownImage().pixelColor(200 - 72, 100).red(), 120);
    EXPECT_GT(viewer().shownImage().pixelColor(200, 100).blue(), 240);
}

TEST_F(ViewerTest, ShowsSmallSpritesPixelByPixelAndOtherDrawingsSmooth)
{
    const auto openBitmap = [this](const QSize& size) {
        QImage sprite(size, QImage::Format_RGBA8888);
        sprite.fill(Qt::red);
        const QString file = folder.filePath(QStringLiteral("sprite%1.png").arg(size.width()));
        ASSERT_TRUE(sprite.save(file));
        drop({file});
        ASSERT_TRUE(waitForPicture());
    };
    const auto size = [this] { return window->renderService().current()->size; };
    openBitmap(QSize(129, 129));
    EXPECT_EQ(size(), QSize(kSide, kSide));
    openBitmap(QSize(96, 128));
    EXPECT_EQ(size(), QSize(96, 128));
    openDisc();
    EXPECT_EQ(size(), QSize(1920, 960)) << "vectors have no pixels";
}

TEST_F(ViewerTest, ShowsDrawingsInTheirOwnSizeWhereAPersonChoseThat)
{
    const auto choose = [this](const QString& text) {
        for (QAction* const action : window->findChildren<QAction*>())
            if (action->text().remove(QLatin1Char('&')) == text)
                return action->trigger();
        ADD_FAILURE() << "no " << text.toStdString();
    };
    const auto size = [this] { return window->renderService().current()->size; };
    openDisc();
    EXPECT_EQ(size(), QSize(kSide, kSide / 2));
    choose(QStringLiteral("The Drawing's Own"));
    ASSERT_TRUE(waitForPicture());
    EXPECT_EQ(size(), QSize(200, 100));
    // The next drawing, in the next session, too.
    QImage sprite(24, 32, QImage::Format_RGBA8888);
    sprite.fill(Qt::red);
    ASSERT_TRUE(sprite.save(folder.filePath(QStringLiteral("sprite.png"))));
    drop({folder.filePath(QStringLiteral("sprite.png"))});
    ASSERT_TRUE(waitForPicture());
    EXPECT_EQ(size(), QSize(24, 32));
    renew();
    openDisc();
    EXPECT_EQ(size(), QSize(200, 100));
    choose(QStringLiteral("640 pixels"));
    ASSERT_TRUE(waitForPicture());
    EXPECT_EQ(size(), QSize(640, 320));
}

TEST_F(ViewerTest, EveryActionHasAToolTipAndNoKeyIsTakenTwice)
{
    QSet<QString> keys;
    for (const QAction* const action : window->findChildren<QAction*>(Qt::FindDirectChildrenOnly)) {
        if (action->text().isEmpty() || action->isSeparator())
            continue;
        EXPECT_FALSE(action->toolTip().isEmpty()) << qPrintable(action->text());
        const QString key = action->shortcut().toString();
        EXPECT_TRUE(key.isEmpty() || !keys.contains(key)) << qPrintable(key);
        keys.insert(key);
    }
    EXPECT_GT(keys.size(), 15);
}

} // namespace
