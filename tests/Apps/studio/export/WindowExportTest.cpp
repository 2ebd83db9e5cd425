// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Exports that the window's own actions begin, and their repetition.
#include "Apps/studio/export/ExportTesting.h"

#include "QuarvelImageIO/IIO_PictureFile.h"
#include "studio/export/ExportPlan.h"

#include <QStatusBar>
#include <QTimer>

namespace {

// The dialog that the window's own action opens.
class WindowExportTest : public studio_testing::ExportDialogFixture
{
protected:
    // Ctrl+E, Enter, and the dialog is closed when all is written.
    void exportByKeys()
    {
        auto* const timer = new QTimer(window.get());
        QObject::connect(timer, &QTimer::timeout, timer, [timer, begun = false]() mutable {
            auto* const open = qobject_cast<ExportDialog*>(QApplication::activeModalWidget());
            if (!open || open->isRunning())
                return;
            if (!std::exchange(begun, true)) {
                QTest::keyClick(open, Qt::Key_Return);
                return;
            }
            timer->deleteLater();
            timer->stop();
            open->close();
        });
        timer->start(10);
        actionNamed(QStringLiteral("Export Frames..."))->trigger();
    }
};

TEST_F(WindowExportTest, WritesTheMapBesideTheDrawingWithTwoKeys)
{
    openDisc();
    exportByKeys();
    EXPECT_TRUE(QFileInfo::exists(folder.filePath(QStringLiteral("disc_n.png"))));
}

TEST_F(WindowExportTest, AnotherEnterClosesTheDialogAndAsksNothing)
{
    openDisc();
    int enters = 0;
    bool isPressing = false;
    QTimer keys;
    QObject::connect(&keys, &QTimer::timeout, &keys, [&enters, &isPressing] {
        QWidget* const open = QApplication::activeModalWidget();
        auto* const exporting = qobject_cast<ExportDialog*>(open);
        if (open && (!exporting || (enters == 2 && !isPressing))) {
            ADD_FAILURE() << "still open, or asked";
            open->close();
            return;
        }
        if (!exporting || isPressing || exporting->isRunning() || !exporting->isActiveWindow())
            return;
        ++enters;
        isPressing = true;
        // Not from within the timer, which would not answer questions meanwhile.
        QTimer::singleShot(0, exporting, [exporting, &isPressing] {
            QTest::keyClick(exporting->windowHandle(), Qt::Key_Return);
            isPressing = false;
        });
    });
    keys.start(10);
    actionNamed(QStringLiteral("Export Frames..."))->trigger();
    EXPECT_EQ(enters, 2);
    EXPECT_TRUE(QFileInfo::exists(folder.filePath(QStringLiteral("disc_n.png"))));
}

TEST_F(WindowExportTest, RepeatsWithTheSceneAsItIsNow)
{
    openDisc();
    exportByKeys();
    const QByteArray before = bytesOf(QStringLiteral("disc_n.png"));
    document().scene().setFrameHeight(720.0);
    ASSERT_TRUE(QFile::remove(folder.filePath(QStringLiteral("disc_n.png"))));
    QAction* const repeat = actionNamed(QStringLiteral("Repeat Last Export"));
    EXPECT_EQ(repeat->shortcut(), QKeySequence(QStringLiteral("Ctrl+Shift+E")));
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get(), studio_testing::kPatience));
    QTest::keyClick(&viewer(), Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_TRUE(studio_testing::waitUntil([&] {
        return window->statusBar()->currentMessage().contains(QStringLiteral("1 picture"));
    })) << window->messages().text().toStdString();
    const auto picture = IIO_read(folder.filePath(QStringLiteral("disc_n.png")));
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->dataWindow().height(), 200);
    EXPECT_NE(bytesOf(QStringLiteral("disc_n.png")), before);
    EXPECT_EQ(asked, QString());
}

TEST_F(WindowExportTest, RepeatsAtTheDrawingsOwnSizeAfterThatChanged)
{
    openDisc();
    exportByKeys();
    write(QStringLiteral("disc.svg"), QByteArray(studio_testing::kDisc).replace("width=\"200\"", "width=\"300\""));
    ASSERT_TRUE(studio_testing::waitUntil([this] { return ownWidth(document().scene()) == 300; }));
    actionNamed(QStringLiteral("Repeat Last Export"))->trigger();
    ASSERT_TRUE(studio_testing::waitUntil([&] {
        return window->statusBar()->currentMessage().contains(QStringLiteral("1 picture"));
    })) << window->messages().text().toStdString();
    const auto picture = IIO_read(folder.filePath(QStringLiteral("disc_n.png")));
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->dataWindow().width(), 300);
}

TEST_F(WindowExportTest, HasTheSizeOfTheFirstDrawingAfterAnotherOneWasAdded)
{
    openDisc();
    window->sources().add({write(QStringLiteral("wide.svg"),
                                 QByteArray(studio_testing::kDisc).replace("width=\"200\"", "width=\"500\""))});
    ASSERT_TRUE(studio_testing::waitUntil([this] { return window->sources().all().size() == 2U; }));
    EXPECT_EQ(ownWidth(document().scene()), 200);
}

TEST_F(WindowExportTest, RunsOneRepetitionAtATime)
{
    openDisc();
    exportByKeys();
    QAction* const repeat = actionNamed(QStringLiteral("Repeat Last Export"));
    repeat->trigger();
    EXPECT_FALSE(repeat->isEnabled());
    ASSERT_TRUE(studio_testing::waitUntil([&] { return !window->statusBar()->currentMessage().isEmpty(); }));
    EXPECT_TRUE(repeat->isEnabled());
    EXPECT_TRUE(bytesOf(QStringLiteral("disc_n.png")).startsWith("\x89PNG"));
}

TEST_F(WindowExportTest, OpensTheDialogWhereNothingWasExportedYet)
{
    openDisc();
    bool opened = false;
    auto* const timer = new QTimer(window.get());
    QObject::connect(timer, &QTimer::timeout, timer, [&opened, timer] {
        if (auto* const open = qobject_cast<ExportDialog*>(QApplication::activeModalWidget())) {
            opened = true;
            timer->stop();
            open->close();
        }
    });
    timer->start(10);
    actionNamed(QStringLiteral("Repeat Last Export"))->trigger();
    EXPECT_TRUE(opened);
}

} // namespace
