// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// From a flat drawing to its normal map in six actions, none of them a search: open, click a part, pull its bevel, move
// the light, ask for the export, confirm it.
#include "Apps/studio/objects/ObjectsTesting.h"
#include "application/Hands.h"

#include "QuarvelImageIO/IIO_PictureFile.h"
#include "studio/export/ExportDialog.h"

namespace {

/// A yellow triangle on a sheet of 210 x 297 mm, which nobody here drew.
const QString kDrawing = QStringLiteral(REAL_DRAWING);
constexpr QSize kNaturalSize{794, 1123};
constexpr QPointF kInTriangle{200.0, 600.0};

class SixActions : public studio_testing::ObjectsTest
{
protected:
    QString drawing() const { return folder.filePath(QStringLiteral("danger.svg")); }
    QString map() const { return folder.filePath(QStringLiteral("danger_n.png")); }
};

TEST_F(SixActions, MakeARoundedMapOfADrawing)
{
    ASSERT_TRUE(QFile::copy(kDrawing, drawing())) << "the Debian package openclipart-svg is not installed";
    QCursor::setPos(0, 0);
    window->setGeometry(20, 20, 1500, 940);
    ASSERT_TRUE(hands::waitForWindow(*window));

    // 1. Open the drawing.
    drop({drawing()});
    ASSERT_TRUE(waitForPicture()) << qPrintable(window->messages().text());
    const QSize shown = window->renderService().current()->fullSize;
    const double scale = static_cast<double>(shown.width()) / kNaturalSize.width();

    // 2. Click the part.
    hands::click(viewer(), inView(kInTriangle * scale));
    ASSERT_EQ(window->objects().selected().size(), 1U);
    const double bevel = window->objects().selected().front().values.bevel;

    // 3. Round it.
    const QPoint handle = window->hands().handles().place(ObjectHandle::BEVEL).toPoint();
    hands::drag(viewer(), handle, handle - QPoint(60, 0));
    QCoreApplication::processEvents();
    EXPECT_GT(window->objects().selected().front().values.bevel, bevel);

    // 4. Move the light.
    const QPoint light = viewer().lightHandles().front().toPoint();
    hands::drag(viewer(), light, light + QPoint(80, 30));
    EXPECT_EQ(viewer().lightHandles().front().toPoint(), light + QPoint(80, 30));
    EXPECT_EQ(document().commands().undoNames().size(), 2);

    // 5. and 6. Ask for the export, and confirm what it proposes.
    hands::onceInFront([](QWidget& front) {
        auto* const dialog = qobject_cast<ExportDialog*>(&front);
        ASSERT_NE(dialog, nullptr);
        ASSERT_TRUE(hands::waitForWindow(*dialog));
        hands::press(*dialog, Qt::Key_Return);
        ASSERT_TRUE(studio_testing::waitUntil([&] { return !dialog->isRunning(); }));
        dialog->close();
    });
    hands::press(*window, Qt::Key_E, Qt::ControlModifier);
    const auto written = IIO_read(map());
    ASSERT_TRUE(written);
    EXPECT_EQ(written->dataWindow().width(), kNaturalSize.width());
    EXPECT_EQ(written->dataWindow().height(), kNaturalSize.height());
    EXPECT_EQ(asked, QString());
}

} // namespace
