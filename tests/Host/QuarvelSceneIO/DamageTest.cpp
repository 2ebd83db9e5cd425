// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Damaged and malicious scenes cause an error that names the place, never a crash, and are never loaded in part.
#include "Host/QuarvelSceneIO/TestScenes.h"

#include <QElapsedTimer>

#include <random>

using namespace test_scenes;

namespace {

const QString kDrawing = text("elements/Only%201/1.kvr");
const QString kPalette = text("palettes/00000000000000a1.xml");

struct DamagedScene : testing::Test
{
    DamagedScene()
    {
        save(*makeScene(1), place.folder);
        whole = filesIn(place.folder);
    }

    void put(const QString& file, const QByteArray& bytes) { writeTestFile(place.folder + u'/' + file, bytes); }
    void edit(const QString& file, const QByteArray& before, const QByteArray& after)
    {
        QByteArray bytes = whole.value(file);
        ASSERT_TRUE(bytes.contains(before)) << before.constData();
        put(file, bytes.replace(before, after));
    }
    // The error of a scene that does not load.
    QString error()
    {
        const auto loaded = SIO_loadScene(place.folder);
        EXPECT_FALSE(loaded);
        return loaded ? QString() : loaded.error().text;
    }
    void expectError(const char* what)
    {
        const QString said = error();
        EXPECT_TRUE(said.contains(text(what))) << qPrintable(said);
    }

    ScenePlace place;
    Files whole;
};

struct DamagedFile : DamagedScene, testing::WithParamInterface<const char*>
{};

TEST_P(DamagedFile, CutShortIsAnErrorThatNamesFileAndLine)
{
    const QString file = text(GetParam());
    const QByteArray bytes = whole.value(file);
    ASSERT_FALSE(bytes.isEmpty());
    // Only the end of the line follows the last bracket.
    for (qsizetype length = 0; length < bytes.size() - 1; length += 10) {
        put(file, bytes.left(length));
        const QString said = error();
        EXPECT_TRUE(said.contains(QDir::toNativeSeparators(file)) && said.contains(text("line ")))
            << length << ": " << qPrintable(said);
    }
}

TEST_P(DamagedFile, WithRandomBytesLoadsOrSaysWhy)
{
    const QString file = text(GetParam());
    std::mt19937 random(4711);
    QElapsedTimer time;
    time.start();
    for (int i = 0; i < 250; ++i) {
        QByteArray bytes = whole.value(file);
        for (int flips = static_cast<int>(random() % 3); flips >= 0; --flips)
            bytes[static_cast<qsizetype>(random() % static_cast<unsigned>(bytes.size()))] = static_cast<char>(random());
        put(file, bytes);
        const auto loaded = SIO_loadScene(place.folder);
        EXPECT_TRUE(loaded || loaded.error().text.contains(place.folder)) << qPrintable(loaded.error().text);
    }
    EXPECT_LT(time.elapsed(), 120000);
}

INSTANTIATE_TEST_SUITE_P(OfEveryKind, DamagedFile,
                         testing::Values("scene.xml", "palettes/00000000000000a1.xml", "elements/Only%201/1.kvr"));

TEST_F(DamagedScene, AFileThatIsMissingIsNamed)
{
    QFile::remove(place.folder + u'/' + kDrawing);
    expectError("1.kvr\" is missing");
    expectError("scene.xml, line ");
    put(kDrawing, whole.value(kDrawing));
    QFile::remove(place.folder + u'/' + kPalette);
    expectError("00000000000000a1.xml\" is missing");
    QFile::remove(place.folder + text("/scene.xml"));
    expectError("scene.xml\" is missing");
}

TEST_F(DamagedScene, EverySenselessValueHasItsLine)
{
    edit(kDrawing, "M 0.1", "M zero");
    expectError("1.kvr, line 5: the points");
    edit(kDrawing, "opacity=\"0.3\"", "opacity=\"thick\"");
    expectError("1.kvr, line 4: the opacity");
    edit(kDrawing, "palette=\"00000000000000a2\"", "palette=\"00000000000000a9\"");
    expectError("1.kvr, line 2: the scene has no palette");
    edit(kDrawing, "fill=\"nonzero\"", "fill=\"round\"");
    expectError("1.kvr, line 5: the fill rule");
    edit(kDrawing, "iVBOR", "iVBOX");
    expectError("the picture is damaged");
    put(kDrawing, whole.value(kDrawing));
    edit(kPalette, "green=\"20\"", "green=\"256\"");
    expectError("a1.xml, line 3: red, green");
    edit(kPalette, "00000000000000c2", "00000000000000c1");
    expectError("a1.xml, line 4: a second colour");
    put(kPalette, whole.value(text("palettes/00000000000000a2.xml")));
    expectError("a1.xml, line 2: the palette's identifier");
    put(kPalette, whole.value(kPalette));
    edit(text("scene.xml"), "module=\"Only 1\"", "module=\"Composite\"");
    expectError("the scene has no node \"Composite\" with drawings");
    put(text("scene.xml"), "<?xml version=\"1.0\"?>\n<quarvelScene/>\n");
    expectError("scene.xml, line 2: there is no <scene>");
}

TEST_F(DamagedScene, ADocumentTypeIsRefused)
{
    const QByteArray bomb = "<?xml version=\"1.0\"?>\n<!DOCTYPE kvr [<!ENTITY a \"ha\"><!ENTITY b \"&a;&a;&a;\">]>\n"
                            "<kvr version=\"1\">&b;</kvr>\n";
    for (const QString& file : {kDrawing, kPalette, text("scene.xml")}) {
        put(file, bomb);
        expectError("document type");
        put(file, whole.value(file));
    }
}

TEST_F(DamagedScene, PathsCannotLeaveTheFolder)
{
    writeTestFile(place.home.path() + text("/1.kvr"), whole.value(kDrawing));
    for (const char* folder : {"..", "../..", "/etc", "a/b", "C:", "", ".", "..\\.."}) {
        edit(text("scene.xml"), "folder=\"Only%201\"", QByteArray("folder=\"") + folder + "\"");
        expectError("scene.xml, line ");
    }
    edit(text("scene.xml"), "file=\"1.kvr\"", "file=\"../../../1.kvr\"");
    expectError("scene.xml, line ");
}

TEST_F(DamagedScene, LinksCannotLeaveTheFolder)
{
    const QString outside = place.home.path() + text("/1.kvr");
    writeTestFile(outside, whole.value(kDrawing));
    QFile::remove(place.folder + u'/' + kDrawing);
    ASSERT_TRUE(QFile::link(outside, place.folder + u'/' + kDrawing));
    expectError("is reached through a link");
    // Saving replaces the link by a file and does not change the link's target.
    save(*makeScene(1), place.folder);
    EXPECT_FALSE(QFileInfo(place.folder + u'/' + kDrawing).isSymLink());
    EXPECT_EQ(bytesOfFile(outside), whole.value(kDrawing));
}

TEST_F(DamagedScene, NothingIsSavedThroughAFolderThatLeadsOut)
{
    const QString outside = place.home.path() + text("/outside");
    ASSERT_TRUE(QDir().rename(place.folder + text("/elements"), outside));
    ASSERT_TRUE(QFile::link(outside, place.folder + text("/elements")));
    const Files before = filesIn(outside);
    EXPECT_FALSE(SIO_saveScene(*makeScene(2), place.folder));
    EXPECT_EQ(difference(filesIn(outside), before), "");
    expectError("is reached through a link");
}

TEST_F(DamagedScene, OnlyDrawingsAreListedAsDrawings)
{
    // Otherwise a scene could name any file, and the next save would remove it.
    edit(text("scene.xml"), "file=\"1.kvr\"", "file=\"config\"");
    expectError("\"elements/Only%201/config\" is not a drawing's file");
}

TEST_F(DamagedScene, ASceneThatCannotBeReadIsNotSavedOver)
{
    // It would be unknown which of its files to remove.
    const QString main = place.folder + text("/scene.xml");
    ASSERT_TRUE(QDir().rename(main, place.home.path() + text("/elsewhere.xml")));
    ASSERT_TRUE(QFile::link(place.home.path() + text("/elsewhere.xml"), main));
    const auto saved = SIO_saveScene(*makeScene(2), place.folder);
    ASSERT_FALSE(saved);
    EXPECT_TRUE(saved.error().text.contains(text("through a link")));
    ASSERT_TRUE(QFile::remove(main));
    ASSERT_TRUE(QDir().rename(place.home.path() + text("/elsewhere.xml"), main));
    EXPECT_EQ(difference(filesIn(place.folder), whole), "");
}

TEST_F(DamagedScene, OneFileForTwoDrawingsIsRefused)
{
    edit(text("scene.xml"), "file=\"a%2Fb.kvr\"", "file=\"2.KVR\"");
    expectError("comes twice");
}

TEST_F(DamagedScene, ASceneThatIsDamagedCanBeSavedOver)
{
    put(text("scene.xml"), whole.value(text("scene.xml")).left(100));
    save(*makeScene(1), place.folder);
    EXPECT_EQ(difference(filesIn(place.folder), whole), "");
}

} // namespace
