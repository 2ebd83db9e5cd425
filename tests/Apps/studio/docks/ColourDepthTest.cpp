// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The depths of colours, edited in the window: the slider follows the mouse and the picture the slider.
#include "Apps/studio/objects/ObjectsTesting.h"

#include "studio/docks/scene/ColourDepthView.h"
#include "studio/docks/scene/PropertiesView.h"
#include "studio/objects/ValueField.h"

#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTableView>
#include <QTableWidget>
#include <QWheelEvent>

namespace {

constexpr int kName = ColourDepthModel::NAME;
constexpr int kDepth = ColourDepthModel::DEPTH;

// An eye in a broad face, and a hat.
const char* const kFace = R"(<svg xmlns="http://www.w3.org/2000/svg" width="200" height="100"
     xmlns:inkscape="http://www.inkscape.org/namespaces/inkscape"><g inkscape:groupmode="layer" inkscape:label="Face">
  <rect x="20" y="10" width="160" height="80" fill="#3060c0"/><rect x="60" y="30" width="20" height="20" fill="#d0a020"/>
</g><g inkscape:groupmode="layer" inkscape:label="Hat"><rect x="20" y="2" width="160" height="6" fill="#208020"/></g>
</svg>)";

// The body's colour is #3060c0, the head's #d0a020; both are added fully to begin with.
class ColourDepthTest : public studio_testing::ObjectsTest
{
protected:
    void openDepths()
    {
        openParts();
        MO_Module& node = *object("Head").node;
        std::vector<NormalMapColour> table;
        for (const auto& colour : document().scene().palettes().front()->colors())
            table.push_back({colour->GetColorId(), 255, colour->GetColorName().ToQString()});
        document().execute(NormalMapNode(node).coloursCmd(table));
        document().commands().clear();
        window->findChild<QDockWidget*>(QStringLiteral("ColourDepthDock"))->raise();
        QCoreApplication::processEvents();
        before = document().scene().toXml();
    }
    ColourDepthView& view() const { return *window->findChild<ColourDepthView*>(); }
    QTableView& table() const { return view().table(); }
    QModelIndex row(const char* colour, int column = kDepth) const
    {
        const QAbstractItemModel& model = *table().model();
        for (int i = 0; i < model.rowCount(); ++i)
            if (model.index(i, kName).data().toString() == QLatin1String(colour))
                return model.index(i, column);
        ADD_FAILURE() << "no colour " << colour;
        return {};
    }
    QString depth(const char* colour) const { return row(colour).data().toString(); }
    void mouse(QEvent::Type type, const QPoint& place, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWidget& viewport = *table().viewport();
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        const Qt::MouseButtons down =
            type == QEvent::MouseButtonRelease ? Qt::MouseButtons(Qt::NoButton) : Qt::MouseButtons(Qt::LeftButton);
        QMouseEvent event(type, place, viewport.mapToGlobal(place), button, down, modifiers);
        QCoreApplication::sendEvent(&viewport, &event);
    }
    void press(const char* colour, int depth)
    {
        mouse(QEvent::MouseButtonPress, view().sliderPlace(row(colour), depth));
    }
    void moveTo(const char* colour, int depth) { mouse(QEvent::MouseMove, view().sliderPlace(row(colour), depth)); }
    void release(const char* colour, int depth)
    {
        mouse(QEvent::MouseButtonRelease, view().sliderPlace(row(colour), depth));
        QCoreApplication::processEvents();
    }
    void clickName(const char* colour, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        const QRect cell = table().visualRect(row(colour, kName));
        QTest::mouseClick(table().viewport(), Qt::LeftButton, modifiers, cell.center() + QPoint(cell.width() / 4, 0));
    }
    /// A slider may have fewer pixels than there are depths.
    static constexpr int kReach = 2;

    static constexpr const char* kBlue = "#3060c0";
    static constexpr const char* kGold = "#d0a020";
    QString before;
};

TEST_F(ColourDepthTest, ShowsEveryColourWithItsSwatchAndItsDepth)
{
    openDepths();
    ASSERT_EQ(table().model()->rowCount(), 2);
    EXPECT_EQ(depth(kBlue), QStringLiteral("255"));
    EXPECT_EQ(row(kBlue, kName).data(Qt::CheckStateRole).toInt(), Qt::Checked);
    const QImage swatch = row(kGold, kName).data(Qt::DecorationRole).value<QIcon>().pixmap(22, 22).toImage();
    EXPECT_EQ(swatch.pixelColor(swatch.width() / 2, swatch.height() / 2), QColor(0xd0, 0xa0, 0x20));
}

TEST_F(ColourDepthTest, ThePictureFollowsWhileTheSliderIsDragged)
{
    openDepths();
    const RenderedFramePtr old = window->renderService().current();
    press(kGold, 255);
    moveTo(kGold, 120);
    // The button is still down.
    EXPECT_NEAR(depth(kGold).toInt(), 120, kReach);
    EXPECT_TRUE(studio_testing::waitUntil([&] { return window->renderService().current() != old; }));
    moveTo(kGold, 40);
    release(kGold, 40);
    EXPECT_NEAR(depth(kGold).toInt(), 40, kReach);
    EXPECT_EQ(depth(kBlue), QStringLiteral("255"));
}

TEST_F(ColourDepthTest, SaysThatABevelIsTooWideForTheDepthOfANarrowPartAndWhichOneWouldDo)
{
    // An eye of 20 x 20 in a picture of 200 is 72 scene units broad: well seen with a bevel of 144.
    drop({write(QStringLiteral("face.svg"), kFace)});
    ASSERT_TRUE(waitForPicture());
    window->findChild<QDockWidget*>(QStringLiteral("ColourDepthDock"))->raise();
    QCoreApplication::processEvents();
    click(QPointF(60.5, 100.5));
    ValueField& bevel = bar().field(ObjectValue::BEVEL);
    bevel.setValue(400.0);
    press(kGold, 0);
    release(kGold, 0);
    const auto* const hint = view().findChild<QLabel*>(QStringLiteral("ColourDepthsHint"));
    ASSERT_TRUE(studio_testing::waitUntil([&] { return hint->isVisible(); }));
    EXPECT_TRUE(hint->text().contains(QStringLiteral("bevel of Face, 400, is too wide"))) << qPrintable(hint->text());
    EXPECT_TRUE(hint->text().contains(QStringLiteral("about 144"))) << qPrintable(hint->text());
    bevel.setValue(144.0);
    EXPECT_TRUE(studio_testing::waitUntil([&] { return !hint->isVisible(); }));
    // The face itself is broad enough for any of these bevels.
    bevel.setValue(400.0);
    ASSERT_TRUE(studio_testing::waitUntil([&] { return hint->isVisible(); }));
    press(kBlue, 100);
    release(kBlue, 100);
    EXPECT_TRUE(studio_testing::waitUntil([&] { return !hint->isVisible(); }));
}

TEST_F(ColourDepthTest, AButtonLowersTheBevelThatIsTooWideForADepth)
{
    // An eye of 20 x 20 in a picture of 200 is 72 scene units broad: well seen with a bevel of 144.
    drop({write(QStringLiteral("face.svg"), kFace)});
    ASSERT_TRUE(waitForPicture());
    window->findChild<QDockWidget*>(QStringLiteral("ColourDepthDock"))->raise();
    QCoreApplication::processEvents();
    click(QPointF(60.5, 100.5));
    bar().field(ObjectValue::BEVEL).setValue(400.0);
    press(kGold, 0);
    release(kGold, 0);
    auto* const button = view().findChild<QPushButton*>(QStringLiteral("ColourDepthsLowerBevel"));
    ASSERT_TRUE(studio_testing::waitUntil([&] { return button->isVisible(); }));
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(valuesOf("Face").bevel, 144.0);
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Bevel of Face 400 \u2192 144"));
    EXPECT_TRUE(studio_testing::waitUntil([&] { return !button->isVisible(); }));
    document().commands().undo();
    EXPECT_EQ(valuesOf("Face").bevel, 400.0);
}

TEST_F(ColourDepthTest, SaysThatTheOnlyColourOfAnObjectHasNothingToLieDeeperThan)
{
    openDepths();
    press(kGold, 40);
    release(kGold, 40);
    const auto* const hint = view().findChild<QLabel*>(QStringLiteral("ColourDepthsHint"));
    ASSERT_TRUE(studio_testing::waitUntil([&] { return hint->isVisible(); }));
    EXPECT_TRUE(hint->text().contains(QStringLiteral("Head has no other colour"))) << qPrintable(hint->text());
}

TEST_F(ColourDepthTest, ADragIsOneStepThatSaysWhatChangedAndUndoRestoresTheVeryValue)
{
    openDepths();
    press(kGold, 255);
    moveTo(kGold, 120);
    moveTo(kGold, 0);
    release(kGold, 0);
    EXPECT_EQ(document().commands().undoNames(), QStringList(QStringLiteral("Depth of \"#d0a020\" 255 \u2192 0")));
    document().undo();
    EXPECT_EQ(document().scene().toXml(), before);
    EXPECT_EQ(depth(kGold), QStringLiteral("255"));
}

TEST_F(ColourDepthTest, ADragThatLeavesTheRowStaysWithItsColour)
{
    openDepths();
    press(kBlue, 255);
    moveTo(kGold, 60);
    release(kGold, 60);
    EXPECT_NEAR(depth(kBlue).toInt(), 60, kReach);
    EXPECT_EQ(depth(kGold), QStringLiteral("255"));
}

TEST_F(ColourDepthTest, AClickBesideTheHandleBringsItThere)
{
    openDepths();
    press(kGold, 30);
    release(kGold, 30);
    EXPECT_NEAR(depth(kGold).toInt(), 30, kReach);
}

TEST_F(ColourDepthTest, SelectedColoursChangeTogether)
{
    openDepths();
    clickName(kBlue);
    clickName(kGold, Qt::ControlModifier);
    press(kBlue, 0);
    release(kBlue, 0);
    EXPECT_EQ(depth(kBlue), QStringLiteral("0"));
    EXPECT_EQ(depth(kGold), QStringLiteral("0"));
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Depth of 2 colours 255 \u2192 0"));
    document().undo();
    EXPECT_EQ(document().scene().toXml(), before);
}

TEST_F(ColourDepthTest, TheExactNumberIsTyped)
{
    openDepths();
    const QRect cell = table().visualRect(row(kGold));
    const QPoint number(cell.right() - 12, cell.center().y());
    QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, number);
    QTest::mouseDClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, number);
    auto* const field = table().findChild<QSpinBox*>();
    ASSERT_NE(field, nullptr);
    field->selectAll();
    QTest::keyClicks(field, QStringLiteral("97"));
    QTest::keyClick(field, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(depth(kGold), QStringLiteral("97"));
    EXPECT_EQ(document().commands().undoNames().size(), 1);
}

TEST_F(ColourDepthTest, TheArrowKeysMoveTheCurrentRowsHandle)
{
    openDepths();
    clickName(kGold);
    QTest::keyClick(&table(), Qt::Key_Left);
    EXPECT_EQ(depth(kGold), QStringLiteral("254"));
    QTest::keyClick(&table(), Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(depth(kGold), QStringLiteral("238"));
    QTest::keyClick(&table(), Qt::Key_Right);
    EXPECT_EQ(depth(kGold), QStringLiteral("239"));
    EXPECT_EQ(document().commands().undoNames().size(), 3);
}

TEST_F(ColourDepthTest, TheBoxTakesTheColourOutOfTheTableAndPutsItBackFullyAdded)
{
    openDepths();
    QAbstractItemModel& model = *table().model();
    ASSERT_TRUE(model.setData(row(kGold, kName), Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_EQ(depth(kGold), QStringLiteral("\u2013"));
    MO_Module& node = *object("Head").node;
    ASSERT_EQ(NormalMapNode(node).colours().size(), 1U);
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Depth of \"#d0a020\" 255 \u2192 none"));
    ASSERT_TRUE(model.setData(row(kGold, kName), Qt::Checked, Qt::CheckStateRole));
    EXPECT_EQ(depth(kGold), QStringLiteral("255"));
}

TEST_F(ColourDepthTest, TheWheelChangesNothing)
{
    openDepths();
    const QPoint place = view().sliderPlace(row(kGold), 255);
    QWheelEvent wheel(place, table().viewport()->mapToGlobal(place), QPoint(), QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(table().viewport(), &wheel);
    EXPECT_EQ(document().scene().toXml(), before);
    EXPECT_FALSE(document().commands().canUndo());
}

TEST_F(ColourDepthTest, TheSearchLeavesTheColoursThatHaveTheWords)
{
    openDepths();
    QTest::keyClicks(&view().search(), QStringLiteral("D0a"));
    ASSERT_EQ(table().model()->rowCount(), 1);
    EXPECT_EQ(depth(kGold), QStringLiteral("255"));
}

TEST_F(ColourDepthTest, AColourIsPickedByAClickInThePicture)
{
    openDepths();
    click(kBody);
    QTest::mouseClick(&view().pickButton(), Qt::LeftButton);
    EXPECT_EQ(viewer().cursor().shape(), Qt::ArrowCursor);
    hover(kHead);
    EXPECT_EQ(viewer().cursor().shape(), Qt::CrossCursor);
    click(kHead);
    EXPECT_EQ(table().currentIndex().row(), row(kGold).row());
    EXPECT_FALSE(view().pickButton().isChecked());
    // The object that was selected still is, and the next click selects objects again.
    EXPECT_EQ(selected(), QStringList({"Body"}));
    click(kHead);
    EXPECT_EQ(selected(), QStringList({"Head"}));
}

TEST_F(ColourDepthTest, EscapeGivesPickingUp)
{
    openDepths();
    QTest::mouseClick(&view().pickButton(), Qt::LeftButton);
    QTest::keyClick(&viewer(), Qt::Key_Escape);
    EXPECT_FALSE(view().pickButton().isChecked());
    click(kHead);
    EXPECT_EQ(selected(), QStringList({"Head"}));
}

TEST_F(ColourDepthTest, ThePropertiesHaveNoSecondEditorOfTheTable)
{
    openDepths();
    document().setSelection({object("Head").node});
    QCoreApplication::processEvents();
    EXPECT_EQ(window->findChild<PropertiesView*>()->findChild<QTableWidget*>(QStringLiteral("colorList")), nullptr);
}

} // namespace
