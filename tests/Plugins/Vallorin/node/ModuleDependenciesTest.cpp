// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What must be installed where the module is loaded: the host, Qt and TBB.
#include <QDir>
#include <QProcess>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <set>

namespace {

/// The libraries that a library's dynamic section names.
QStringList neededBy(const QString& library)
{
    QProcess readelf;
    readelf.start(QStringLiteral("readelf"), {QStringLiteral("--dynamic"), QStringLiteral("--wide"), library});
    if (!readelf.waitForFinished(-1) || readelf.exitCode() != 0)
        return {};
    static const QRegularExpression entry(QStringLiteral(R"(\(NEEDED\).*\[(.+)\])"));
    QStringList names;
    for (auto match = entry.globalMatch(QString::fromLocal8Bit(readelf.readAllStandardOutput())); match.hasNext();)
        names.append(match.next().captured(1));
    return names;
}

/// The libraries that the file needs, directly or through the libraries built here, without the latter.
std::set<QString> foreignLibrariesOf(const QString& file)
{
    const QDir ours(QStringLiteral(VALLORIN_LIBRARIES));
    QStringList toRead{file};
    std::set<QString> read{file};
    std::set<QString> foreign;
    while (!toRead.isEmpty())
        for (const QString& name : neededBy(toRead.takeFirst())) {
            if (!ours.exists(name))
                foreign.insert(name);
            else if (read.insert(ours.filePath(name)).second)
                toRead.append(ours.filePath(name));
        }
    return foreign;
}

// Debug and sanitizer builds are linked with libraries that they do not use.
#ifdef NDEBUG
constexpr bool kIsWhatPeopleRun = true;
#else
constexpr bool kIsWhatPeopleRun = false;
#endif

TEST(ModuleDependencies, AreTheHostQtTbbAndTheSystemAlone)
{
#ifdef Q_OS_LINUX
    if (!kIsWhatPeopleRun)
        GTEST_SKIP() << "this is no build that people run";
    const std::set<QString> foreign = foreignLibrariesOf(QStringLiteral(VALLORIN_MODULE));
    ASSERT_TRUE(foreign.contains(QStringLiteral("libQt6Core.so.6"))) << "the module was not read";
    const QRegularExpression known(QStringLiteral(
        R"(^(libQt6\w+|libtbb|libstdc\+\+|libc\+\+\w*|libgcc_s|libc|libm|ld-linux.*|lib(a|l|t|ub)san)\.so(\.\d+)*$)"));
    for (const QString& name : foreign)
        EXPECT_TRUE(known.match(name).hasMatch()) << name.toStdString() << " is needed as well";
#else
    GTEST_SKIP() << "only the files of Linux are read";
#endif
}

} // namespace
