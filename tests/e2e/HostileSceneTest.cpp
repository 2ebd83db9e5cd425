// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Hostile scenes, opened by the program as a person opens them: nothing is executed, nothing hangs, and a message names
// what was found.
#include "ProgramFixture.h"
#include "QuarvelSceneIO/private/SIO_Journal.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <pty.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <vector>

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

QByteArray manyAttributes(int count)
{
    QByteArray attributes;
    for (int i = 0; i < count; ++i)
        attributes += " a" + QByteArray::number(i) + "=''";
    return attributes;
}

class HostileScene : public Program
{
protected:
    void SetUp() override
    {
        write("hero.svg", R"(<svg xmlns="http://www.w3.org/2000/svg" width="64" height="64">
            <rect x="16" y="16" width="32" height="32" fill="#ff0000"/></svg>)");
        const Outcome outcome = quarvel("import hero.svg -o s.scene");
        ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
    }

    // The scene's folder: its names, and the type or content of each.
    QMap<QString, QByteArray> sceneFolder() const
    {
        QMap<QString, QByteArray> found;
        QDirIterator all(path("s.scene"), QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
        while (all.hasNext()) {
            QFile file(all.next());
            const bool isPlain = all.fileInfo().isFile() && !all.fileInfo().isSymLink();
            found.insert(all.filePath(), isPlain && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
        }
        return found;
    }

    QString aDrawing() const
    {
        QDirIterator drawings(path("s.scene/elements"), {text("*.kvr")}, QDir::Files, QDirIterator::Subdirectories);
        return drawings.next();
    }

    // The program's output on a terminal.
    std::string onATerminal(const QStringList& words) const
    {
        int terminal = -1;
        const pid_t child = ::forkpty(&terminal, nullptr, nullptr, nullptr);
        if (child == 0) {
            std::vector<QByteArray> bytes = {QByteArray(QUARVEL_PROGRAM)};
            for (const QString& word : words)
                bytes.push_back(word.toUtf8());
            std::vector<char*> arguments;
            for (QByteArray& word : bytes)
                arguments.push_back(word.data());
            arguments.push_back(nullptr);
            if (::chdir(QFile::encodeName(path("")).constData()) == 0)
                ::execv(arguments.front(), arguments.data());
            ::_exit(127);
        }
        std::string written;
        char block[4096];
        for (ssize_t count = 0; (count = ::read(terminal, block, sizeof block)) > 0;)
            written.append(block, static_cast<std::size_t>(count));
        int status = 0;
        ::waitpid(child, &status, 0);
        ::close(terminal);
        EXPECT_EQ(status, 0);
        return written;
    }
    Outcome inspect() const { return quarvel("inspect s.scene"); }
};

} // namespace

TEST_F(HostileScene, AJournalThatCameWithItIsReportedAndChangesNothing)
{
    // A repository whose root is the scene: its configuration names a program that every command of git would run.
    write("s.scene/.git/config", "[core]\n");
    const QByteArray settings = "[core]\n\tfsmonitor = \"touch OWNED\"\n";
    write("s.scene/.save/0", settings);
    const QByteArray first = "quarvel-journal 1\nwrite 0 .git/config\n";
    const QByteArray second = "quarvel-journal 2\nwrite 0 " + SIO_digest(settings) + " .git/config\n";
    const QByteArrayList journals = {first + "end " + SIO_digest(first) + '\n',
                                     second + "seal " + SIO_digest(second) + '\n',
                                     "quarvel-journal 2\ndelete scene.xml\n", "nonsense"};
    for (const QByteArray& journal : journals) {
        write("s.scene/.journal", journal);
        const auto before = sceneFolder();
        const Outcome inspected = inspect();
        EXPECT_EQ(inspected.exitCode, 0) << inspected.messages;
        EXPECT_THAT(inspected.messages, AllOf(HasSubstr(".journal"), HasSubstr("it was left alone")));
        // Changing the scene is refused, with advice.
        const Outcome changed = quarvel("set s.scene frames 1-9");
        EXPECT_EQ(changed.exitCode, 1);
        EXPECT_THAT(changed.messages, HasSubstr("remove \".journal\" and \".save\""));
        EXPECT_EQ(sceneFolder(), before);
    }
}

TEST_F(HostileScene, LinksPipesAndDevicesAreRefusedWhereverTheyLie)
{
    const QStringList places = {path("s.scene/.journal"), path("s.scene/scene.xml"), aDrawing()};
    for (const QString& place : places) {
        const QByteArray name = QFile::encodeName(place);
        QFile file(place);
        const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        file.remove();
        ASSERT_EQ(::mkfifo(name.constData(), 0600), 0);
        Outcome outcome = inspect();
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_THAT(outcome.messages, AllOf(HasSubstr(name.toStdString()), HasSubstr("is not a plain file")));
        for (const char* target : {"/dev/zero", "/nowhere", "scene.xml", "../hero.svg"}) {
            file.remove();
            ASSERT_EQ(::symlink(target, name.constData()), 0);
            outcome = inspect();
            EXPECT_EQ(outcome.exitCode, 1);
            EXPECT_THAT(outcome.messages, AllOf(HasSubstr(name.toStdString()), HasSubstr("through a link"))) << target;
        }
        file.remove();
        if (!bytes.isEmpty())
            writeTestFile(file.fileName(), bytes);
    }
    EXPECT_EQ(inspect().exitCode, 0);
}

TEST_F(HostileScene, AFolderThatIsALinkIsRefused)
{
    ASSERT_TRUE(QDir().rename(path("s.scene/elements"), path("s.scene/real")));
    ASSERT_EQ(::symlink("real", QFile::encodeName(path("s.scene/elements")).constData()), 0);
    const Outcome outcome = inspect();
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.messages, HasSubstr("through a link"));
}

TEST_F(HostileScene, MoreElementsThanASceneCanHaveAreRefused)
{
    write("s.scene/scene.xml", "<?xml version=\"1.0\"?>\n<quarvelScene version=\"1\">" +
                                   QByteArray("<a/>").repeated(1'000'000) + "<scene/></quarvelScene>");
    const Outcome outcome = inspect();
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.messages, HasSubstr("scene.xml, line 2: there are more than 1000000 elements and attributes"));
    write("s.scene/scene.xml",
          "<?xml version=\"1.0\"?>\n<quarvelScene version=\"1\"><x" + manyAttributes(1'000'000) + "/></quarvelScene>");
    EXPECT_THAT(inspect().messages, HasSubstr("scene.xml, line 2: an element has more than 1000 attributes"));
}

TEST_F(HostileScene, AWarningIsSaidOnceWithACount)
{
    QFile file(path("s.scene/scene.xml"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    write("s.scene/scene.xml",
          file.readAll().replace("<palettes>", QByteArray("<new/>\n").repeated(3000) + "<palettes>"));
    const Outcome outcome = inspect();
    EXPECT_EQ(outcome.exitCode, 0);
    const QByteArray said = QByteArray::fromStdString(outcome.messages);
    EXPECT_EQ(said.count('\n'), 1);
    EXPECT_THAT(outcome.messages, AllOf(HasSubstr("scene.xml, line 3: <new>"), HasSubstr("(and 2999 times more)")));
}

TEST_F(HostileScene, NamesCannotSpeakToTheTerminal)
{
    QFile file(path("s.scene/scene.xml"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray scene = file.readAll();
    // A module whose name contains terminal controls, escaped in XML; reading resolves the escapes.
    const QByteArray name = "_x001B_[2Jhero\xe2\x80\xae";
    write("s.scene/scene.xml",
          QByteArray(scene).replace("\"hero\"", '"' + name + '"').replace("folder=\"" + name, "folder=\"hero"));
    const std::string shown = onATerminal({text("inspect"), text("s.scene")});
    EXPECT_THAT(shown, AllOf(HasSubstr("\\x1b[2Jhero\\u202e"), Not(HasSubstr("\x1b"))));
    // Scripts get the names unchanged.
    EXPECT_THAT(inspect().output, HasSubstr("\x1b[2Jhero"));
    // Messages are for people, even when they are redirected.
    const Outcome outcome = quarvel({text("set"), text("s.scene"), text("\x1b[2J.x"), text("1")});
    EXPECT_THAT(outcome.messages, AllOf(HasSubstr("\\x1b[2J"), Not(HasSubstr("\x1b"))));
}
