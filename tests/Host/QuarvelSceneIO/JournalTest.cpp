// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Only the journal that this user wrote on this machine for this folder is carried out.
#include "Host/QuarvelSceneIO/TestScenes.h"

#include "QuarvelSceneIO/private/SIO_Journal.h"
#include "QuarvelSceneIO/private/SIO_JournalSeal.h"

#include <QProcess>

using namespace test_scenes;

namespace {

const QString kDrawing = text("elements/Only%201/1.kvr");
const QString kMain = text("scene.xml");

// A scene, and a save of another scene into its folder that was interrupted after writing the journal.
struct Journals : testing::Test
{
    Journals()
    {
        save(*oldScene, place.folder);
        stage(place.folder);
    }

    QString inside(const char* name) const { return place.folder + u'/' + text(name); }

    SIO_Journal journalOfTheNewScene() const
    {
        SIO_Journal journal;
        for (auto file = newFiles.cbegin(); file != newFiles.cend(); ++file)
            journal.writes.push_back({text(".save/%1").arg(journal.writes.size()), file.key(), SIO_digest(*file)});
        return journal;
    }

    void stage(const QString& folder)
    {
        const SIO_Journal journal = journalOfTheNewScene();
        for (const SIO_Journal::Write& write : journal.writes)
            writeTestFile(folder + u'/' + write.staged, newFiles.value(write.target));
        const auto sealed = SIO_sealed(SIO_journalText(journal), folder);
        ASSERT_TRUE(sealed) << qPrintable(sealed.error().text);
        writeTestFile(folder + text("/.journal"), *sealed);
    }

    // Expects that the folder loads as the given scene, that the journal is reported and stays with its files, and that
    // saving is refused.
    void expectLeftAlone(const QString& folder, const Files& scene)
    {
        const Files before = filesIn(folder);
        const auto loaded = SIO_loadScene(folder);
        ASSERT_TRUE(loaded) << qPrintable(loaded.error().text);
        EXPECT_EQ(difference(filesOf(*loaded->scene), scene), "");
        ASSERT_EQ(loaded->warnings.size(), 1);
        EXPECT_TRUE(loaded->warnings.front().contains(text(".journal\" is a save that was cut short")));
        const auto saved = SIO_saveScene(*newScene, folder);
        ASSERT_FALSE(saved);
        EXPECT_EQ(saved.error().text, loaded->warnings.front());
        EXPECT_EQ(difference(filesIn(folder), before), "");
    }

    static void copyFolder(const QString& from, const QString& to)
    {
        ASSERT_EQ(QProcess::execute(text("cp"), {text("-a"), from, to}), 0);
    }

    ScenePlace place;
    std::unique_ptr<MO_Scene> oldScene = makeScene(1);
    std::unique_ptr<MO_Scene> newScene = makeScene(2);
    Files oldFiles = filesOf(*oldScene);
    Files newFiles = filesOf(*newScene);
};

} // namespace

TEST_F(Journals, OnesOwnIsCarriedOut)
{
    EXPECT_EQ(difference(loadedFiles(place.folder), newFiles), "");
    EXPECT_FALSE(QFileInfo::exists(inside(".journal")));
    EXPECT_FALSE(QFileInfo::exists(inside(".save")));
}

TEST_F(Journals, OnesOwnIsCarriedOutInAFolderThatMoved)
{
    const QString moved = place.home.path() + text("/moved.scene");
    ASSERT_TRUE(QDir().rename(place.folder, moved));
    EXPECT_EQ(difference(loadedFiles(moved), newFiles), "");
    EXPECT_FALSE(QFileInfo::exists(moved + text("/.journal")));
}

TEST_F(Journals, ACopyIsLeftAlone)
{
    const QString copy = place.home.path() + text("/copy.scene");
    copyFolder(place.folder, copy);
    expectLeftAlone(copy, oldFiles);
    EXPECT_EQ(difference(loadedFiles(place.folder), newFiles), "");
}

TEST_F(Journals, AnotherUsersIsLeftAlone)
{
    const QByteArray before = qgetenv("XDG_STATE_HOME");
    const QTemporaryDir other;
    qputenv("XDG_STATE_HOME", QFile::encodeName(other.path()));
    expectLeftAlone(place.folder, oldFiles);
    qputenv("XDG_STATE_HOME", before);
}

TEST_F(Journals, OneWithoutASealIsLeftAlone)
{
    writeTestFile(inside(".journal"), SIO_journalText(journalOfTheNewScene()));
    expectLeftAlone(place.folder, oldFiles);
}

TEST_F(Journals, OneThatWasChangedIsLeftAlone)
{
    const QByteArray whole = bytesOfFile(inside(".journal"));
    for (qsizetype i = 0; i < whole.size(); i += 7) {
        writeTestFile(inside(".journal"), whole.left(i));
        expectLeftAlone(place.folder, oldFiles);
        QByteArray flipped = whole;
        flipped[i] = static_cast<char>(flipped[i] ^ 0x01);
        writeTestFile(inside(".journal"), flipped);
        expectLeftAlone(place.folder, oldFiles);
    }
    writeTestFile(inside(".journal"), whole + '\n');
    expectLeftAlone(place.folder, oldFiles);
}

TEST_F(Journals, OneWhoseFilesWereChangedIsLeftAlone)
{
    writeTestFile(inside(".save/0"), "<quarvelScene/>");
    expectLeftAlone(place.folder, oldFiles);
}

TEST_F(Journals, OnesOwnTouchesNothingButAScenesFiles)
{
    // Even a valid seal does not permit these paths.
    for (const char* path : {".git/config", "elements/1.kvr", "elements/a/b/1.kvr", "elements/Hero/config", "x.xml",
                             "palettes/a.kvr", "palettes/a/b.xml", "scene.xml/x", "Scene.xml", "../scene.xml"}) {
        SIO_Journal journal;
        journal.writes.push_back({text(".save/0"), text(path), SIO_digest(bytesOfFile(inside(".save/0")))});
        writeTestFile(inside(".journal"), *SIO_sealed(SIO_journalText(journal), place.folder));
        expectLeftAlone(place.folder, oldFiles);
        journal.writes.clear();
        journal.deletes << text(path);
        writeTestFile(inside(".journal"), *SIO_sealed(SIO_journalText(journal), place.folder));
        expectLeftAlone(place.folder, oldFiles);
    }
}

TEST_F(Journals, OnceAStrangersIsTakenAwayTheSceneCanBeSaved)
{
    writeTestFile(inside(".journal"), "write 0 .git/config\n");
    writeTestFile(inside(".save/notes.txt"), "somebody's");
    expectLeftAlone(place.folder, oldFiles);
    ASSERT_TRUE(QFile::remove(inside(".journal")));
    save(*newScene, place.folder);
    // Files in ".save" that no save has made stay there.
    Files expected = newFiles;
    expected.insert(text(".save/notes.txt"), "somebody's");
    EXPECT_EQ(difference(filesIn(place.folder), expected), "");
}

TEST_F(Journals, TheKeyIsForItsOwnerAlone)
{
    const QString key = qEnvironmentVariable("XDG_STATE_HOME") + text("/quarvel/journal.key");
    EXPECT_EQ(QFileInfo(key).size(), 32);
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_FALSE(QFile::permissions(key) & others);
    // A key that others can read is not a secret: anybody could have sealed the journal.
    const QFile::Permissions before = QFile::permissions(key);
    ASSERT_TRUE(QFile::setPermissions(key, before | QFile::ReadOther));
    EXPECT_EQ(difference(loadedFiles(place.folder), oldFiles), "");
    EXPECT_FALSE(SIO_saveScene(*newScene, place.folder));
    ASSERT_TRUE(QFile::setPermissions(key, before));
    EXPECT_EQ(difference(loadedFiles(place.folder), newFiles), "");
}

TEST_F(Journals, WithoutAPlaceForTheKeyNothingIsSaved)
{
    const QByteArray before = qgetenv("XDG_STATE_HOME");
    qputenv("XDG_STATE_HOME", QFile::encodeName(place.folder + u'/' + kMain));
    const QString another = place.home.path() + text("/another.scene");
    const auto saved = SIO_saveScene(*newScene, another);
    qputenv("XDG_STATE_HOME", before);
    ASSERT_FALSE(saved);
    EXPECT_TRUE(saved.error().text.contains(text("XDG_STATE_HOME"))) << qPrintable(saved.error().text);
    EXPECT_FALSE(QFileInfo::exists(another));
}

TEST(JournalText, ComesBack)
{
    SIO_Journal journal;
    journal.writes.push_back({text(".save/0"), text("elements/a b/\xc3\xa9.kvr"), SIO_digest("x")});
    journal.deletes << text("palettes/x y.xml");
    const auto read = SIO_parseJournal(SIO_journalText(journal));
    ASSERT_TRUE(read);
    ASSERT_EQ(read->writes.size(), 1U);
    EXPECT_EQ(read->writes[0].staged, text(".save/0"));
    EXPECT_EQ(read->writes[0].target, text("elements/a b/\xc3\xa9.kvr"));
    EXPECT_EQ(read->writes[0].digest, SIO_digest("x"));
    EXPECT_EQ(read->deletes, journal.deletes);
}

TEST(JournalText, StagedFilesAreNumbered)
{
    for (const char* name : {"", "a", "journal", "../x", "1/2", "-1"}) {
        SIO_Journal journal;
        journal.writes.push_back({text(".save/") + text(name), kDrawing, SIO_digest("x")});
        EXPECT_FALSE(SIO_parseJournal(SIO_journalText(journal))) << name;
    }
}
