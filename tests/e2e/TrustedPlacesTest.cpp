// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Places from which the program loads code, and places where it writes: others must not be able to prepare them.
#include "ProgramFixture.h"

#include <QDir>
#include <QFile>
#include <QSet>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

class TrustedPlaces : public Program
{
protected:
    TrustedPlaces()
    {
        write("a.svg", R"(<svg xmlns="http://www.w3.org/2000/svg" width="64" height="64">
            <rect x="16" y="16" width="32" height="32"/></svg>)");
        // The folder of the test's encoder comes first.
        environment.insert(text("PATH"), path("") + text(":/usr/bin:/bin"));
    }

    QByteArray contentOf(const char* name) const { return exists(name) ? bytes(name) : QByteArray(); }

    // The exit code; the messages are stored in said.
    int exitCodeOf(const char* words, const QString& pluginPath = QString())
    {
        environment.insert(text("QUARVEL_PLUGIN_PATH"), pluginPath);
        const Outcome outcome = quarvel(words);
        said = outcome.messages;
        return outcome.exitCode;
    }
    int makeAMap(const QString& pluginPath) { return exitCodeOf("normalmap a.svg --size 16x16", pluginPath); }

    std::string said;
};

constexpr auto kMine = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

} // namespace

TEST_F(TrustedPlaces, PlugInsComeFromAnAbsolutePathOnly)
{
    ASSERT_TRUE(QDir().mkpath(path("plugins/Evil")));
    EXPECT_EQ(makeAMap(text("plugins")), 0);
    EXPECT_THAT(said, HasSubstr("QUARVEL_PLUGIN_PATH is ignored: expected an absolute path, got \"plugins\""));
    // Not ignored: the message is about the folder's content.
    EXPECT_EQ(makeAMap(path("plugins")), 1);
    EXPECT_THAT(said, AllOf(HasSubstr("holds no library"), Not(HasSubstr("ignored"))));
}

TEST_F(TrustedPlaces, PlugInsComeFromNowhereThatEverybodyMayChange)
{
    const auto ignored = [this](const QString& open) {
        EXPECT_EQ(makeAMap(path("a/plugins")), 0);
        EXPECT_THAT(said, AllOf(HasSubstr("QUARVEL_PLUGIN_PATH is ignored: everybody may change"),
                                HasSubstr('"' + open.toStdString() + '"')));
    };
    const QString library = path("a/plugins/Evil/libEvil.so");
    ASSERT_TRUE(QDir().mkpath(path("a/plugins/Evil")));
    write("a/plugins/Evil/libEvil.so", "");
    for (const QString& place : {path("a"), path("a/plugins"), path("a/plugins/Evil"), library}) {
        const QFile::Permissions before = QFile::permissions(place);
        ASSERT_TRUE(QFile::setPermissions(place, kMine | QFile::WriteOther));
        ignored(place);
        ASSERT_TRUE(QFile::setPermissions(place, before));
    }
    EXPECT_EQ(makeAMap(path("a/plugins")), 1) << "it is not ignored, and does not load";
}

TEST_F(TrustedPlaces, AFilmIsNotWrittenThroughALinkThatWaits)
{
    ASSERT_EQ(exitCodeOf("import a.svg -o s.scene"), 0) << said;
    // An encoder that writes to the file it is given, as all of them do.
    write("ffmpeg", "#!/bin/sh\nfor last; do :; done\ncat >/dev/null\necho \"$last\" >\"$last\"\n");
    write("ffprobe", "#!/bin/sh\necho 1\n");
    ASSERT_TRUE(QFile::setPermissions(path("ffmpeg"), kMine) && QFile::setPermissions(path("ffprobe"), kMine));
    write("victim", "precious");
    ASSERT_EQ(::symlink("victim", QFile::encodeName(path(".lit.gif.part")).constData()), 0);
    QSet<QByteArray> places;
    for (int i = 0; i < 2; ++i) {
        ASSERT_EQ(exitCodeOf("render s.scene --preview lit.gif"), 0) << said;
        places << contentOf("lit.gif");
        EXPECT_EQ(contentOf("victim"), "precious");
    }
    EXPECT_EQ(places.size(), 2) << "nobody can foresee where it writes";
    EXPECT_EQ(QDir(path("")).entryList({text(".lit*")}, QDir::Dirs | QDir::Hidden), QStringList());
}
