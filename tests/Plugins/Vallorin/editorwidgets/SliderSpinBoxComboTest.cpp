// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The slider and the spin box of a colour's row.
#include "editors/SliderSpinBoxCombo.h"

#include <QHBoxLayout>
#include <QMetaMethod>
#include <QSlider>
#include <QSpinBox>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class Reports : public SliderSpinBoxCombo::Callback
{
public:
    void valueChanged(int id, int value) override { heard.emplace_back(id, value); }
    std::vector<std::pair<int, int>> heard;
};

/// A control on the display.
struct Control
{
    explicit Control(int value, SliderSpinBoxCombo::Callback* callback, int id = 7) : combo(callback, id, value)
    {
        combo.resize(400, 36);
        combo.show();
        QCoreApplication::processEvents();
    }
    QSlider* slider() const { return combo.findChild<QSlider*>(); }
    QSpinBox* spinBox() const { return combo.findChild<QSpinBox*>(); }

    QPoint handle() const
    {
        QStyleOptionSlider option;
        option.initFrom(slider());
        option.subControls = QStyle::SC_All;
        option.orientation = slider()->orientation();
        option.minimum = slider()->minimum();
        option.maximum = slider()->maximum();
        option.sliderPosition = slider()->sliderPosition();
        option.sliderValue = slider()->value();
        option.tickPosition = slider()->tickPosition();
        option.tickInterval = slider()->tickInterval();
        return slider()
            ->style()
            ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, slider())
            .center();
    }
    /// Drags the handle with the mouse to the far left or right and releases it.
    void dragTo(bool right)
    {
        const QPoint from = handle();
        const QPoint to(right ? slider()->width() + 50 : -50, from.y());
        QTest::mousePress(slider(), Qt::LeftButton, Qt::NoModifier, from);
        QTest::mouseMove(slider(), (from + to) / 2);
        QTest::mouseMove(slider(), to);
    }
    void letGo() { QTest::mouseRelease(slider(), Qt::LeftButton, Qt::NoModifier, slider()->rect().center()); }
    void type(const QString& text)
    {
        spinBox()->selectAll();
        QTest::keyClicks(spinBox(), text);
    }

    SliderSpinBoxCombo combo;
};

/// The values that a control shows for a level, in the slider and in the spin box.
std::pair<int, int> shown(int level)
{
    const Control control(level, nullptr);
    return {control.slider()->value(), control.spinBox()->value()};
}

TEST(SliderSpinBoxCombo, ShowsALevelInPercentTruncated)
{
    EXPECT_THAT(shown(255), Pair(100, 100));
    EXPECT_THAT(shown(0), Pair(0, 0));
    EXPECT_THAT(shown(254), Pair(99, 99));
    EXPECT_THAT(shown(128), Pair(50, 50));
}

TEST(SliderSpinBoxCombo, ShowsLevelsOutsideTheRangeAsItsEnds)
{
    EXPECT_THAT(shown(300), Pair(100, 100));
    EXPECT_THAT(shown(-1), Pair(0, 0));
    EXPECT_THAT(shown(std::numeric_limits<int>::max()), Pair(100, 100));
    EXPECT_THAT(shown(std::numeric_limits<int>::min()), Pair(0, 0));
}

TEST(SliderSpinBoxCombo, ReportsTheLevelOfAPercentageTruncatedWhenTheSliderIsLetGo)
{
    Reports reports;
    Control control(128, &reports);
    for (const int percent : {100, 1, 0, 50}) {
        control.slider()->setSliderDown(true);
        control.slider()->setSliderPosition(percent);
        control.slider()->setSliderDown(false);
    }
    EXPECT_THAT(reports.heard, ElementsAre(Pair(7, 255), Pair(7, 2), Pair(7, 0), Pair(7, 127)));
}

TEST(SliderSpinBoxCombo, ReportsADragOfTheMouseOnceAtItsEnd)
{
    Reports reports;
    Control control(128, &reports);
    control.dragTo(true);
    EXPECT_EQ(control.spinBox()->value(), 100) << "the spin box goes along";
    EXPECT_THAT(reports.heard, IsEmpty());
    control.letGo();
    ASSERT_EQ(reports.heard.size(), 1U);
    EXPECT_EQ(reports.heard[0].second, control.slider()->value() * 255 / 100);
}

TEST(SliderSpinBoxCombo, AfterADragTheSpinBoxMovesAndReportsNothing)
{
    Reports reports;
    Control control(0, &reports);
    control.dragTo(true);
    control.letGo();
    const std::size_t before = reports.heard.size();
    const int slider = control.slider()->value();
    control.type(QStringLiteral("12"));
    EXPECT_EQ(control.spinBox()->value(), 12) << "it shows what is typed";
    EXPECT_EQ(control.slider()->value(), slider);
    EXPECT_EQ(reports.heard.size(), before);
}

TEST(SliderSpinBoxCombo, ReportsWhatIsTypedAndMovesTheSlider)
{
    Reports reports;
    Control control(0, &reports, 3);
    control.type(QStringLiteral("80"));
    EXPECT_EQ(control.slider()->value(), 80);
    EXPECT_THAT(reports.heard, ElementsAre(Pair(3, 20), Pair(3, 204))) << "8 percent, then 80";
    control.type(QStringLiteral("80"));
    EXPECT_EQ(control.slider()->value(), 80);
}

TEST(SliderSpinBoxCombo, SliderMovedByKeysReportsNothing)
{
    Reports reports;
    Control control(128, &reports);
    QTest::keyClick(control.slider(), Qt::Key_Right);
    EXPECT_EQ(control.slider()->value(), 51);
    EXPECT_EQ(control.spinBox()->value(), 50);
    EXPECT_THAT(reports.heard, IsEmpty());
}

TEST(SliderSpinBoxCombo, NeedsNoCallback)
{
    Control control(128, nullptr);
    control.type(QStringLiteral("9"));
    control.dragTo(true);
    control.letGo();
    EXPECT_EQ(control.slider()->maximum(), 100);
}

TEST(SliderSpinBoxCombo, IsLaidOutAsItsRowNeeds)
{
    const Control control(0, nullptr);
    EXPECT_EQ(control.combo.parent(), nullptr);
    const auto* const layout = qobject_cast<QHBoxLayout*>(control.combo.layout());
    ASSERT_NE(layout, nullptr);
    EXPECT_EQ(layout->contentsMargins(), QMargins(2, 2, 2, 2));
    EXPECT_EQ(layout->itemAt(0)->widget(), control.slider());
    EXPECT_EQ(layout->itemAt(1)->widget(), control.spinBox());
    EXPECT_EQ(control.slider()->orientation(), Qt::Horizontal);
    EXPECT_EQ(control.slider()->tickPosition(), QSlider::TicksBothSides);
    EXPECT_EQ(control.slider()->tickInterval(), 20);
    EXPECT_EQ(control.spinBox()->minimum(), 0);
    EXPECT_EQ(control.spinBox()->maximum(), 100);
}

TEST(SliderSpinBoxCombo, HasThreeSlotsInOrderAndNoSignals)
{
    const QMetaObject& meta = SliderSpinBoxCombo::staticMetaObject;
    EXPECT_STREQ(meta.className(), "SliderSpinBoxCombo");
    ASSERT_EQ(meta.methodCount() - meta.methodOffset(), 3);
    EXPECT_EQ(meta.method(meta.methodOffset()).methodSignature(), "onSliderMoved(int)");
    EXPECT_EQ(meta.method(meta.methodOffset() + 1).methodSignature(), "onSliderReleased()");
    EXPECT_EQ(meta.method(meta.methodOffset() + 2).methodSignature(), "onSpinBoxChanged(int)");
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        EXPECT_EQ(meta.method(i).methodType(), QMetaMethod::Slot);
}

} // namespace
