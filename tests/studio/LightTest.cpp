// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Moving light: the picture answers with what the lighting computes, and nothing is rendered for it.
#include "studio/WindowTesting.h"

#include "studio/preview/FrameImages.h"

#include <QSpinBox>
#include <QToolButton>
#include <QWheelEvent>

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
        QTest::mouseMove(&viewer(), (from + to.toPoint()) / 2);
        QTest::mouseMove(&viewer(), to.toPoint());
        QTest::mouseRelease(&viewer(), Qt::LeftButton, Qt::NoModifier, to.toPoint());
    }
};

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
                        .height = std::atan2(0.7071, distance) * kDegrees,
                        .colour = {1.0F, 1.0F, 1.0F}}};
    expected.ambient = {0.3F, 0.3F, 0.3F};
    const QByteArray after = bytesOf(viewer().shownImage());
    EXPECT_NE(after, before);
    expectSame(after, computed(expected));
    QTest::qWait(400);
    EXPECT_EQ(window->renderService().renderCount(), renders);
    EXPECT_FALSE(window->renderService().isRendering());
    EXPECT_FALSE(document().commands().canUndo());
}

TEST_F(LightTest, ALightFromTheRightBrightensTheRightSide)
{
    openDisc();
    dragLight(viewer().transform().toView(QPointF(320, 100)));
    const QImage lit = viewer().shownImage();
    EXPECT_GT(lit.pixelColor(200 + 72, 100).red(), lit.pixelColor(200 - 72, 100).red());
}

TEST_F(LightTest, PressingBesideTheLightBringsItThere)
{
    openDisc();
    const QPointF place = viewer().transform().toView(QPointF(200, 150));
    QTest::mouseClick(&viewer(), Qt::LeftButton, Qt::NoModifier, place.toPoint());
    EXPECT_NEAR(light().place.x(), 0.0, 0.02);
    EXPECT_NEAR(light().place.y(), -0.5, 0.02);
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
    window->lights().setHighlight(0.6);
    expectSame(bytesOf(viewer().shownImage()), computed(window->lights().lighting()));
}

TEST_F(LightTest, OneLightAlwaysStays)
{
    window->lights().remove(0);
    EXPECT_EQ(window->lights().count(), 1);
}

TEST_F(LightTest, LightsAreThereAgainAfterANewStart)
{
    window->lights().setLight(0,
                              {.place = {0.25, -0.5}, .height = 1.5, .colour = QColor(10, 20, 30), .intensity = 2.0});
    window->lights().setAmbient(0.125);
    window->lights().setHighlight(0.5);
    renew();
    EXPECT_EQ(light(),
              (StudioLight{.place = {0.25, -0.5}, .height = 1.5, .colour = QColor(10, 20, 30), .intensity = 2.0}));
    EXPECT_EQ(window->lights().ambient(), 0.125);
    EXPECT_EQ(window->lights().highlight(), 0.5);
}

TEST_F(LightTest, SettingsThatMakeNoSenseAreHeldToWhatDoes)
{
    {
        QSettings settings;
        settings.setValue(QStringLiteral("lights/ambient"), QStringLiteral("nan"));
        settings.beginGroup(QStringLiteral("lights"));
        settings.beginWriteArray(QStringLiteral("light"), 1);
        settings.setArrayIndex(0);
        settings.setValue(QStringLiteral("x"), QStringLiteral("inf"));
        settings.setValue(QStringLiteral("height"), -3.0);
        settings.setValue(QStringLiteral("colour"), QStringLiteral("no colour"));
        settings.setValue(QStringLiteral("intensity"), 1e9);
        settings.endArray();
        settings.endGroup();
    }
    LightModel lights;
    QSettings settings;
    lights.load(settings);
    ASSERT_EQ(lights.count(), 1);
    EXPECT_EQ(lights.lights()[0].place.x(), -0.5);
    EXPECT_EQ(lights.lights()[0].height, StudioLight::kLowest);
    EXPECT_EQ(lights.lights()[0].colour, QColor(255, 255, 255));
    EXPECT_EQ(lights.lights()[0].intensity, StudioLight::kBrightest);
    EXPECT_EQ(lights.ambient(), 0.3);
}

} // namespace
