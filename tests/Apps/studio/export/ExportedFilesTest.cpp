// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What an export writes, asks before it replaces, and leaves behind when it is stopped.
#include "Apps/studio/export/ExportTesting.h"

#include "QuarvelImageIO/IIO_PictureFile.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/editing/MO_SceneCommands.h"
#include "jobs/shown/NormalMapNode.h"
#include "studio/objects/DocumentObjects.h"

#include <QProcess>

#include <algorithm>
#include <filesystem>

namespace {

using ExportedFilesTest = studio_testing::ExportDialogFixture;

TEST_F(ExportedFilesTest, EnterWritesTheBytesThatTheCommandLineWrites)
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

TEST_F(ExportedFilesTest, WhiteIsTheHighestPlaceOfAllFramesWhereNoHeightIsTyped)
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

TEST_F(ExportedFilesTest, WritesWholeAndHalfFloatsForCompositors)
{
    open();
    chooseTarget(QStringLiteral("compositors"));
    exportAll();
    const auto picture = IIO_read(out() + QStringLiteral("/disc_n.exr"));
    ASSERT_TRUE(picture) << dialog->message().toStdString();
    EXPECT_TRUE(picture->channels().contains(QStringLiteral("N.X")));
}

TEST_F(ExportedFilesTest, AsksBeforeItReplacesAFile)
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

TEST_F(ExportedFilesTest, WritesOverNoDrawingThatTheSceneWasMadeOfUnderAnyName)
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

TEST_F(ExportedFilesTest, WritesThroughNoLinkWhoseNameNobodyChose)
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

TEST_F(ExportedFilesTest, AStoppedExportLeavesWholeFilesAndNamesThem)
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

} // namespace
