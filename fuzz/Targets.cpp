// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The table, and what all targets share.
#include "Targets.h"

#include "QuarvelPlugInManager/PLUG_Manager.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr FuzzTarget kTargets[] = {
    {"atlas", fuzzAtlas},
    {"bitmap", fuzzBitmap},
    {"frame", fuzzFrame},
    {"layered", fuzzLayered},
    {"lottie-document", fuzzLottieDocument},
    {"lottie-stream", fuzzLottieStream},
    {"scene", fuzzScene},
    {"scene-file", fuzzSceneFile},
    {"set-words", fuzzSetWords},
    {"svg", fuzzSvg},
    {"tables", fuzzTables},
};

// Remarks about single inputs would fill the screen.
void saySilently(QtMsgType, const QMessageLogContext&, const QString&) {}

} // namespace

std::span<const FuzzTarget> fuzzTargets()
{
    return kTargets;
}

const FuzzTarget* findFuzzTarget(const char* name)
{
    const auto* const found =
        std::ranges::find_if(kTargets, [&](const FuzzTarget& target) { return std::strcmp(target.name, name) == 0; });
    return found == std::end(kTargets) ? nullptr : found;
}

void prepareFuzzing(int& argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // In MiB. What needs more is refused, as it is in a job of a render farm; on a machine with much memory it would be
    // rendered, and count as too much for the fuzzer.
    qputenv("SLURM_MEM_PER_NODE", "512");
    static const QGuiApplication application(argc, argv);
    if (const auto loaded = PLUG_Manager::loadAll(PLUG_Manager::defaultFolder()); !loaded) {
        std::fprintf(stderr, "%s\n", qPrintable(loaded.error().text));
        std::exit(2);
    }
    qInstallMessageHandler(saySilently);
}

QString fuzzFolder()
{
    static const QTemporaryDir folder;
    return folder.path();
}

QString fuzzFile(const QString& name, const QByteArray& content)
{
    const QString path = fuzzFolder() + u'/' + name;
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    FUZZ_CHECK(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    return path;
}

std::vector<std::pair<QString, QByteArray>> fuzzFilesIn(const QByteArray& input)
{
    const QByteArray mark = "=== ";
    std::vector<std::pair<QString, QByteArray>> files;
    for (qsizetype at = input.indexOf(mark); at >= 0;) {
        const qsizetype end = input.indexOf('\n', at);
        if (end < 0)
            break;
        const qsizetype next = input.indexOf("\n" + mark, end);
        files.emplace_back(QString::fromUtf8(input.mid(at + mark.size(), end - at - mark.size())),
                           input.mid(end + 1, next < 0 ? -1 : next - end));
        at = next < 0 ? -1 : next + 1;
    }
    return files;
}

void fuzzFailed(const char* property, const char* file, int line)
{
    std::fprintf(stderr, "%s:%d: does not hold: %s\n", file, line, property);
    std::abort();
}
