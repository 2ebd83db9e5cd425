// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Exports as people make them in the window: what is proposed, what a target sets, what is written, asked, remembered
// and repeated.
#include "Apps/studio/window/WindowTesting.h"

#include "QuarvelImageIO/IIO_PictureFile.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/editing/MO_SceneCommands.h"
#include "QuarvelSceneCore/kinds/MO_CompositeModule.h"
#include "jobs/shown/NormalMapNode.h"
#include "jobs/targets/Targets.h"
#include "studio/export/ExportDialog.h"
#include "studio/export/GlossDialog.h"
#include "studio/objects/DocumentObjects.h"

#include <QAbstractSpinBox>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QImage>
#include <QLineEdit>
#include <QPainter>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QStatusBar>
#include <QTableWidget>
#include <QToolButton>

#include <algorithm>
#include <filesystem>

namespace {

class ExportDialogTest : public studio_testing::WindowTest
{
protected:
    void open()
    {
        openDisc();
        show();
    }

    /// A red disc as a bitmap of 40 x 40 pixels.
    void openSprite()
    {
        QImage sprite(40, 40, QImage::Format_RGBA8888);
        sprite.fill(Qt::transparent);
        QPainter painter(&sprite);
        painter.setBrush(Qt::red);
        painter.drawEllipse(4, 4, 32, 32);
        painter.end();
        ASSERT_TRUE(sprite.save(folder.filePath(QStringLiteral("sprite.png"))));
        drop({folder.filePath(QStringLiteral("sprite.png"))});
        ASSERT_TRUE(waitForPicture()) << qPrintable(window->messages().text());
    }

    void show()
    {
        ASSERT_TRUE(QDir().mkpath(out()));
        const QString& scene = document().folder();
        dialog = std::make_unique<ExportDialog>(
            document().scene(), ExportOrigin{QStringLiteral("disc"), out(),
                                             scene.isEmpty() ? QStringLiteral("disc") : QFileInfo(scene).fileName()});
        dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog.get()));
    }

    QString out() const { return folder.filePath(QStringLiteral("out")); }
    QStringList filesThere() const { return QDir(out()).entryList(QDir::Files | QDir::Hidden, QDir::Name); }
    QByteArray bytesOf(const QString& name) const
    {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read: ") + name.toUtf8();
    }

    template<typename Widget>
    Widget& field(const char* name) const
    {
        return *dialog->findChild<Widget*>(QString::fromLatin1(name));
    }
    void chooseTarget(const QString& title)
    {
        auto& target = field<QComboBox>("exportTarget");
        ASSERT_GE(target.findText(title), 0) << title.toStdString();
        target.setCurrentIndex(target.findText(title));
    }
    void check(const char* name, bool on)
    {
        auto& box = field<QCheckBox>(name);
        if (box.isChecked() != on)
            QTest::mouseClick(&box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box.height() / 2));
        ASSERT_EQ(box.isChecked(), on);
    }
    void checkAll()
    {
        for (const char* const name : {"exportMap", "exportElevation", "exportLit", "exportDrawing", "exportHeight",
                                       "exportOcclusion", "exportNumbers", "exportGloss"})
            check(name, true);
    }
    /// Types into a field for numbers.
    void type(const char* name, const QString& keys) const
    {
        auto& number = field<QAbstractSpinBox>(name);
        number.setFocus();
        number.selectAll();
        QTest::keyClicks(&number, keys);
    }
    /// Opens the table of colours by its button, and gives the colour with this tool tip a gloss in percent.
    void setGlossOf(const QString& colour, int percent)
    {
        QTimer::singleShot(0, dialog.get(), [&] {
            auto* const gloss = qobject_cast<GlossDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(gloss, nullptr);
            QTableWidget& table = gloss->table();
            int row = 0;
            while (row < table.rowCount() && table.item(row, GlossDialog::COLOUR)->toolTip() != colour)
                ++row;
            ASSERT_LT(row, table.rowCount());
            table.setFocus();
            table.setCurrentCell(row, GlossDialog::GLOSS);
            auto* const field = table.viewport()->findChild<QSpinBox*>();
            ASSERT_NE(field, nullptr) << "the number is typed at once";
            field->selectAll();
            QTest::keyClicks(field, QString::number(percent));
            gloss->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
        });
        QTest::mouseClick(&field<QToolButton>("exportGlossColours"), Qt::LeftButton);
    }
    /// Presses Enter where nothing must be asked.
    void pressEnterUnasked()
    {
        QTimer questions;
        QObject::connect(&questions, &QTimer::timeout, &questions, [] {
            if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                ADD_FAILURE() << "asked: " << box->text().toStdString();
                box->reject();
            }
        });
        questions.start(10);
        pressEnter();
    }
    void pressEnter() { QTest::keyClick(&field<QLineEdit>("exportFile"), Qt::Key_Return); }
    void exportAll()
    {
        pressEnter();
        ASSERT_TRUE(studio_testing::waitUntil([&] { return !dialog->isRunning(); }));
    }

    QAction* actionNamed(const QString& text) const
    {
        for (QAction* const action : window->findChildren<QAction*>())
            if (action->text().remove(QLatin1Char('&')) == text)
                return action;
        return nullptr;
    }

    std::unique_ptr<ExportDialog> dialog;
};

TEST_F(ExportDialogTest, ProposesTheDrawingsOwnSizeAndAMapForMostPrograms)
{
    open();
    const ExportChoices choices = dialog->choices();
    EXPECT_EQ(choices.width, 200);
    EXPECT_EQ(choices.form, kFormForMost);
    EXPECT_EQ(choices.pictures, QList<ExportPicture>{ExportPicture::MAP});
    EXPECT_EQ(choices.file, out() + QStringLiteral("/disc_n.png"));
}

TEST_F(ExportDialogTest, AsksForTheNodeOnlyWhereAPersonAddedOne)
{
    open();
    EXPECT_FALSE(field<QComboBox>("exportNode").isVisible());
    EXPECT_FALSE(dialog->findChild<QProgressBar*>()->isVisible()) << "nothing is on its way";
    dialog.reset();
    document().scene().root().emplace<MO_CompositeModule>().setInstanceName(QStringLiteral("Extra"));
    show();
    EXPECT_TRUE(field<QComboBox>("exportNode").isVisible());
    EXPECT_EQ(dialog->choices().node, QStringLiteral("Display"));
}

TEST_F(ExportDialogTest, SetsWhatATargetWantsUntilSomethingElseIsSet)
{
    open();
    chooseTarget(QStringLiteral("Unreal Engine"));
    ExportChoices choices = dialog->choices();
    EXPECT_EQ(choices.form, (*targetNamed(QStringLiteral("unreal")))->form);
    EXPECT_TRUE(choices.file.endsWith(QLatin1String("/disc_N.png"))) << choices.file.toStdString();
    chooseTarget(QStringLiteral("compositors"));
    EXPECT_TRUE(dialog->choices().file.endsWith(QLatin1String("/disc_n.exr")));
    chooseTarget(QStringLiteral("Phaser"));
    type("exportPad", QStringLiteral("9"));
    choices = dialog->choices();
    EXPECT_EQ(choices.form.pad, 9);
    EXPECT_EQ(choices.form.bits, 8) << "the rest stays";
    EXPECT_EQ(field<QComboBox>("exportTarget").currentText(), QStringLiteral("As set below"));
}

TEST_F(ExportDialogTest, NamesTheFileAfterTheFirstPicture)
{
    open();
    check("exportElevation", true);
    EXPECT_EQ(field<QLabel>("exportFiles").text(), QStringLiteral("disc_n.png, disc_e.png"));
    check("exportMap", false);
    EXPECT_EQ(field<QLineEdit>("exportFile").text(), QStringLiteral("disc_e.png"));
    check("exportElevation", false);
    EXPECT_FALSE(field<QPushButton>("startExport").isEnabled());
    check("exportMap", true);
    EXPECT_EQ(field<QLineEdit>("exportFile").text(), QStringLiteral("disc_n.png"));
}

TEST_F(ExportDialogTest, NamesTheFilesThatItWritesAlsoAfterATargetIsLeft)
{
    open();
    chooseTarget(QStringLiteral("Unreal Engine"));
    check("exportHeight", true);
    check("exportOcclusion", true);
    const auto named = [this] {
        QStringList names;
        for (const QString& file : dialog->choices().files())
            names << QFileInfo(file).fileName();
        return names.join(QStringLiteral(", "));
    };
    EXPECT_EQ(field<QLabel>("exportFiles").text(), named());
    type("exportPad", QStringLiteral("9"));
    EXPECT_EQ(field<QComboBox>("exportTarget").currentText(), QStringLiteral("As set below"));
    EXPECT_EQ(named(), QStringLiteral("disc_N.png, disc_height.png, disc_ao.png"));
    EXPECT_EQ(field<QLabel>("exportFiles").text(), named());
}

TEST_F(ExportDialogTest, EnterWritesTheBytesThatTheCommandLineWrites)
{
    openDisc();
    const QString scene = folder.filePath(QStringLiteral("disc.scene"));
    ASSERT_TRUE(document().save(scene));
    show();
    chooseTarget(QStringLiteral("Godot 3"));
    checkAll();
    type("exportWhite", QStringLiteral("15"));
    setGlossOf(QStringLiteral("#D02020"), 80);
    exportAll();
    EXPECT_EQ(filesThere(), (QStringList{QStringLiteral("disc_ao.png"), QStringLiteral("disc_drawing.png"),
                                         QStringLiteral("disc_e.png"), QStringLiteral("disc_height.png"),
                                         QStringLiteral("disc_lit.png"), QStringLiteral("disc_n.png"),
                                         QStringLiteral("disc_numbers.png"), QStringLiteral("disc_specular.png")}))
        << dialog->message().toStdString();

    const auto run = [&](const QStringList& words) {
        QProcess program;
        program.setWorkingDirectory(folder.path());
        program.start(QStringLiteral(QUARVEL_PROGRAM),
                      QStringList{QStringLiteral("render"), scene, QStringLiteral("--for"), QStringLiteral("godot3"),
                                  QStringLiteral("--resolution"), QStringLiteral("200"), QStringLiteral("-q")} +
                          words);
        ASSERT_TRUE(program.waitForFinished(studio_testing::kPatience));
        ASSERT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
    };
    run({QStringLiteral("-o"), QStringLiteral("n.png"), QStringLiteral("--lit"), QStringLiteral("lit.png"),
         QStringLiteral("--drawing"), QStringLiteral("drawing.png"), QStringLiteral("--height"),
         QStringLiteral("height.png"), QStringLiteral("--height-range"), QStringLiteral("15"),
         QStringLiteral("--occlusion"), QStringLiteral("ao.png"), QStringLiteral("--numbers"),
         QStringLiteral("numbers.png"), QStringLiteral("--gloss"), QStringLiteral("#d02020=0.8"),
         QStringLiteral("--gloss-file"), QStringLiteral("specular.png")});
    run({QStringLiteral("-o"), QStringLiteral("e.png"), QStringLiteral("--as"), QStringLiteral("elevation")});
    for (const char* const name : {"n", "e", "lit", "drawing", "height", "ao", "numbers", "specular"})
        EXPECT_EQ(bytesOf(QStringLiteral("out/disc_%1.png").arg(QLatin1String(name))),
                  bytesOf(QStringLiteral("%1.png").arg(QLatin1String(name))))
            << name;
}

TEST_F(ExportDialogTest, WhiteIsTheHighestPlaceOfAllFramesWhereNoHeightIsTyped)
{
    openDisc();
    ASSERT_TRUE(document().execute(MO_frameRangeCmd(document().scene(), 1, 2)));
    // The second frame is twice as high as the first.
    AT_Curve doubles;
    doubles.setKey({.frame = 1, .value = 1.0, .in = {}, .out = {}, .unknown = {}});
    doubles.setKey({.frame = 2, .value = 2.0, .in = {}, .out = {}, .unknown = {}});
    ASSERT_TRUE(NormalMapNode(*window->objects().all().front().node).elevationMultiplier()->setCurve(doubles));
    ASSERT_TRUE(waitForPicture());
    show();
    check("exportMap", false);
    check("exportHeight", true);
    EXPECT_EQ(field<QLineEdit>("exportFile").text(), QStringLiteral("disc_height.####.png"));
    exportAll();
    const auto highest = [&](const char* name) {
        const auto picture = IIO_read(out() + QLatin1Char('/') + QLatin1String(name));
        EXPECT_TRUE(picture) << dialog->message().toStdString();
        return picture ? *std::ranges::max_element(picture->row<std::uint16_t>(50)) : 0;
    };
    EXPECT_EQ(highest("disc_height.0002.png"), 65535);
    EXPECT_NEAR(highest("disc_height.0001.png"), 65535 / 2, 2);
}

TEST_F(ExportDialogTest, AMaskOfGlossNeedsAGlossyColour)
{
    open();
    EXPECT_FALSE(field<QToolButton>("exportGlossColours").isEnabled());
    check("exportGloss", true);
    pressEnter();
    EXPECT_FALSE(dialog->isRunning());
    EXPECT_TRUE(dialog->message().contains(QStringLiteral("No colour is glossy"))) << dialog->message().toStdString();
    setGlossOf(QStringLiteral("#D02020"), 35);
    exportAll();
    EXPECT_TRUE(QFileInfo::exists(out() + QStringLiteral("/disc_gloss.png"))) << dialog->message().toStdString();
    // It is known for the next drawing with this colour.
    show();
    const GlossSettings gloss = dialog->choices().gloss;
    ASSERT_EQ(gloss.colours.size(), 1U);
    EXPECT_EQ(gloss.colours.front().gloss, 0.35);
}

TEST_F(ExportDialogTest, WritesWholeAndHalfFloatsForCompositors)
{
    open();
    chooseTarget(QStringLiteral("compositors"));
    exportAll();
    const auto picture = IIO_read(out() + QStringLiteral("/disc_n.exr"));
    ASSERT_TRUE(picture) << dialog->message().toStdString();
    EXPECT_TRUE(picture->channels().contains(QStringLiteral("N.X")));
}

TEST_F(ExportDialogTest, AsksBeforeItReplacesAFile)
{
    open();
    write(QStringLiteral("out/disc_n.png"), "what was there");
    answerNext(QMessageBox::No);
    pressEnter();
    EXPECT_TRUE(asked.contains(QStringLiteral("disc_n.png"))) << asked.toStdString();
    EXPECT_FALSE(dialog->isRunning());
    EXPECT_EQ(bytesOf(QStringLiteral("out/disc_n.png")), "what was there");
    answerNext(QMessageBox::Yes);
    exportAll();
    EXPECT_TRUE(IIO_read(out() + QStringLiteral("/disc_n.png")));
}

TEST_F(ExportDialogTest, WritesOverNoDrawingThatTheSceneWasMadeOfUnderAnyName)
{
    openSprite();
    const QByteArray drawing = bytesOf(QStringLiteral("sprite.png"));
    show();
    // Its own name.
    field<QLineEdit>("exportFolder").setText(folder.path());
    field<QLineEdit>("exportFile").setText(QStringLiteral("sprite.png"));
    pressEnterUnasked();
    EXPECT_FALSE(dialog->isRunning());
    EXPECT_TRUE(dialog->message().startsWith(QStringLiteral("sprite.png is the drawing that the scene was made of")))
        << dialog->message().toStdString();
    // A link to it.
    std::filesystem::create_symlink("../sprite.png", (out() + QStringLiteral("/link.png")).toStdString());
    field<QLineEdit>("exportFolder").setText(out());
    field<QLineEdit>("exportFile").setText(QStringLiteral("link.png"));
    pressEnterUnasked();
    EXPECT_FALSE(dialog->isRunning());
    EXPECT_TRUE(dialog->message().startsWith(QStringLiteral("link.png is the drawing")))
        << dialog->message().toStdString();
    EXPECT_EQ(bytesOf(QStringLiteral("sprite.png")), drawing);
}

TEST_F(ExportDialogTest, WritesThroughNoLinkWhoseNameNobodyChose)
{
    open();
    write(QStringLiteral("other.png"), "of the user's");
    std::filesystem::create_symlink("../other.png", (out() + QStringLiteral("/disc_e.png")).toStdString());
    check("exportElevation", true);
    pressEnterUnasked();
    EXPECT_FALSE(dialog->isRunning());
    EXPECT_TRUE(dialog->message().startsWith(QStringLiteral("disc_e.png is a link")))
        << dialog->message().toStdString();
    EXPECT_EQ(bytesOf(QStringLiteral("other.png")), "of the user's");
    EXPECT_EQ(filesThere(), QStringList{QStringLiteral("disc_e.png")});
    // A person who names the link means the file behind it.
    check("exportElevation", false);
    field<QLineEdit>("exportFile").setText(QStringLiteral("disc_e.png"));
    answerNext(QMessageBox::Yes);
    exportAll();
    EXPECT_TRUE(IIO_read(folder.filePath(QStringLiteral("other.png")))) << dialog->message().toStdString();
}

TEST_F(ExportDialogTest, RemembersWhatWasChosenButNotTheName)
{
    open();
    chooseTarget(QStringLiteral("Unity"));
    check("exportElevation", true);
    field<QLineEdit>("exportFolder").setText(folder.filePath(QStringLiteral("elsewhere")));
    field<QLineEdit>("exportFile").setText(QStringLiteral("other_n.png"));
    exportAll();
    ASSERT_TRUE(QFileInfo::exists(folder.filePath(QStringLiteral("elsewhere/other_e.png"))));
    show();
    const ExportChoices choices = dialog->choices();
    EXPECT_EQ(field<QComboBox>("exportTarget").currentText(), QStringLiteral("Unity"));
    EXPECT_EQ(choices.pictures, (QList{ExportPicture::MAP, ExportPicture::ELEVATION}));
    EXPECT_EQ(choices.file, folder.filePath(QStringLiteral("elsewhere/disc_n.png")));
}

TEST_F(ExportDialogTest, AStoppedExportLeavesWholeFilesAndNamesThem)
{
    openDisc();
    constexpr int kFrames = 400;
    ASSERT_TRUE(document().execute(MO_frameRangeCmd(document().scene(), 1, kFrames)));
    ASSERT_TRUE(waitForPicture());
    show();
    pressEnter();
    ASSERT_TRUE(dialog->isRunning()) << dialog->message().toStdString();
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    ASSERT_TRUE(studio_testing::waitUntil([&] { return !dialog->isRunning(); }));
    EXPECT_TRUE(dialog->isVisible()) << "the first Escape stops, the next one closes";
    // How far it came is nobody's promise; what is there is whole and named.
    const QStringList files = filesThere();
    for (const QString& name : files)
        EXPECT_TRUE(IIO_read(out() + QLatin1Char('/') + name)) << name.toStdString();
    const QString said = files.isEmpty()          ? QStringLiteral("nothing was written")
                         : files.size() < kFrames ? files.first()
                                                  : QStringLiteral("400 picture");
    EXPECT_TRUE(dialog->message().contains(said)) << dialog->message().toStdString();
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
}

// The dialog that the window's own action opens.
class WindowExportTest : public ExportDialogTest
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
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
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
